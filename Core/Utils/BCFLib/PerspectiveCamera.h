#pragma once

#include "BCFLibExport.h"

#include <QVariant>
#include <osg/Vec3d>

namespace BCFLib {

/// A camera with perspective. A plain value of zeros at first; a viewpoint holds one.
///
/// Points are in metres in the coordinate system of the building model. Nothing checks that the
/// directions have a length or stand at a right angle.
struct BCFLIB_EXPORT PerspectiveCamera
{
    /// A map with the keys "camera_view_point", "camera_direction", "camera_up_vector" and
    /// "field_of_view".
    QVariant toQVariant() const;
    /// Overwrites all four fields; a missing key gives zero.
    void fromQVariant(const QVariant &variant);

    /// Position of the camera.
    osg::Vec3d cameraViewPoint;
    /// Direction of view.
    osg::Vec3d cameraDirection;
    /// Direction that is up in the picture.
    osg::Vec3d cameraUpVector;
    /// Vertical opening of the view, the whole angle, in degrees. BCF-XML 2.1 allows 45 to 60; nothing
    /// here checks that.
    double fieldOfView = 0.0;
};

} // namespace BCFLib
