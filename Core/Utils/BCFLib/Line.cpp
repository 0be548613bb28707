#include "Line.h"

#include "Tree/Owners.h"

namespace BCFLib {

Line::Line(QObject *parent)
    : QObject(parent)
{
}

Line::~Line() = default;

void Line::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

osg::Vec3d Line::startPoint() const
{
    return _startPoint;
}

void Line::setStartPoint(const osg::Vec3d &startPoint)
{
    _startPoint = startPoint;
}

osg::Vec3d Line::endPoint() const
{
    return _endPoint;
}

void Line::setEndPoint(const osg::Vec3d &endPoint)
{
    _endPoint = endPoint;
}

} // namespace BCFLib
