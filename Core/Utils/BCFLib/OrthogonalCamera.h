#pragma once

#include "BCFLibExport.h"

#include <QVariant>
#include <osg/Vec3d>

namespace BCFLib {

/// A camera without perspective. A plain value of zeros at first; a viewpoint holds one.
///
/// Points are in metres in the coordinate system of the building model. Nothing checks that the
/// directions have a length or stand at a right angle.
struct BCFLIB_EXPORT OrthogonalCamera
{
    /// A map with the keys "camera_view_point", "camera_direction", "camera_up_vector" and
    /// "view_to_world_scale".
    QVariant toQVariant() const;
    /// Overwrites all four fields; a missing key gives zero.
    void fromQVariant(const QVariant &variant);

    /// Position of the camera.
    osg::Vec3d cameraViewPoint;
    /// Direction of view.
    osg::Vec3d cameraDirection;
    /// Direction that is up in the picture.
    osg::Vec3d cameraUpVector;
    /// Height of the visible section of the model, in metres, as BCF-XML defines its vertical scaling;
    /// the width follows the window.
    ///
    /// A camera with a scale of 0 shows nothing and does not count as set.
    double viewToWorldScale = 0.0;
};

} // namespace BCFLib
