#include "OrthogonalCamera.h"

#include <Core/Utils/Utility/Vec3dVariant.h>
#include <QVariantMap>

namespace BCFLib {

QVariant OrthogonalCamera::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("camera_view_point"), Tavrin::Vec3dToQVariant(cameraViewPoint));
    map.insert(QStringLiteral("camera_direction"), Tavrin::Vec3dToQVariant(cameraDirection));
    map.insert(QStringLiteral("camera_up_vector"), Tavrin::Vec3dToQVariant(cameraUpVector));
    map.insert(QStringLiteral("view_to_world_scale"), viewToWorldScale);
    return map;
}

void OrthogonalCamera::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    cameraViewPoint = Tavrin::Vec3dFromQVariant(map.value(QStringLiteral("camera_view_point")).toMap());
    cameraDirection = Tavrin::Vec3dFromQVariant(map.value(QStringLiteral("camera_direction")).toMap());
    cameraUpVector = Tavrin::Vec3dFromQVariant(map.value(QStringLiteral("camera_up_vector")).toMap());
    viewToWorldScale = map.value(QStringLiteral("view_to_world_scale")).toDouble();
}

} // namespace BCFLib
