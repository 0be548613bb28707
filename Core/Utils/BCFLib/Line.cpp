#include "Line.h"

#include "Tree/Owners.h"

namespace BCFLib {

Line::Line(QObject *parent)
    : QObject(parent)
{
}

Line::~Line() = default;

void Line::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

} // namespace BCFLib
