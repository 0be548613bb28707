#include "BCF_2_0_Comment.h"

namespace BCF_2_0_Lib {

Comment::Comment(const QString &guid, QObject *parent)
    : BCFLib::Comment(guid, parent)
{
}

Comment::~Comment() = default;

QString Comment::verbalStatus() const
{
    return _verbalStatus;
}

void Comment::setVerbalStatus(const QString &verbalStatus)
{
    _verbalStatus = verbalStatus;
}

QString Comment::status() const
{
    return _status;
}

void Comment::setStatus(const QString &status)
{
    _status = status;
}

} // namespace BCF_2_0_Lib
