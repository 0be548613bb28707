#include "Component.h"

#include "Tree/Owners.h"
#include "Variant/Maps.h"

namespace BCFLib {

Component::Component(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
}

Component::~Component()
{
    if (_set != nullptr) {
        _set->removeOne(this);
    }
}

void Component::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
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
