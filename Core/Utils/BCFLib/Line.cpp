#include "Line.h"

#include "Tree/Owners.h"

namespace BCFLib {

Line::Line(QObject *parent)
    : QObject(parent)
{
}

void Line::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

} // namespace BCFLib
