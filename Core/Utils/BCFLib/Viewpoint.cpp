#include "Viewpoint.h"

#include "BCF_2_0_Viewpoint.h"
#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Components.h"
#include "DOMXml.h"
#include "GuidHints.h"
#include "Line.h"
#include "ObjectTree.h"
#include "Topic.h"
#include "XmlElements.h"
#include "XmlFile.h"
#include "XmlPrinter.h"

#include <Core/Utils/Utility/Vec3dVariant.h>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QIODevice>
#include <QVariantMap>
#include <log4cplus/log4cplus.h>
#include <typeinfo>

namespace BCFLib {

namespace {

constexpr int perspectiveBit = 1;
constexpr int orthogonalBit = 2;

/// Whether the viewpoint is of a class of the library. One of the host may look into documents by itself.
bool isOwnClass(const Viewpoint &viewpoint)
{
    const std::type_info &type = typeid(viewpoint);
    return type == typeid(Viewpoint) || type == typeid(BCF_2_0_Lib::Viewpoint);
}

/// The elements of a viewpoint file of which there may be many, in either form of the references.
QStringList numerousElements(const Viewpoint &viewpoint)
{
    if (!isOwnClass(viewpoint)) {
        return {};
    }
    return {QStringLiteral("Bitmaps"),
            QStringLiteral("ClippingPlanes/ClippingPlane"),
            QStringLiteral("Components/Component"),
            QStringLiteral("Components/Coloring/Color/Component"),
            QStringLiteral("Components/Selection/Component"),
            QStringLiteral("Components/Visibility/Exceptions/Component"),
            QStringLiteral("Lines/Line")};
}

/// Stores the number that the child of that name holds; 0 if it is no number. False if there is none.
bool readNumberElement(const QDomElement &parent, const QString &name, double *value)
{
    QString text;
    if (!Xml::readLeadingText(parent, name, &text)) {
        return false;
    }
    bool isNumber = false;
    const double number = text.toDouble(&isNumber);
    *value = isNumber ? number : 0.0;
    return isNumber;
}

/// Stores the coordinates of the child of that name one by one, up to the first that is missing or bad.
bool readPointElement(const QDomElement &parent, const QString &name, osg::Vec3d *value)
{
    const QDomElement point = parent.firstChildElement(name);
    return !point.isNull() && readNumberElement(point, QStringLiteral("X"), &value->x())
        && readNumberElement(point, QStringLiteral("Y"), &value->y())
        && readNumberElement(point, QStringLiteral("Z"), &value->z());
}

template<class Camera>
bool readCamera(const QDomElement &element, Camera *camera, const QString &numberName, double *number)
{
    return readPointElement(element, QStringLiteral("CameraViewPoint"), &camera->cameraViewPoint)
        && readPointElement(element, QStringLiteral("CameraDirection"), &camera->cameraDirection)
        && readPointElement(element, QStringLiteral("CameraUpVector"), &camera->cameraUpVector)
        && readNumberElement(element, numberName, number);
}

template<class Camera>
void writeCamera(QDomDocument &document, QDomElement &root, const QString &name, const Camera &camera,
                 const QString &numberName, double number)
{
    using Tavrin::DOMXml::createPointElement;
    QDomElement element = Xml::appendElement(document, root, name);
    element.appendChild(
        createPointElement(document, QStringLiteral("CameraViewPoint"), camera.cameraViewPoint));
    element.appendChild(
        createPointElement(document, QStringLiteral("CameraDirection"), camera.cameraDirection));
    element.appendChild(
        createPointElement(document, QStringLiteral("CameraUpVector"), camera.cameraUpVector));
    Tavrin::DOMXml::AddNumberElement(document, element, numberName, number);
}

bool readBitmapFormat(const QDomElement &element, BitmapFormat *format)
{
    QString text;
    if (!Xml::readLeadingText(element, QStringLiteral("Bitmap"), &text)) {
        return false;
    }
    *format = text == QLatin1String("JPG") ? JPG : PNG;
    return *format == JPG || text == QLatin1String("PNG");
}

QVariant pointForm(const osg::Vec3d &point)
{
    return Tavrin::Vec3dToQVariant(point);
}

osg::Vec3d pointFromForm(const QVariantMap &map, const QString &key)
{
    return Tavrin::Vec3dFromQVariant(map.value(key).toMap());
}

QVariantMap lineForm(const Line *line)
{
    return {{QStringLiteral("start_point"), pointForm(line->startPoint())},
            {QStringLiteral("end_point"), pointForm(line->endPoint())}};
}

QVariantMap clippingPlaneForm(const ClippingPlane *plane)
{
    return {{QStringLiteral("location"), pointForm(plane->location())},
            {QStringLiteral("direction"), pointForm(plane->direction())}};
}

QVariantMap bitmapForm(const Bitmap *bitmap)
{
    return {{QStringLiteral("bitmap_type"), static_cast<int>(bitmap->bitmapFormat())},
            {QStringLiteral("location"), pointForm(bitmap->location())},
            {QStringLiteral("normal"), pointForm(bitmap->normal())},
            {QStringLiteral("up"), pointForm(bitmap->up())},
            {QStringLiteral("height"), bitmap->height()}};
}

template<class T>
void insertForms(QVariantMap &map, const QString &key, const QList<T *> &objects,
                 QVariantMap (*form)(const T *))
{
    QVariantList forms;
    forms.reserve(objects.size());
    for (const T *object : objects) {
        forms.append(form(object));
    }
    if (!forms.isEmpty()) {
        map.insert(key, forms);
    }
}

/// The image that the value under "snapshot_data" tells: bytes, or the text of a data URL.
QByteArray imageFromForm(const QVariant &value)
{
    const QString prefix = QStringLiteral("data:image/png;base64,");
    // Of bytes, which as a rule are the image, no more is turned into text than tells what they are.
    const bool isBytes = value.userType() == QMetaType::QByteArray;
    const QString beginning =
        isBytes ? QString::fromUtf8(value.toByteArray().left(2 * prefix.size())) : value.toString();
    if (!beginning.startsWith(prefix)) {
        return value.toByteArray();
    }
    return QByteArray::fromBase64(value.toString().mid(prefix.size()).toLatin1());
}

} // namespace

Viewpoint::Viewpoint(const QString &guid, Topic *topic)
    : QObject(topic)
    , _logger(log4cplus::Logger::getInstance(LOG4CPLUS_TEXT("Tavrin.Core.Utils.BCF_2_1.Viewpoint")))
{
    setObjectName(guid);
    setDefaultCameraParameters();
    new Components(this);
}

Viewpoint::~Viewpoint() = default;

QMap<QString, QVariant> Viewpoint::componentsToQVariant() const
{
    return components()->toQVariant().toMap();
}

void Viewpoint::componentsFromQVariant(const QMap<QString, QVariant> &map)
{
    components()->fromQVariant(map);
}

QString Viewpoint::guid() const
{
    return objectName();
}

void Viewpoint::setGuid(const QString &guid)
{
    setObjectName(guid);
    GuidHints::renamed(this);
}

QString Viewpoint::viewpointFilename() const
{
    return _viewpointFilename;
}

void Viewpoint::setViewpointFilename(const QString &viewpointFilename)
{
    _viewpointFilename = viewpointFilename;
}

QString Viewpoint::snapshotFilename() const
{
    return _snapshotFilename;
}

void Viewpoint::setSnapshotFilename(const QString &snapshotFilename)
{
    _snapshotFilename = snapshotFilename;
}

int Viewpoint::whichCameraIsSet() const
{
    return _whichCameraIsSet;
}

OrthogonalCamera Viewpoint::orthogonalCamera() const
{
    return _orthogonalCamera;
}

void Viewpoint::setOrthogonalCamera(const OrthogonalCamera &camera)
{
    _orthogonalCamera = camera;
    if (checkOrthogonalCameraIsValid()) {
        _whichCameraIsSet |= orthogonalBit;
    } else {
        _whichCameraIsSet &= ~orthogonalBit;
    }
}

PerspectiveCamera Viewpoint::perspectiveCamera() const
{
    return _perspectiveCamera;
}

void Viewpoint::setPerspectiveCamera(const PerspectiveCamera &camera)
{
    _perspectiveCamera = camera;
    if (checkPerspectiveCameraIsValid()) {
        _whichCameraIsSet |= perspectiveBit;
    }
}

bool Viewpoint::checkOrthogonalCameraIsValid() const
{
    return _orthogonalCamera.viewToWorldScale != 0.0;
}

bool Viewpoint::checkPerspectiveCameraIsValid() const
{
    return true;
}

void Viewpoint::setDefaultCameraParameters()
{
    _orthogonalCamera.viewToWorldScale = 0.0;
    _perspectiveCamera.fieldOfView = -1.0;
}

QList<Line *> Viewpoint::lines() const
{
    return ObjectTree::all<Line>(this);
}

Line *Viewpoint::addLine()
{
    return new Line(this);
}

QList<ClippingPlane *> Viewpoint::clippingPlanes() const
{
    return ObjectTree::all<ClippingPlane>(this);
}

ClippingPlane *Viewpoint::addClippingPlane()
{
    return new ClippingPlane(this);
}

QList<Bitmap *> Viewpoint::bitmaps() const
{
    return ObjectTree::all<Bitmap>(this);
}

Bitmap *Viewpoint::addBitmap()
{
    return new Bitmap(this);
}

Components *Viewpoint::components() const
{
    Components *sets = ObjectTree::first<Components>(this);
    // A host that has deleted it, or moved it elsewhere, finds a new one.
    return sets != nullptr ? sets : new Components(const_cast<Viewpoint *>(this));
}

void Viewpoint::setSnapshot(const QByteArray &data)
{
    Topic *topic = parentTopic();
    if (data.isEmpty() || topic == nullptr || guid().isEmpty()) {
        return;
    }
    QByteArray copy = data;
    topic->addSnapshot(guid(), &copy);
}

bool Viewpoint::checkSnapshot()
{
    const QDir folder(QFileInfo(_viewpointFilename).absolutePath());
    if (_snapshotFilename.isEmpty()) {
        return true;
    }
    return folder.exists(_snapshotFilename) && QFile(_snapshotFilename).open(QIODevice::ReadOnly);
}

void Viewpoint::createFilename()
{
    const int position = getPositionInTopic();
    if (position < 0) {
        return;
    }
    const QString number = position == 0 ? QString() : QString::number(position);
    _viewpointFilename = QStringLiteral("viewpoint") + number + QStringLiteral(".bcfv");
    _snapshotFilename = QStringLiteral("snapshot") + number + QStringLiteral(".png");
}

int Viewpoint::getPositionInTopic()
{
    const Topic *topic = parentTopic();
    return topic == nullptr ? 0 : topic->viewpoints().indexOf(this);
}

Topic *Viewpoint::parentTopic() const
{
    return qobject_cast<Topic *>(parent());
}

bool Viewpoint::isValid() const
{
    if (guid().isEmpty()) {
        return false;
    }
    const bool hasOrthogonalCamera = (_whichCameraIsSet & orthogonalBit) != 0;
    if (!_viewpointFilename.isEmpty() && hasOrthogonalCamera && !checkOrthogonalCameraIsValid()) {
        return false;
    }
    if (_snapshotFilename.isEmpty()) {
        return true;
    }
    const Topic *topic = parentTopic();
    return topic != nullptr && topic->snapshot(guid()) != nullptr;
}

void Viewpoint::deserialize(QIODevice *device)
{
    QDomDocument document;
    if (device == nullptr || !XmlFile::read(device, &document, numerousElements(*this))) {
        return;
    }
    QDomElement root = document.firstChildElement(QStringLiteral("VisualizationInfo"));
    if (root.isNull()) {
        return;
    }
    readComponents(root);
    readCameras(root);
    readLines(root);
    readClippingPlanes(root);
    readBitmaps(root);
}

void Viewpoint::readComponents(QDomElement &root)
{
    components()->read(root);
}

bool Viewpoint::readCameras(QDomElement &root)
{
    _whichCameraIsSet = 0;
    const QDomElement perspective = root.firstChildElement(QStringLiteral("PerspectiveCamera"));
    if (!perspective.isNull()) {
        readAndCheckValidPerspectiveCamera(perspective);
    }
    const QDomElement orthogonal = root.firstChildElement(QStringLiteral("OrthogonalCamera"));
    if (!orthogonal.isNull()) {
        readAndCheckValidOrthogonalCamera(orthogonal);
    }
    return _whichCameraIsSet != 0;
}

void Viewpoint::readAndCheckValidPerspectiveCamera(const QDomElement &element)
{
    const bool isComplete = readCamera(element, &_perspectiveCamera, QStringLiteral("FieldOfView"),
                                       &_perspectiveCamera.fieldOfView);
    if (isComplete && checkPerspectiveCameraIsValid()) {
        _whichCameraIsSet |= perspectiveBit;
    }
}

void Viewpoint::readAndCheckValidOrthogonalCamera(const QDomElement &element)
{
    const bool isComplete = readCamera(element, &_orthogonalCamera, QStringLiteral("ViewToWorldScale"),
                                       &_orthogonalCamera.viewToWorldScale);
    if (isComplete && checkOrthogonalCameraIsValid()) {
        _whichCameraIsSet |= orthogonalBit;
    }
}

void Viewpoint::readLines(QDomElement &root)
{
    const QDomElement lines = root.firstChildElement(QStringLiteral("Lines"));
    for (const QDomElement &line : Xml::childElements(lines, QStringLiteral("Line"))) {
        readAndCheckValidLine(line);
    }
}

void Viewpoint::readAndCheckValidLine(const QDomElement &element)
{
    osg::Vec3d startPoint;
    osg::Vec3d endPoint;
    if (readPointElement(element, QStringLiteral("StartPoint"), &startPoint)
        && readPointElement(element, QStringLiteral("EndPoint"), &endPoint)) {
        Line *line = addLine();
        line->setStartPoint(startPoint);
        line->setEndPoint(endPoint);
    }
}

void Viewpoint::readClippingPlanes(QDomElement &root)
{
    const QDomElement planes = root.firstChildElement(QStringLiteral("ClippingPlanes"));
    for (const QDomElement &plane : Xml::childElements(planes, QStringLiteral("ClippingPlane"))) {
        readAndCheckValidClippingPlane(plane);
    }
}

void Viewpoint::readAndCheckValidClippingPlane(const QDomElement &element)
{
    osg::Vec3d location;
    osg::Vec3d direction;
    if (readPointElement(element, QStringLiteral("Location"), &location)
        && readPointElement(element, QStringLiteral("Direction"), &direction)) {
        ClippingPlane *plane = addClippingPlane();
        plane->setLocation(location);
        plane->setDirection(direction);
    }
}

void Viewpoint::readBitmaps(QDomElement &root)
{
    for (const QDomElement &bitmap : Xml::childElements(root, QStringLiteral("Bitmaps"))) {
        readAndCheckValidBitmap(bitmap);
    }
}

void Viewpoint::readAndCheckValidBitmap(const QDomElement &element)
{
    BitmapFormat format = PNG;
    QString reference;
    osg::Vec3d location;
    osg::Vec3d normal;
    osg::Vec3d up;
    double height = 0.0;
    if (readBitmapFormat(element, &format)
        && Xml::readLeadingText(element, QStringLiteral("Reference"), &reference) && !reference.isEmpty()
        && readPointElement(element, QStringLiteral("Location"), &location)
        && readPointElement(element, QStringLiteral("Normal"), &normal)
        && readPointElement(element, QStringLiteral("Up"), &up)
        && readNumberElement(element, QStringLiteral("Height"), &height)) {
        Bitmap *bitmap = addBitmap();
        bitmap->setBitmapFormat(format);
        bitmap->setReference(reference);
        bitmap->setLocation(location);
        bitmap->setNormal(normal);
        bitmap->setUp(up);
        bitmap->setHeight(height);
    }
}

bool Viewpoint::serialize(QIODevice *device)
{
    QDomDocument document;
    QDomElement root = Xml::appendElement(document, document, QStringLiteral("VisualizationInfo"));
    writeComponents(document, root);
    writeCameras(document, root);
    writeLines(document, root);
    writeClippingPlanes(document, root);
    writeBitmaps(document, root);
    XmlFile::write(document, device);
    return true;
}

void Viewpoint::writeComponents(QDomDocument &document, QDomElement &root)
{
    components()->write(document, root);
}

void Viewpoint::writeCameras(QDomDocument &document, QDomElement &root)
{
    if ((_whichCameraIsSet & perspectiveBit) != 0) {
        writeCamera(document, root, QStringLiteral("PerspectiveCamera"), _perspectiveCamera,
                    QStringLiteral("FieldOfView"), _perspectiveCamera.fieldOfView);
    }
    if ((_whichCameraIsSet & orthogonalBit) != 0) {
        writeCamera(document, root, QStringLiteral("OrthogonalCamera"), _orthogonalCamera,
                    QStringLiteral("ViewToWorldScale"), _orthogonalCamera.viewToWorldScale);
    }
}

void Viewpoint::writeLines(QDomDocument &document, QDomElement &root)
{
    const QList<Line *> all = lines();
    if (all.isEmpty()) {
        return;
    }
    QDomElement wrapper = Xml::appendElement(document, root, QStringLiteral("Lines"));
    const bool isOwn = isOwnClass(*this);
    XmlPrinter::List printer(&document, wrapper);
    for (const Line *line : all) {
        using Tavrin::DOMXml::createPointElement;
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("Line"));
        element.appendChild(createPointElement(document, QStringLiteral("StartPoint"), line->startPoint()));
        element.appendChild(createPointElement(document, QStringLiteral("EndPoint"), line->endPoint()));
        if (isOwn) {
            printer.printLast();
        }
    }
    printer.finish();
}

