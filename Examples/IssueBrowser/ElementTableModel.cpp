#include "ElementTableModel.h"

#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCF_2_0_Viewpoint.h>
#include <Core/Utils/BCFLib/Components.h>

#include <algorithm>

namespace {

using ComponentList = QList<BCFLib::Component *>;

QColor colorOf(QString text)
{
    QColor color;
    if (!text.isEmpty()) {
        color.setNamedColor(text.startsWith(QLatin1Char('#')) ? text : QLatin1Char('#') + text);
    }
    return color;
}

} // namespace

void ElementTableModel::setViewpoint(const BCFLib::Viewpoint *viewpoint)
{
    beginResetModel();
    _groups.clear();
    _size = 0;
    if (const auto *const listForm = qobject_cast<const BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        appendList(*listForm);
    } else if (viewpoint) {
        appendSets(*viewpoint);
    }
    endResetModel();
}

void ElementTableModel::append(int size, const std::function<Element(int)> &element)
{
    if (size > 0) {
        _groups.append({_size, element});
        _size += size;
    }
}

void ElementTableModel::appendSets(const BCFLib::Viewpoint &viewpoint)
{
    BCFLib::Components &components = *viewpoint.components();
    const auto appendSet = [this](const ComponentList &set, const QString &use) {
        append(set.size(), [set, use](int row) { return Element{set.at(row)->guid(), use}; });
    };
    const ComponentList selection = components.getSelectionComponents();
    const ComponentList exceptions = components.getVisibilityExceptionComponents();
    appendSet(selection, tr("selected"));
    appendSet(exceptions, components.getDefaultVisibility() ? tr("hidden") : tr("shown"));
    // Only the variant form tells the colour groups. Making it takes a while, so not where there are none.
    if (components.children().size() == selection.size() + exceptions.size()) {
        return;
    }
    const QVariantList groups = viewpoint.componentsToQVariant().value(QStringLiteral("coloring")).toList();
    for (const QVariant &entry : groups) {
        const QVariantMap group = entry.toMap();
        const QColor color = colorOf(group.value(QStringLiteral("color")).toString());
        const QVariantList members = group.value(QStringLiteral("components")).toList();
        append(members.size(), [members, color](int row) {
            return Element{members.at(row).toMap().value(QStringLiteral("ifc_guid")).toString(),
                           tr("coloured"), color};
        });
    }
}

void ElementTableModel::appendList(const BCF_2_0_Lib::Viewpoint &viewpoint)
{
    const QList<BCF_2_0_Lib::Component *> list = viewpoint.components();
    append(list.size(), [list](int row) {
        const BCF_2_0_Lib::Component &component = *list.at(row);
        QStringList uses;
        if (component.selected() == Tavrin::BooleanTrue) {
            uses << tr("selected");
        }
        if (component.visible() != Tavrin::BooleanUnset) {
            uses << (component.visible() == Tavrin::BooleanTrue ? tr("shown") : tr("hidden"));
        }
        if (!component.color().isEmpty()) {
            uses << tr("coloured");
        }
        return Element{component.guid(), uses.join(QStringLiteral(", ")), colorOf(component.color())};
    });
}

ElementTableModel::Element ElementTableModel::element(int row) const
{
    const auto behind = std::upper_bound(_groups.begin(), _groups.end(), row,
                                         [](int row, const Group &group) { return row < group.first; });
    const Group &group = *std::prev(behind);
    return group.element(row - group.first);
}

int ElementTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _size;
}

int ElementTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant ElementTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const Element shown = element(index.row());
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        const QString text = index.column() == Guid ? shown.guid : shown.use;
        return role == Qt::EditRole ? text : DisplayText::oneLine(text);
    }
    if (role == Qt::DecorationRole && index.column() == Use && shown.color.isValid()) {
        return shown.color;
    }
    return {};
}

QVariant ElementTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return section == Guid ? tr("GUID") : tr("Use");
}
