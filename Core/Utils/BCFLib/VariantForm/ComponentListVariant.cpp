#include "BCF_2_0_Viewpoint.h"
#include "Variant/Maps.h"

namespace BCF_2_0_Lib {

namespace {

QString guidOf(const QVariantMap &form)
{
    return form.value(QStringLiteral("ifc_guid")).toString();
}

/// The forms of a list that name a component.
QList<QVariantMap> namedForms(const QVariant &list)
{
    QList<QVariantMap> forms;
    for (const QVariant &value : BCFLib::Variants::toList(list)) {
        const QVariantMap form = value.toMap();
        if (!guidOf(form).isEmpty()) {
            forms.append(form);
        }
    }
    return forms;
}

} // namespace

QMap<QString, QVariant> Viewpoint::componentsToQVariant() const
{
    QVariantList shown;
    QVariantList hidden;
    QVariantList selected;
    QMap<QString, QVariantList> groups;
    for (const Component *component : qAsConst(_components)) {
        const QVariant form = component->toQVariant();
        if (component->selected() == Tavrin::BooleanTrue) {
            selected.append(form);
        }
        (component->visible() == Tavrin::BooleanTrue ? shown : hidden).append(form);
        if (!component->color().isEmpty()) {
            groups[component->color()].append(form);
        }
    }
    // The longer list is the one that is written, on a tie the hidden one. What stands in the other is
    // in the form only as far as it is selected or coloured.
    const bool defaultVisibility = shown.size() <= hidden.size();
    QVariantMap map;
    map.insert(QStringLiteral("visibility"),
               QVariantMap{{QStringLiteral("default_visibility"), defaultVisibility},
                           {QStringLiteral("exceptions"), defaultVisibility ? hidden : shown}});
    BCFLib::Variants::insertIfNotEmpty(map, QStringLiteral("selection"), selected);
    QVariantList coloring;
    for (auto group = groups.constBegin(); group != groups.constEnd(); ++group) {
        const bool hasMark = group.key().startsWith(QLatin1Char('#'));
        const QString color = hasMark ? group.key() : QLatin1Char('#') + group.key();
        coloring.append(
            QVariantMap{{QStringLiteral("color"), color}, {QStringLiteral("components"), group.value()}});
    }
    BCFLib::Variants::insertIfNotEmpty(map, QStringLiteral("coloring"), coloring);
    return map;
}

void Viewpoint::componentsFromQVariant(const QMap<QString, QVariant> &map)
{
    const QVariantMap visibility = map.value(QStringLiteral("visibility")).toMap();
    const bool defaultVisibility = visibility.value(QStringLiteral("default_visibility")).toBool();
    for (const QVariantMap &form : namedForms(visibility.value(QStringLiteral("exceptions")))) {
        getOrCreateComponent(form)->setVisible(Tavrin::toBoolean(!defaultVisibility));
    }
    for (const QVariantMap &form : namedForms(map.value(QStringLiteral("selection")))) {
        getOrCreateComponent(form)->setSelected(Tavrin::BooleanTrue);
    }
    for (const QVariant &value : BCFLib::Variants::toList(map.value(QStringLiteral("coloring")))) {
        const QVariantMap group = value.toMap();
        QString color = group.value(QStringLiteral("color")).toString();
        if (color.startsWith(QLatin1Char('#'))) {
            color.remove(0, 1);
        }
        for (const QVariantMap &form : namedForms(group.value(QStringLiteral("components")))) {
            getOrCreateComponent(form)->setColor(color);
        }
    }
}

Component *Viewpoint::getOrCreateComponent(const QMap<QString, QVariant> &map)
{
    Component *component = getComponent(guidOf(map));
    if (component == nullptr) {
        component = addComponent(guidOf(map));
        component->fromQVariant(map);
    }
    return component;
}

} // namespace BCF_2_0_Lib
