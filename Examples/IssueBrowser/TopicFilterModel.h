#pragma once

#include <QCollator>
#include <QSet>
#include <QSortFilterProxyModel>

#include <optional>

namespace BCFLib {
class Topic;
}

class TopicTableModel;

/// What the user looks for; a topic has to meet all of it.
struct TopicFilter
{
    /// Words that each have to stand somewhere in the topic or its comments.
    QString text = {};
    /// Whole texts of the two fields, also empty ones.
    std::optional<QString> status = {};
    std::optional<QString> assignee = {};
};

/// The topics that meet a filter, in the order of a column: numbers by value, priorities by urgency, texts
/// as the user's language orders them.
class TopicFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit TopicFilterModel(TopicTableModel *topics, QObject *parent = nullptr);

    TopicTableModel *topics() const { return _topics; }
    void setFilter(const TopicFilter &filter);
    /// Leaves a topic in, whatever becomes of it, until the filter is set again.
    void keep(const BCFLib::Topic *topic);

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

private:
    TopicTableModel *_topics;
    TopicFilter _filter;
    QStringList _words;
    QSet<const BCFLib::Topic *> _kept;
    QCollator _collator;
};
