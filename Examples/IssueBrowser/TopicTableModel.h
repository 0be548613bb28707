#ifndef ISSUEBROWSER_TOPICTABLEMODEL_H
#define ISSUEBROWSER_TOPICTABLEMODEL_H

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
/// no one when they change, so every edit goes through setData() or is announced by touch().
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
    /// The topic of a row; null for an invalid index.
    BCFLib::Topic *topic(const QModelIndex &index) const;
    /// Where a topic stands; invalid if it is none of the archive's.
    QModelIndex indexOf(const BCFLib::Topic *topic) const;
    /// Every text of a column without repetition, sorted; the empty one too if a topic has none.
    QStringList values(Column column) const;
    /// Every status that some topic has, sorted.
    QStringList statuses() const;

    /// Who makes the edits from now on.
    void setEditor(const QString &editor) { _editor = editor; }
    /// Notes date and editor of a change to the topic.
    void touch(const QModelIndex &index);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Edits title or status. An empty title is refused: it would make the archive unusable.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

signals:
    void edited();

private:
    QSharedPointer<BCFLib::BCFModel> _archive;
    QVector<BCFLib::Topic *> _topics;
    QString _editor;
};

#endif
