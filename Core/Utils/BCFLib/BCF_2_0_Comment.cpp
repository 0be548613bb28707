#include "BCF_2_0_Comment.h"

namespace BCF_2_0_Lib {

Comment::Comment(const QString &guid, QObject *parent)
    : BCFLib::Comment(guid, parent)
{
}

} // namespace BCF_2_0_Lib
