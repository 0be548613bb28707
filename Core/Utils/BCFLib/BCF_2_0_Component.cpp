#include "BCF_2_0_Component.h"

#include "BCF_2_0_Viewpoint.h"

namespace BCF_2_0_Lib {

Component::Component(const QString &guid, QObject *parent)
    : BCFLib::Component(guid, parent)
{
}

Component::~Component()
{
    if (_viewpoint != nullptr) {
        _viewpoint->forget(this);
    }
}

Tavrin::Boolean Component::visible() const
{
    return _visible;
}

void Component::setVisible(Tavrin::Boolean visible)
{
    _visible = visible;
}

Tavrin::Boolean Component::selected() const
{
    return _selected;
}

void Component::setSelected(Tavrin::Boolean selected)
{
    _selected = selected;
}

QString Component::color() const
{
    return _color;
}

void Component::setColor(const QString &color)
{
    _color = color;
}

} // namespace BCF_2_0_Lib
