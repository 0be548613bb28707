#include "BCF_2_0_Viewpoint.h"

#include <log4cplus/loggingmacros.h>

#include <memory>
#include <utility>

namespace BCF_2_0_Lib {

Viewpoint::Viewpoint(const QString &guid, BCFLib::Topic *topic)
    : BCFLib::Viewpoint(guid, topic)
{
}

Viewpoint::~Viewpoint()
{
    // A component that a host reparented outlives the list.
    for (Component *component : qAsConst(_components)) {
        component->_viewpoint = nullptr;
    }
}

Component *Viewpoint::addComponent(const QString &guid)
{
    if (guid.isEmpty()) {
        LOG4CPLUS_ERROR(_logger, LOG4CPLUS_TEXT("To add component with empty guid is not allowed"));
    }
    delete _components.value(guid);
    std::unique_ptr<Component> component(new Component(guid, this));
    component->_viewpoint = this;
    component->_key = guid;
    Component *&entry = _components[guid];
    // Slots and filters of the host may add one, too; the last one stays.
    Component *other = std::exchange(entry, component.release());
    delete other;
    Component *added = _components.value(guid);
    return added != nullptr ? added : addComponent(guid);
}

Component *Viewpoint::getComponent(const QString &guid) const
{
    return _components.value(guid);
}

QList<Component *> Viewpoint::components() const
{
    return _components.values();
}

/// A component that is destroyed leaves the list.
void Viewpoint::forget(const Component *component)
{
    const auto entry = _components.find(component->_key);
    if (entry != _components.end() && entry.value() == component) {
        _components.erase(entry);
    }
}

} // namespace BCF_2_0_Lib
