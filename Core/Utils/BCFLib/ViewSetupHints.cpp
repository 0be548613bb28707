#include "ViewSetupHints.h"

#include <QVariantMap>

namespace BCFLib {

namespace {

void insertIfSet(QVariantMap &map, const QString &key, Tavrin::Boolean hint)
{
    if (hint != Tavrin::BooleanUnset) {
        map.insert(key, Tavrin::toBool(hint));
    }
}

void takeIfPresent(const QVariantMap &map, const QString &key, Tavrin::Boolean *hint)
{
    if (map.contains(key)) {
        *hint = Tavrin::fromVariant(map.value(key));
    }
}

} // namespace

bool ViewSetupHints::isEmpty() const
{
    return spacesVisible == Tavrin::BooleanUnset && spaceBoundariesVisible == Tavrin::BooleanUnset
        && openingsVisible == Tavrin::BooleanUnset;
}

QVariant ViewSetupHints::toQVariant() const
{
    QVariantMap map;
    insertIfSet(map, QStringLiteral("spaces_visible"), spacesVisible);
    insertIfSet(map, QStringLiteral("space_boundaries_visible"), spaceBoundariesVisible);
    insertIfSet(map, QStringLiteral("openings_visible"), openingsVisible);
    return map;
}

void ViewSetupHints::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    takeIfPresent(map, QStringLiteral("spaces_visible"), &spacesVisible);
    takeIfPresent(map, QStringLiteral("space_boundaries_visible"), &spaceBoundariesVisible);
    takeIfPresent(map, QStringLiteral("openings_visible"), &openingsVisible);
}

} // namespace BCFLib
