#include "Viewpoint.h"

#include "Bitmap.h"
#include "ClippingPlane.h"
#include "Components.h"
#include "DOMXml.h"
#include "Line.h"
#include "Tree/Owners.h"
#include "Xml/Elements.h"
#include "Xml/Printer.h"

#include <QDomDocument>
#include <QScopedValueRollback>

namespace BCFLib {

namespace {

void appendPoint(QDomDocument &document, QDomElement &parent, const QString &name, const osg::Vec3d &point)
{
    parent.appendChild(Tavrin::DOMXml::createPointElement(document, name, point));
}

template<class Camera>
void writeCamera(QDomDocument &document, QDomElement &root, const QString &name, const Camera &camera,
                 const QString &numberName, double number)
{
    QDomElement element = Xml::appendElement(document, root, name);
    appendPoint(document, element, QStringLiteral("CameraViewPoint"), camera.cameraViewPoint);
    appendPoint(document, element, QStringLiteral("CameraDirection"), camera.cameraDirection);
    appendPoint(document, element, QStringLiteral("CameraUpVector"), camera.cameraUpVector);
    Tavrin::DOMXml::AddNumberElement(document, element, numberName, number);
}

} // namespace

bool Viewpoint::serialize(QIODevice *device)
{
    QDomDocument document;
    Xml::Printer printer(device);
    const QScopedValueRollback<Xml::Printer *> rollback(_printer, isOwnClass(this) ? &printer : nullptr);
    QDomElement root = Xml::appendElement(document, document, QStringLiteral("VisualizationInfo"));
    writeComponents(document, root);
    writeCameras(document, root);
    writeLines(document, root);
    writeClippingPlanes(document, root);
    writeBitmaps(document, root);
    printer.finish(document);
    return true;
}

void Viewpoint::printFinished(const QDomDocument &document) const
{
    if (_printer != nullptr) {
        _printer->printFinished(document);
    }
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
    for (const Line *line : all) {
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("Line"));
        appendPoint(document, element, QStringLiteral("StartPoint"), line->startPoint());
        appendPoint(document, element, QStringLiteral("EndPoint"), line->endPoint());
        printFinished(document);
    }
}

void Viewpoint::writeClippingPlanes(QDomDocument &document, QDomElement &root)
{
    const QList<ClippingPlane *> all = clippingPlanes();
    if (all.isEmpty()) {
        return;
    }
    QDomElement wrapper = Xml::appendElement(document, root, QStringLiteral("ClippingPlanes"));
    for (const ClippingPlane *plane : all) {
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("ClippingPlane"));
        appendPoint(document, element, QStringLiteral("Location"), plane->location());
        appendPoint(document, element, QStringLiteral("Direction"), plane->direction());
        printFinished(document);
    }
}

void Viewpoint::writeBitmaps(QDomDocument &document, QDomElement &root)
{
    for (const Bitmap *bitmap : bitmaps()) {
        // Each bitmap stands directly below the root, under a plural name.
        QDomElement element = Xml::appendElement(document, root, QStringLiteral("Bitmaps"));
        Xml::appendText(document, element, QStringLiteral("Bitmap"), bitmap->bitmapFormatAsString());
        Xml::appendText(document, element, QStringLiteral("Reference"), bitmap->reference());
        appendPoint(document, element, QStringLiteral("Location"), bitmap->location());
        appendPoint(document, element, QStringLiteral("Normal"), bitmap->normal());
        appendPoint(document, element, QStringLiteral("Up"), bitmap->up());
        Tavrin::DOMXml::AddNumberElement(document, element, QStringLiteral("Height"), bitmap->height());
        printFinished(document);
    }
}

} // namespace BCFLib
