#include "Search.h"

#include "BCF_2_0_Viewpoint.h"
#include "Components.h"

#include <QCoreApplication>

namespace BCFLib {

bool ObjectTree::holdsOnlyReferences(const QObject *object)
{
    // What a host hangs under a component shows by an event, and events need an application.
    if (QCoreApplication::instance() == nullptr) {
        return false;
    }
    if (const Components *sets = qobject_cast<const Components *>(object)) {
        return sets->holdsOnlyComponents();
    }
    if (const BCF_2_0_Lib::Viewpoint *list = qobject_cast<const BCF_2_0_Lib::Viewpoint *>(object)) {
        return list->holdsOnlyComponents();
    }
    return false;
}

} // namespace BCFLib
