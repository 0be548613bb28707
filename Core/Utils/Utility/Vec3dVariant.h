#pragma once

#include "UtilityExport.h"

#include <QMap>
#include <QString>
#include <QVariant>
#include <osg/Vec3d>

namespace Tavrin {

/// The three coordinates as numbers under the keys "x", "y" and "z".
UTILITY_EXPORT QMap<QString, QVariant> Vec3dToQVariant(const osg::Vec3d &vector);

/// The vector that Vec3dToQVariant() wrote. A coordinate that is missing or no number is 0.
UTILITY_EXPORT osg::Vec3d Vec3dFromQVariant(const QMap<QString, QVariant> &map);

}
