#include "Bitmap.h"

#include "Tree/Owners.h"

namespace BCFLib {

Bitmap::Bitmap(QObject *parent)
    : QObject(parent)
{
}

void Bitmap::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
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
