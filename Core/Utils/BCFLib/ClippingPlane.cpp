#include "ClippingPlane.h"

#include "Tree/Owners.h"

namespace BCFLib {

ClippingPlane::ClippingPlane(QObject *parent)
    : QObject(parent)
{
}

ClippingPlane::~ClippingPlane() = default;

void ClippingPlane::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

osg::Vec3d ClippingPlane::location() const
{
    return _location;
}

void ClippingPlane::setLocation(const osg::Vec3d &location)
{
    _location = location;
}

osg::Vec3d ClippingPlane::direction() const
{
    return _direction;
}

void ClippingPlane::setDirection(const osg::Vec3d &direction)
{
    _direction = direction;
}

} // namespace BCFLib
