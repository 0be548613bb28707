#pragma once

#include "BCFLibExport.h"
#include "Vec3dMetaType.h"

#include <QObject>
#include <osg/Vec3d>

namespace BCFLib {

/// A line drawn into a viewpoint as an annotation.
///
/// Made by Viewpoint::addLine() and owned by that viewpoint; a host removes a line by deleting it.
/// Coordinates are metres in the coordinate system of the building model. Nothing checks that the
/// two points differ.
class BCFLIB_EXPORT Line : public QObject
{
    Q_OBJECT
    Q_PROPERTY(osg::Vec3d _startPoint READ startPoint WRITE setStartPoint)
    Q_PROPERTY(osg::Vec3d _endPoint READ endPoint WRITE setEndPoint)

public:
    /// One end of the line.
    osg::Vec3d startPoint() const { return _startPoint; }
    void setStartPoint(const osg::Vec3d &startPoint) { _startPoint = startPoint; }

    /// The other end.
    osg::Vec3d endPoint() const { return _endPoint; }
    void setEndPoint(const osg::Vec3d &endPoint) { _endPoint = endPoint; }

protected:
    /// For Viewpoint::addLine().
    explicit Line(QObject *parent = nullptr);

private:
    friend class Viewpoint;

    void childEvent(QChildEvent *event) override;

    osg::Vec3d _startPoint;
    osg::Vec3d _endPoint;
};

} // namespace BCFLib
