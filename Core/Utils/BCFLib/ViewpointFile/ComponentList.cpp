#include "BCF_2_0_Viewpoint.h"
#include "Xml/Elements.h"

#include <QDomDocument>

namespace BCF_2_0_Lib {

namespace Xml = BCFLib::Xml;

namespace {

Tavrin::Boolean readMark(const QDomElement &element, const QString &name)
{
    if (!element.hasAttribute(name)) {
        return Tavrin::BooleanUnset;
    }
    return Tavrin::toBoolean(element.attribute(name) == QLatin1String("true"));
}

void writeMark(QDomElement &element, const QString &name, Tavrin::Boolean mark)
{
    if (mark != Tavrin::BooleanUnset) {
        Xml::setAttribute(element, name, Xml::flagText(mark == Tavrin::BooleanTrue));
    }
}

} // namespace

void Viewpoint::readComponents(QDomElement &root)
{
    const QMap<QString, Component *> earlier = _components;
    const QDomElement list = root.firstChildElement(QStringLiteral("Components"));
    Xml::takeChildren(list, QStringLiteral("Component"), [&](const QDomElement &element) {
        const QString guid = Xml::attribute(element, QStringLiteral("IfcGuid"));
        if (guid.isEmpty()) {
            return;
        }
        // Of several with one guid the last counts. It takes over the object of the others, as QObject would
        // search among all its children to delete one of them.
        Component *component = getComponent(guid);
        if (component == nullptr || component == earlier.value(guid)) {
            component = addComponent(guid);
        }
        component->setSelected(readMark(element, QStringLiteral("Selected")));
        component->setVisible(readMark(element, QStringLiteral("Visible")));
        component->setIfcProjectId(Xml::attribute(element, QStringLiteral("IfcProjectGuid")));
        component->setColor(Xml::attribute(element, QStringLiteral("Color")));
        component->setOriginatingSystem(Xml::leadingText(element, QStringLiteral("OriginatingSystem")));
        component->setAuthoringToolId(Xml::leadingText(element, QStringLiteral("AuthoringToolId")));
    });
}

void Viewpoint::writeComponents(QDomDocument &document, QDomElement &root)
{
    if (_components.isEmpty()) {
        return;
    }
    QDomElement components = Xml::appendElement(document, root, QStringLiteral("Components"));
    for (const Component *component : qAsConst(_components)) {
        component->write(document, components);
        QDomElement element = components.lastChildElement();
        writeMark(element, QStringLiteral("Selected"), component->selected());
        writeMark(element, QStringLiteral("Visible"), component->visible());
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("Color"), component->color());
        printFinished(document);
    }
}

} // namespace BCF_2_0_Lib
