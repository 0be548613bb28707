#pragma once

#include "BCFLibExport.h"
#include "Vec3dMetaType.h"

#include <QObject>
#include <osg/Vec3d>

namespace BCFLib {

/// A plane that cuts the model open in a viewpoint.
///
/// Made by Viewpoint::addClippingPlane() and owned by that viewpoint; a host removes a plane by
/// deleting it. Coordinates are metres in the coordinate system of the building model. Nothing
/// checks that the direction has a length.
class BCFLIB_EXPORT ClippingPlane : public QObject
{
    Q_OBJECT
    Q_PROPERTY(osg::Vec3d _location READ location WRITE setLocation)
    Q_PROPERTY(osg::Vec3d _direction READ direction WRITE setDirection)

public:
    /// A point of the plane.
    osg::Vec3d location() const { return _location; }
    void setLocation(const osg::Vec3d &location) { _location = location; }

    /// Normal of the plane; it points to the side that is cut away.
    osg::Vec3d direction() const { return _direction; }
    void setDirection(const osg::Vec3d &direction) { _direction = direction; }

protected:
    /// For Viewpoint::addClippingPlane().
    explicit ClippingPlane(QObject *parent = nullptr);

private:
    friend class Viewpoint;

    void childEvent(QChildEvent *event) override;

    osg::Vec3d _location;
    osg::Vec3d _direction;
};

} // namespace BCFLib
