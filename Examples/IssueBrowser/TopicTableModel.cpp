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

QStringList TopicTableModel::statuses() const
{
    QStringList statuses = values(Status);
    statuses.removeAll(QString());
    return statuses;
}

void TopicTableModel::touch(const QModelIndex &index)
{
    Topic *const changed = topic(index);
    changed->setModifiedDate(QDateTime::currentDateTime());
    changed->setModifiedAuthor(_editor);
    emit dataChanged(index.siblingAtColumn(0), index.siblingAtColumn(columnCount() - 1));
    emit edited();
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
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    return tr(columns[section].header);
}

bool TopicTableModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    Topic *const edited = topic(index);
    const QString text = value.toString();
    if (edited == nullptr || role != Qt::EditRole || index.data(Qt::EditRole).toString() == text) {
        return false;
    }
    if (index.column() == Title && !text.trimmed().isEmpty()) {
        edited->setTitle(text);
    } else if (index.column() == Status) {
        edited->setTopicStatus(text);
    } else {
        return false;
    }
    touch(index);
    return true;
}
