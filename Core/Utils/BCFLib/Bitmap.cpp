#include "Bitmap.h"

#include "Tree/Owners.h"

namespace BCFLib {

Bitmap::Bitmap(QObject *parent)
    : QObject(parent)
{
}

Bitmap::~Bitmap() = default;

void Bitmap::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

BitmapFormat Bitmap::bitmapFormat() const
{
    return _bitmapFormat;
}

void Bitmap::setBitmapFormat(BitmapFormat bitmapFormat)
{
    _bitmapFormat = bitmapFormat;
}

QString Bitmap::reference() const
{
    return _reference;
}

void Bitmap::setReference(const QString &reference)
{
    _reference = reference;
}

osg::Vec3d Bitmap::location() const
{
    return _location;
}

void Bitmap::setLocation(const osg::Vec3d &location)
{
    _location = location;
}

osg::Vec3d Bitmap::normal() const
{
    return _normal;
}

void Bitmap::setNormal(const osg::Vec3d &normal)
{
    _normal = normal;
}

osg::Vec3d Bitmap::up() const
{
    return _up;
}

void Bitmap::setUp(const osg::Vec3d &up)
{
    _up = up;
}

double Bitmap::height() const
{
    return _height;
}

void Bitmap::setHeight(double height)
{
    _height = height;
}

QString Bitmap::bitmapFormatAsString() const
{
    switch (_bitmapFormat) {
    case PNG:
        return QStringLiteral("PNG");
    case JPG:
        return QStringLiteral("JPG");
    default:
        return QStringLiteral("BMP");
    }
}

} // namespace BCFLib
