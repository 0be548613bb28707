#include "Viewpoint.h"

#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Components.h"
#include "Line.h"
#include "Topic.h"
#include "Variant/Maps.h"

#include <Core/Utils/Utility/Vec3dVariant.h>

namespace BCFLib {

namespace {

osg::Vec3d pointFromForm(const QVariantMap &map, const QString &key)
{
    return Tavrin::Vec3dFromQVariant(map.value(key).toMap());
}

QVariantMap lineForm(const Line *line)
{
    return {{QStringLiteral("start_point"), Tavrin::Vec3dToQVariant(line->startPoint())},
            {QStringLiteral("end_point"), Tavrin::Vec3dToQVariant(line->endPoint())}};
}

QVariantMap clippingPlaneForm(const ClippingPlane *plane)
{
    return {{QStringLiteral("location"), Tavrin::Vec3dToQVariant(plane->location())},
            {QStringLiteral("direction"), Tavrin::Vec3dToQVariant(plane->direction())}};
}

QVariantMap bitmapForm(const Bitmap *bitmap)
{
    return {{QStringLiteral("bitmap_type"), static_cast<int>(bitmap->bitmapFormat())},
            {QStringLiteral("location"), Tavrin::Vec3dToQVariant(bitmap->location())},
            {QStringLiteral("normal"), Tavrin::Vec3dToQVariant(bitmap->normal())},
            {QStringLiteral("up"), Tavrin::Vec3dToQVariant(bitmap->up())},
            {QStringLiteral("height"), bitmap->height()}};
}

/// The image under "snapshot_data": bytes, or the text of a data URL.
QByteArray imageFromForm(const QVariant &value)
{
    const QString prefix = QStringLiteral("data:image/png;base64,");
    // Bytes are usually the image itself; only enough of them is decoded to recognise a data URL.
    const bool isBytes = value.userType() == QMetaType::QByteArray;
    const QString beginning =
        isBytes ? QString::fromUtf8(value.toByteArray().left(2 * prefix.size())) : value.toString();
    if (!beginning.startsWith(prefix)) {
        return value.toByteArray();
    }
    return QByteArray::fromBase64(value.toString().mid(prefix.size()).toLatin1());
}

} // namespace

QMap<QString, QVariant> Viewpoint::componentsToQVariant() const
{
    return components()->toQVariant().toMap();
}

void Viewpoint::componentsFromQVariant(const QMap<QString, QVariant> &map)
{
    components()->fromQVariant(map);
}

QVariant Viewpoint::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("guid"), guid());
    const Topic *topic = parentTopic();
    if (const QByteArray *image = topic != nullptr ? topic->snapshot(guid()) : nullptr) {
        map.insert(QStringLiteral("snapshot"),
                   QVariantMap{{QStringLiteral("snapshot_type"), QStringLiteral("png")},
                               {QStringLiteral("snapshot_data"), *image}});
    }
    if (!_viewpointFilename.isEmpty()) {
        map.insert(QStringLiteral("viewpoint_file"), _viewpointFilename);
        map.insert(QStringLiteral("snapshot_file"), _snapshotFilename);
    }
    if ((_whichCameraIsSet & orthogonalBit) != 0) {
        map.insert(QStringLiteral("orthogonal_camera"), _orthogonalCamera.toQVariant());
    }
    if ((_whichCameraIsSet & perspectiveBit) != 0) {
        map.insert(QStringLiteral("perspective_camera"), _perspectiveCamera.toQVariant());
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("lines"), Variants::formsOf(lines(), lineForm));
    Variants::insertIfNotEmpty(map, QStringLiteral("clipping_planes"),
                               Variants::formsOf(clippingPlanes(), clippingPlaneForm));
    Variants::insertIfNotEmpty(map, QStringLiteral("bitmaps"), Variants::formsOf(bitmaps(), bitmapForm));
    map.insert(QStringLiteral("components"), componentsToQVariant());
    return map;
}

void Viewpoint::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    // First, as the image is stored under the guid.
    if (map.contains(QStringLiteral("guid"))) {
        setGuid(map.value(QStringLiteral("guid")).toString());
    }
    if (map.contains(QStringLiteral("orthogonal_camera"))) {
        OrthogonalCamera camera;
        camera.fromQVariant(map.value(QStringLiteral("orthogonal_camera")));
        setOrthogonalCamera(camera);
    }
    if (map.contains(QStringLiteral("perspective_camera"))) {
        PerspectiveCamera camera;
        camera.fromQVariant(map.value(QStringLiteral("perspective_camera")));
        setPerspectiveCamera(camera);
    }
    snapshotFromQVariant(map);
    geometryFromQVariant(map);
    componentsFromQVariant(map.value(QStringLiteral("components")).toMap());
}

void Viewpoint::snapshotFromQVariant(const QMap<QString, QVariant> &map)
{
    const QVariantMap snapshot = map.value(QStringLiteral("snapshot")).toMap();
    const QByteArray image = imageFromForm(snapshot.value(QStringLiteral("snapshot_data")));
    if (image.isEmpty()) {
        return;
    }
    setSnapshot(image);
    if (map.contains(QStringLiteral("viewpoint_file"))) {
        _viewpointFilename = map.value(QStringLiteral("viewpoint_file")).toString();
        _snapshotFilename = map.value(QStringLiteral("snapshot_file")).toString();
    } else {
        createFilename();
    }
}

void Viewpoint::geometryFromQVariant(const QMap<QString, QVariant> &map)
{
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("lines")))) {
        const QVariantMap lineMap = form.toMap();
        Line *line = addLine();
        line->setStartPoint(pointFromForm(lineMap, QStringLiteral("start_point")));
        line->setEndPoint(pointFromForm(lineMap, QStringLiteral("end_point")));
    }
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("clipping_planes")))) {
        const QVariantMap planeMap = form.toMap();
        ClippingPlane *plane = addClippingPlane();
        plane->setLocation(pointFromForm(planeMap, QStringLiteral("location")));
        plane->setDirection(pointFromForm(planeMap, QStringLiteral("direction")));
    }
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("bitmaps")))) {
        const QVariantMap bitmapMap = form.toMap();
        Bitmap *bitmap = addBitmap();
        bitmap->setBitmapFormat(
            static_cast<BitmapFormat>(bitmapMap.value(QStringLiteral("bitmap_type")).toInt()));
        bitmap->setLocation(pointFromForm(bitmapMap, QStringLiteral("location")));
        bitmap->setNormal(pointFromForm(bitmapMap, QStringLiteral("normal")));
        bitmap->setUp(pointFromForm(bitmapMap, QStringLiteral("up")));
        bitmap->setHeight(bitmapMap.value(QStringLiteral("height")).toDouble());
    }
}

} // namespace BCFLib
