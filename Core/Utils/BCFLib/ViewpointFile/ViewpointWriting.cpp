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
#include <QIODevice>
#include <QScopedValueRollback>

namespace BCFLib {

namespace {

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
        using Tavrin::DOMXml::createPointElement;
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("Line"));
        element.appendChild(createPointElement(document, QStringLiteral("StartPoint"), line->startPoint()));
        element.appendChild(createPointElement(document, QStringLiteral("EndPoint"), line->endPoint()));
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
        using Tavrin::DOMXml::createPointElement;
        QDomElement element = Xml::appendElement(document, wrapper, QStringLiteral("ClippingPlane"));
        element.appendChild(createPointElement(document, QStringLiteral("Location"), plane->location()));
        element.appendChild(createPointElement(document, QStringLiteral("Direction"), plane->direction()));
        printFinished(document);
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
        printFinished(document);
    }
}

} // namespace BCFLib
