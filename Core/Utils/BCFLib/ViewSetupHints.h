#pragma once

#include "BCFLibExport.h"

#include <Core/Utils/QtCoreTools/Boolean.h>
#include <QVariant>

namespace BCFLib {

/// Which kinds of elements, hidden by many tools by default, a viewpoint wants to be shown.
struct BCFLIB_EXPORT ViewSetupHints
{
    /// Whether nothing was said about any of the three.
    bool isEmpty() const;

    /// A map of what is set: "spaces_visible", "space_boundaries_visible", "openings_visible".
    QVariant toQVariant() const;
    /// Takes over what @p variant holds; a field whose key is missing stays.
    void fromQVariant(const QVariant &variant);

    /// Rooms and zones, IfcSpace.
    Tavrin::Boolean spacesVisible = Tavrin::BooleanUnset;
    /// Where rooms meet walls and slabs, IfcRelSpaceBoundary.
    Tavrin::Boolean spaceBoundariesVisible = Tavrin::BooleanUnset;
    /// Holes in walls and slabs, IfcOpeningElement.
    Tavrin::Boolean openingsVisible = Tavrin::BooleanUnset;
};

} // namespace BCFLib
