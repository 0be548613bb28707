#include "Component.h"

#include "BCF_2_0_Viewpoint.h"
#include "Components.h"
#include "VariantMap.h"
#include "XmlElements.h"

#include <QChildEvent>
#include <QDomDocument>

namespace BCFLib {

Component::Component(const QString &guid, QObject *parent)
    : QObject(parent)
    , _holder(parent)
{
    setObjectName(guid);
}

Component::~Component()
{
    if (Components *sets = qobject_cast<Components *>(_holder)) {
        sets->forget(this);
    }
}

void Component::childEvent(QChildEvent *event)
{
    if (!event->added()) {
        return;
    }
    if (Components *sets = qobject_cast<Components *>(_holder)) {
        sets->_holdsStrangers = true;
    } else if (BCF_2_0_Lib::Viewpoint *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(_holder)) {
        list->_holdsStrangers = true;
    }
}

QString Component::guid() const
{
    return objectName();
}

void Component::setGuid(const QString &guid)
{
    setObjectName(guid);
}

QString Component::originatingSystem() const
{
    return _originatingSystem;
}

void Component::setOriginatingSystem(const QString &originatingSystem)
{
    _originatingSystem = originatingSystem;
}

QString Component::authoringToolId() const
{
    return _authoringToolId;
}

void Component::setAuthoringToolId(const QString &authoringToolId)
{
    _authoringToolId = authoringToolId;
}

QString Component::ifcProjectId() const
{
    return _ifcProjectId;
}

void Component::setIfcProjectId(const QString &ifcProjectId)
{
    _ifcProjectId = ifcProjectId;
}

void Component::read(const QDomElement &element)
{
    if (element.hasAttribute(QStringLiteral("IfcProjectGuid"))) {
        _ifcProjectId = Xml::attribute(element, QStringLiteral("IfcProjectGuid"));
    }
    Xml::readLeadingText(element, QStringLiteral("OriginatingSystem"), &_originatingSystem);
    Xml::readLeadingText(element, QStringLiteral("AuthoringToolId"), &_authoringToolId);
}

void Component::write(QDomDocument &document, QDomElement &parent) const
{
    QDomElement element = Xml::appendElement(document, parent, QStringLiteral("Component"));
    Xml::setAttribute(element, QStringLiteral("IfcGuid"), guid());
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("OriginatingSystem"), _originatingSystem);
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("AuthoringToolId"), _authoringToolId);
    Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProjectGuid"), _ifcProjectId);
}

QVariant Component::toQVariant() const
{
    QVariantMap map;
    Variants::insertIfNotEmpty(map, QStringLiteral("ifc_guid"), guid());
    Variants::insertIfNotEmpty(map, QStringLiteral("ifc_project"), _ifcProjectId);
    Variants::insertIfNotEmpty(map, QStringLiteral("originating_system"), _originatingSystem);
    Variants::insertIfNotEmpty(map, QStringLiteral("authoring_tool_id"), _authoringToolId);
    return map;
}

void Component::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    if (map.contains(QStringLiteral("ifc_guid"))) {
        setGuid(map.value(QStringLiteral("ifc_guid")).toString());
    }
    if (map.contains(QStringLiteral("ifc_project"))) {
        _ifcProjectId = map.value(QStringLiteral("ifc_project")).toString();
    }
    _originatingSystem = map.value(QStringLiteral("originating_system")).toString();
    _authoringToolId = map.value(QStringLiteral("authoring_tool_id")).toString();
}

} // namespace BCFLib