void Viewpoint::writeClippingPlanes(QDomDocument &document, QDomElement &root)
{
    const QList<ClippingPlane *> all = clippingPlanes();
    if (all.isEmpty()) {
        return;
    }
    QDomElement wrapper = Xml::appendElement(document, root, QStringLiteral("ClippingPlanes"));
    for (const ClippingPlane *plane : all) {
        using Tavrin::DOMXml::createPointElement;
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("ClippingPlane"));
        element.appendChild(createPointElement(document, QStringLiteral("Location"), plane->location()));
        element.appendChild(createPointElement(document, QStringLiteral("Direction"), plane->direction()));
    }
}

void Viewpoint::writeBitmaps(QDomDocument &document, QDomElement &root)
{
    for (const Bitmap *bitmap : bitmaps()) {
        using Tavrin::DOMXml::createPointElement;
        // Each bitmap stands directly below the root, under a plural name.
        QDomElement element = Xml::appendElement(document, root, QStringLiteral("Bitmaps"));
        Xml::appendText(document, element, QStringLiteral("Bitmap"), bitmap->bitmapFormatAsString());
        Xml::appendText(document, element, QStringLiteral("Reference"), bitmap->reference());
        element.appendChild(createPointElement(document, QStringLiteral("Location"), bitmap->location()));
        element.appendChild(createPointElement(document, QStringLiteral("Normal"), bitmap->normal()));
        element.appendChild(createPointElement(document, QStringLiteral("Up"), bitmap->up()));
        Tavrin::DOMXml::AddNumberElement(document, element, QStringLiteral("Height"), bitmap->height());
    }
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
    insertForms(map, QStringLiteral("lines"), lines(), lineForm);
    insertForms(map, QStringLiteral("clipping_planes"), clippingPlanes(), clippingPlaneForm);
    insertForms(map, QStringLiteral("bitmaps"), bitmaps(), bitmapForm);
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
    for (const QVariant &form : map.value(QStringLiteral("lines")).toList()) {
        const QVariantMap lineMap = form.toMap();
        Line *line = addLine();
        line->setStartPoint(pointFromForm(lineMap, QStringLiteral("start_point")));
        line->setEndPoint(pointFromForm(lineMap, QStringLiteral("end_point")));
    }
    for (const QVariant &form : map.value(QStringLiteral("clipping_planes")).toList()) {
        const QVariantMap planeMap = form.toMap();
        ClippingPlane *plane = addClippingPlane();
        plane->setLocation(pointFromForm(planeMap, QStringLiteral("location")));
        plane->setDirection(pointFromForm(planeMap, QStringLiteral("direction")));
    }
    for (const QVariant &form : map.value(QStringLiteral("bitmaps")).toList()) {
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
