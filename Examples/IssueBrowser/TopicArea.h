#pragma once

#include <QPointer>
#include <QWidget>

namespace BCFLib {
class Topic;
}

class QComboBox;
class QLabel;
class QLineEdit;
class QTableView;
class TopicFilterModel;
class TopicTableModel;

/// The topics of an archive in a table, and fields that say which of them to show.
///
/// One topic is picked as long as any is shown. It stays picked and in view when the table is sorted or
/// filtered; one that the filter leaves out is picked again when it comes back.
class TopicArea : public QWidget
{
    Q_OBJECT

public:
    explicit TopicArea(TopicTableModel *topics, QWidget *parent = nullptr);

    QTableView *table() const { return _table; }
    /// The picked topic, or null.
    BCFLib::Topic *topic() const;
    /// Picks a topic, and shows all if the filter leaves it out.
    void pick(const BCFLib::Topic *topic);
    /// Leaves a topic in the table that is edited, until the user asks for others.
    void keep(const BCFLib::Topic *topic);
    /// Brings the user to the search field.
    void find();

signals:
    /// Another topic is picked; null for none.
    void picked(BCFLib::Topic *topic);

private:
    void makeTable();
    void layOut();
    void showArchive();
    void fitColumns();
    void offerValues();
    void clearFilter();
    void applyFilter();
    void keepPicked();
    void followCurrent();
    void showCount();

    TopicTableModel *_topics;
    TopicFilterModel *_shown;
    QTableView *_table;
    QLineEdit *_search;
    QComboBox *_status;
    QComboBox *_assignee;
    QLabel *_count;
    QLabel *_nothing;
    /// What the user has picked; the filter may leave it out.
    QPointer<BCFLib::Topic> _wanted;
    QPointer<BCFLib::Topic> _announced;
    bool _isKeeping = false;
};
