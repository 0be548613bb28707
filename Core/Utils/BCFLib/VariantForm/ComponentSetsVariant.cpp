#include "Component.h"
#include "Components.h"
#include "Variant/Maps.h"

namespace BCFLib {

QVariant Components::toQVariant() const
{
    QVariantMap map;
    if (!_viewSetupHints.isEmpty()) {
        map.insert(QStringLiteral("view_setup_hints"), _viewSetupHints.toQVariant());
    }
    if (!_visibilityExceptionComponents.isEmpty()) {
        map.insert(QStringLiteral("visibility"),
                   QVariantMap{{QStringLiteral("default_visibility"), _defaultVisibility},
                               {QStringLiteral("exceptions"),
                                componentListToVariant(_visibilityExceptionComponents)}});
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("selection"),
                               componentListToVariant(_selectionComponents));
    QVariantList coloring;
    for (auto group = _coloringComponents.constBegin(); group != _coloringComponents.constEnd(); ++group) {
        coloring.append(QVariantMap{{QStringLiteral("color"), group.key()},
                                    {QStringLiteral("components"), componentListToVariant(group.value())}});
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("coloring"), coloring);
    return map;
}

void Components::fromQVariant(const QVariant &variant)
{
    clear();
    const QVariantMap map = variant.toMap();
    const QVariantMap visibility = map.value(QStringLiteral("visibility")).toMap();
    if (visibility.contains(QStringLiteral("view_setup_hints"))) {
        _viewSetupHints.fromQVariant(visibility.value(QStringLiteral("view_setup_hints")));
    }
    _defaultVisibility = visibility.value(QStringLiteral("default_visibility"), true).toBool();
    replace(_visibilityExceptionComponents, mentionsOf(visibility.value(QStringLiteral("exceptions"))));
    replace(_selectionComponents, mentionsOf(map.value(QStringLiteral("selection"))));
    // A map from colour to components, not the list of groups that toQVariant() gives.
    const QVariantMap coloring = map.value(QStringLiteral("coloring")).toMap();
    for (auto group = coloring.constBegin(); group != coloring.constEnd(); ++group) {
        const QVector<Mention> mentions = mentionsOf(group.value());
        if (!mentions.isEmpty()) {
            replaceColor(group.key(), mentions);
        }
    }
}

QList<QVariant> Components::componentListToVariant(const QList<Component *> &list) const
{
    return Variants::formsOf(list, &Component::toQVariant);
}

QVector<Components::Mention> Components::mentionsOf(const QVariant &list)
{
    QVector<Mention> mentions;
    for (const QVariant &form : Variants::toList(list)) {
        const QVariantMap map = form.toMap();
        if (map.contains(QStringLiteral("ifc_guid"))) {
            mentions.append({map.value(QStringLiteral("ifc_guid")).toString(),
                             map.value(QStringLiteral("ifc_project")).toString(),
                             map.value(QStringLiteral("originating_system")).toString(),
                             map.value(QStringLiteral("authoring_tool_id")).toString()});
        }
    }
    return mentions;
}

} // namespace BCFLib
