#include "TopicFilterModel.h"

#include "PriorityRank.h"
#include "TopicTableModel.h"

#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <algorithm>

using BCFLib::Comment;
using BCFLib::Topic;

namespace {

/// The rules of the session's language; those of English where it has none, which compares bytes.
QLocale orderingLocale()
{
    const QLocale session = QCollator().locale();
    return session.language() == QLocale::C ? QLocale(QLocale::English) : session;
}

bool holds(const QString &text, const QString &word)
{
    return text.contains(word, Qt::CaseInsensitive);
}

/// Whether each of the words stands in one of the topic's texts.
bool mentionsAll(const Topic &topic, QStringList words)
{
    const auto lookIn = [&words](const QString &text) {
        words.erase(std::remove_if(words.begin(), words.end(),
                                   [&text](const QString &word) { return holds(text, word); }),
                    words.end());
    };
    // Parts of these two would be found by chance.
    words.removeAll(QString::number(topic.index()));
    words.removeAll(topic.guid());
    const QStringList fields{topic.title(),       topic.topicType(),    topic.topicStatus(),
                             topic.priority(),    topic.assignedTo(),   topic.creationAuthor(),
                             topic.description(), topic.referenceLink()};
    std::for_each(fields.begin(), fields.end(), lookIn);
    const QStringList labels = topic.labels();
    std::for_each(labels.begin(), labels.end(), lookIn);
    if (words.isEmpty()) {
        return true;
    }
    for (const Comment *comment : topic.comments()) {
        lookIn(comment->comment());
        lookIn(comment->author());
    }
    return words.isEmpty();
}

} // namespace

TopicFilterModel::TopicFilterModel(TopicTableModel *topics, QObject *parent)
    : QSortFilterProxyModel(parent)
    , _topics(topics)
    , _collator(orderingLocale())
{
    _collator.setCaseSensitivity(Qt::CaseInsensitive);
    _collator.setNumericMode(true);
    setSortRole(TopicTableModel::SortRole);
    setSourceModel(topics);
}

void TopicFilterModel::setFilter(const TopicFilter &filter)
{
    _filter = filter;
    _kept.clear();
    _words = filter.text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    // All at once: a signal for each run of rows that go or come would keep views of thousands busy.
    invalidate();
}

void TopicFilterModel::keep(const Topic *topic)
{
    _kept.insert(topic);
}

bool TopicFilterModel::filterAcceptsRow(int row, const QModelIndex &) const
{
    const Topic &topic = *_topics->topic(_topics->index(row, 0));
    if (_kept.contains(&topic)) {
        return true;
    }
    return (!_filter.status || topic.topicStatus() == *_filter.status)
        && (!_filter.assignee || topic.assignedTo() == *_filter.assignee)
        && (_words.isEmpty() || mentionsAll(topic, _words));
}

bool TopicFilterModel::lessThan(const QModelIndex &left, const QModelIndex &right) const
{
    const QVariant first = left.data(sortRole());
    const QVariant second = right.data(sortRole());
    if (first.userType() != QMetaType::QString || second.userType() != QMetaType::QString) {
        return QSortFilterProxyModel::lessThan(left, right);
    }
    if (left.column() == TopicTableModel::Priority) {
        const double firstRank = priorityRank(first.toString());
        const double secondRank = priorityRank(second.toString());
        if (firstRank != secondRank) {
            return firstRank < secondRank;
        }
    }
    return _collator.compare(first.toString(), second.toString()) < 0;
}
