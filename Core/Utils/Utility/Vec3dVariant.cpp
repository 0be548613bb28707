#include "Vec3dVariant.h"

namespace Tavrin {

namespace {

double coordinate(const QMap<QString, QVariant> &map, const QString &key)
{
    bool isNumber = false;
    const double number = map.value(key).toDouble(&isNumber);
    return isNumber ? number : 0.0;
}

}

QMap<QString, QVariant> Vec3dToQVariant(const osg::Vec3d &vector)
{
    return {
        {QStringLiteral("x"), vector.x()},
        {QStringLiteral("y"), vector.y()},
        {QStringLiteral("z"), vector.z()},
    };
}

osg::Vec3d Vec3dFromQVariant(const QMap<QString, QVariant> &map)
{
    return {
        coordinate(map, QStringLiteral("x")),
        coordinate(map, QStringLiteral("y")),
        coordinate(map, QStringLiteral("z")),
    };
}

}
