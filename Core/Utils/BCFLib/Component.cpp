#include "Component.h"

#include "Tree/Owners.h"

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

} // namespace BCFLib
