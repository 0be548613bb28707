#include "TopicTableModel.h"

#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QLocale>
#include <QSet>

using BCFLib::Topic;

namespace {

struct ColumnRule
{
    const char *header;
    QVariant (*value)(const Topic &topic);
};

/// In the order of TopicTableModel::Column.
const ColumnRule columns[] = {
    {QT_TRANSLATE_NOOP("TopicTableModel", "No."),
     [](const Topic &topic) { return topic.index() < 0 ? QVariant() : QVariant(topic.index()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Title"),
     [](const Topic &topic) { return QVariant(topic.title()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Status"),
     [](const Topic &topic) { return QVariant(topic.topicStatus()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Type"),
     [](const Topic &topic) { return QVariant(topic.topicType()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Priority"),
     [](const Topic &topic) { return QVariant(topic.priority()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Assigned to"),
     [](const Topic &topic) { return QVariant(topic.assignedTo()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Created"),
     [](const Topic &topic) { return QVariant(topic.creationDate()); }},
    {QT_TRANSLATE_NOOP("TopicTableModel", "Comments"),
     [](const Topic &topic) { return QVariant(static_cast<int>(topic.comments().size())); }},
};

} // namespace

void TopicTableModel::setArchive(const QSharedPointer<BCFLib::BCFModel> &archive)
{
    beginResetModel();
    _topics = archive->topics().toVector();
    _archive = archive;
    endResetModel();
}

void TopicTableModel::setAway(bool isAway)
{
    const QVector<Topic *> topics = isAway ? QVector<Topic *>() : _archive->topics().toVector();
    if (isAway && !_topics.isEmpty()) {
        beginRemoveRows(QModelIndex(), 0, rowCount() - 1);
        _topics.clear();
        endRemoveRows();
    } else if (!topics.isEmpty()) {
        beginInsertRows(QModelIndex(), 0, static_cast<int>(topics.size()) - 1);
        _topics = topics;
        endInsertRows();
    }
}

Topic *TopicTableModel::topic(const QModelIndex &index) const
{
    return index.isValid() ? _topics.at(index.row()) : nullptr;
}

QModelIndex TopicTableModel::indexOf(const Topic *topic) const
{
    return index(_topics.indexOf(const_cast<Topic *>(topic)), Title);
}

QStringList TopicTableModel::values(Column column) const
{
    QSet<QString> found;
    for (const Topic *topic : _topics) {
        found.insert(columns[column].value(*topic).toString());
    }
    QStringList sorted = found.values();
    sorted.sort(Qt::CaseInsensitive);
    return sorted;
}

void TopicTableModel::update(Topic *topic)
{
    const int row = _topics.indexOf(topic);
    const bool isThere = topic->parent() == _archive.data();
    if (row >= 0 && isThere) {
        emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    } else if (row >= 0) {
        beginRemoveRows(QModelIndex(), row, row);
        _topics.remove(row);
        endRemoveRows();
    } else if (isThere) {
        const int place = _archive->topics().indexOf(topic);
        beginInsertRows(QModelIndex(), place, place);
        _topics.insert(place, topic);
        endInsertRows();
    }
}

int TopicTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _topics.size();
}

int TopicTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(std::size(columns));
}

QVariant TopicTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    QVariant value = columns[index.column()].value(*topic(index));
    const bool isNumber = value.userType() == QMetaType::Int;
    switch (role) {
    case Qt::DisplayRole:
        if (isNumber) {
            return QLocale().toString(value.toInt());
        }
        return index.column() == Created ? DisplayText::date(value.toDateTime())
                                         : DisplayText::oneLine(value.toString());
    case Qt::TextAlignmentRole:
        return QVariant(isNumber ? Qt::AlignRight | Qt::AlignVCenter : Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::EditRole:
    case SortRole:
        return value;
    default:
        return {};
    }
}

QVariant TopicTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        return tr(columns[section].header);
    }
    if (role == Qt::TextAlignmentRole && (section == Index || section == Comments)) {
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    }
    return {};
}
