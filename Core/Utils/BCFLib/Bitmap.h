#pragma once

#include "BCFLibExport.h"
#include "Vec3dMetaType.h"

#include <QObject>
#include <QString>
#include <osg/Vec3d>

namespace BCFLib {

/// Format of the image that a bitmap refers to; any other number counts as BMP.
enum BitmapFormat : int { PNG = 0, JPG = 1, BMP = 2 };

/// An image that stands in the model space of a viewpoint.
///
/// Made by Viewpoint::addBitmap() and owned by that viewpoint; a host removes a bitmap by deleting
/// it. Coordinates are metres in the coordinate system of the building model. The image itself is
/// only referred to, never read or written.
class BCFLIB_EXPORT Bitmap : public QObject
{
    Q_OBJECT
    Q_PROPERTY(BCFLib::BitmapFormat _bitmapFormat READ bitmapFormat WRITE setBitmapFormat)
    Q_PROPERTY(QString _reference READ reference WRITE setReference)
    Q_PROPERTY(osg::Vec3d _location READ location WRITE setLocation)
    Q_PROPERTY(osg::Vec3d _normal READ normal WRITE setNormal)
    Q_PROPERTY(osg::Vec3d _up READ up WRITE setUp)
    Q_PROPERTY(double _height READ height WRITE setHeight)

public:
    /// Format of the image; a host sets it.
    BitmapFormat bitmapFormat() const { return _bitmapFormat; }
    void setBitmapFormat(BitmapFormat bitmapFormat) { _bitmapFormat = bitmapFormat; }

    /// Name of the image file. A bitmap without one is lost when its viewpoint is read again.
    QString reference() const { return _reference; }
    void setReference(const QString &reference) { _reference = reference; }

    /// Centre of the bitmap.
    osg::Vec3d location() const { return _location; }
    void setLocation(const osg::Vec3d &location) { _location = location; }

    /// Normal of the bitmap's plane.
    osg::Vec3d normal() const { return _normal; }
    void setNormal(const osg::Vec3d &normal) { _normal = normal; }

    /// Direction that is up in the bitmap.
    osg::Vec3d up() const { return _up; }
    void setUp(const osg::Vec3d &up) { _up = up; }

    /// Height of the bitmap in metres; a host sets it.
    double height() const { return _height; }
    void setHeight(double height) { _height = height; }

    /// The text that a viewpoint file carries: "PNG", "JPG", or "BMP" for every other value.
    QString bitmapFormatAsString() const;

protected:
    /// For Viewpoint::addBitmap().
    explicit Bitmap(QObject *parent = nullptr);

private:
    friend class Viewpoint;

    void childEvent(QChildEvent *event) override;

    BitmapFormat _bitmapFormat = PNG;
    QString _reference;
    osg::Vec3d _location;
    osg::Vec3d _normal;
    osg::Vec3d _up;
    double _height = 0.0;
};

} // namespace BCFLib

Q_DECLARE_METATYPE(BCFLib::BitmapFormat)
