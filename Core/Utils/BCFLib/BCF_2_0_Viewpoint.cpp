#include "BCF_2_0_Viewpoint.h"

#include <log4cplus/loggingmacros.h>

#include <algorithm>

namespace BCF_2_0_Lib {

Viewpoint::Viewpoint(const QString &guid, BCFLib::Topic *topic)
    : BCFLib::Viewpoint(guid, topic)
{
}

Viewpoint::~Viewpoint() = default;

Component *Viewpoint::addComponent(const QString &guid)
{
    if (guid.isEmpty()) {
        LOG4CPLUS_ERROR(_logger, LOG4CPLUS_TEXT("To add component with empty guid is not allowed"));
    }
    delete _components.value(guid);
    Component *component = new Component(guid, this);
    _components.insert(guid, component);
    return component;
}

Component *Viewpoint::getComponent(const QString &guid) const
{
    return _components.value(guid);
}

QList<Component *> Viewpoint::components() const
{
    return _components.values();
}

void Viewpoint::forget(Component *component)
{
    // The key is the guid under which it was added, which need not be its guid any more.
    auto entry = _components.find(component->guid());
    if (entry == _components.end() || entry.value() != component) {
        entry = std::find(_components.begin(), _components.end(), component);
    }
    if (entry != _components.end()) {
        _components.erase(entry);
    }
}

} // namespace BCF_2_0_Lib
