#pragma once

#include <QAbstractTableModel>
#include <QSharedPointer>
#include <QVector>

namespace BCFLib {
class BCFModel;
class Topic;
}

/// The topics of an archive, one in a row, in the archive's order.
///
/// It shows the library's objects as they stand and keeps nothing of their state. The objects tell
/// no one when they change, so every edit is announced by update().
class TopicTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { Index, Title, Status, Type, Priority, AssignedTo, Created, Comments };
    /// Numbers, dates and whole texts to sort by.
    enum Role { SortRole = Qt::UserRole };

    using QAbstractTableModel::QAbstractTableModel;

    /// Shows another archive and keeps a share of it.
    void setArchive(const QSharedPointer<BCFLib::BCFModel> &archive);
    /// Shows no topics for as long as the archive is in another thread.
    void setAway(bool isAway);
    /// The topic of a row; null for an invalid index.
    BCFLib::Topic *topic(const QModelIndex &index) const;
    /// Where a topic stands; invalid if it is none of the archive's.
    QModelIndex indexOf(const BCFLib::Topic *topic) const;
    /// Every text of a column without repetition, sorted; the empty one too if a topic has none.
    QStringList values(Column column) const;
    /// Follows an edit of a topic, which may have come or gone.
    void update(BCFLib::Topic *topic);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QSharedPointer<BCFLib::BCFModel> _archive;
    QVector<BCFLib::Topic *> _topics;
};
