#include "ClippingPlane.h"

#include "Tree/Owners.h"

namespace BCFLib {

ClippingPlane::ClippingPlane(QObject *parent)
    : QObject(parent)
{
}

void ClippingPlane::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

} // namespace BCFLib
