#include "NewId.h"

#include <QUuid>

namespace Tavrin {

QString NewId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

}
