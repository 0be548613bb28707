#include "Viewpoint.h"

#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Components.h"
#include "Line.h"
#include "Tree/Owners.h"
#include "Xml/Elements.h"
#include "Xml/Reader.h"

#include <QDomDocument>

namespace BCFLib {

namespace {

/// Stores the number that the child of that name holds; 0 if it is no number. False if there is none.
bool readNumberElement(const QDomElement &parent, const QString &name, double *value)
{
    const QString text = Xml::leadingText(parent, name);
    if (text.isNull()) {
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

bool readBitmapFormat(const QDomElement &element, BitmapFormat *format)
{
    const QString text = Xml::leadingText(element, QStringLiteral("Bitmap"));
    *format = text == QLatin1String("JPG") ? JPG : PNG;
    return *format == JPG || text == QLatin1String("PNG");
}

} // namespace

void Viewpoint::deserialize(QIODevice *device)
{
    using Runs = Xml::NodeCount::Runs;
    QDomDocument document;
    if (device == nullptr
        || !Xml::readDocument(device, &document, isOwnClass(this) ? Runs::OfNumerousElements : Runs::None)) {
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
    readAndCheckValidPerspectiveCamera(root.firstChildElement(QStringLiteral("PerspectiveCamera")));
    readAndCheckValidOrthogonalCamera(root.firstChildElement(QStringLiteral("OrthogonalCamera")));
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
    Xml::takeChildren(lines, QStringLiteral("Line"),
                      [&](const QDomElement &line) { readAndCheckValidLine(line); });
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
    Xml::takeChildren(planes, QStringLiteral("ClippingPlane"),
                      [&](const QDomElement &plane) { readAndCheckValidClippingPlane(plane); });
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
    Xml::takeChildren(root, QStringLiteral("Bitmaps"),
                      [&](const QDomElement &bitmap) { readAndCheckValidBitmap(bitmap); });
}

void Viewpoint::readAndCheckValidBitmap(const QDomElement &element)
{
    BitmapFormat format = PNG;
    const QString reference = Xml::leadingText(element, QStringLiteral("Reference"));
    osg::Vec3d location;
    osg::Vec3d normal;
    osg::Vec3d up;
    double height = 0.0;
    if (readBitmapFormat(element, &format) && !reference.isEmpty()
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

} // namespace BCFLib
