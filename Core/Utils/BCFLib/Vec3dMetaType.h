#pragma once

#include <QMetaType>
#include <osg/Vec3d>

// Without this the properties that hold a vector could not be read through the meta-object.
Q_DECLARE_METATYPE(osg::Vec3d)
