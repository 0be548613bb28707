#pragma once

#include <QAbstractItemModel>
#include <QList>
#include <QVector>

namespace BCFLib {
class Comment;
class Topic;
}

class ArchiveEditor;

/// The comments of a topic as threads: an answer stands below what it answers.
///
/// The links between comments come from strangers. Where comments answer each other in a circle, the
/// first of them begins the thread; answers below a certain depth stand beside each other.
class CommentTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// Who wrote a comment; and when, in older archives with what status, and of which view it speaks.
    enum Role { AuthorRole = Qt::UserRole, StampRole };

    explicit CommentTreeModel(ArchiveEditor *editor, QObject *parent = nullptr);

    /// Shows another topic, which has to outlive its being shown; null for none.
    void setTopic(BCFLib::Topic *topic);
    BCFLib::Topic *topic() const { return _topic; }
    /// The comment at @p index; null for an invalid one.
    BCFLib::Comment *comment(const QModelIndex &index) const;
    /// Where a comment stands; invalid if it is none of the topic's.
    QModelIndex indexOf(const BCFLib::Comment *comment) const;
    /// Follows an edit of a comment; one that came or went means a reset.
    void update(const BCFLib::Comment *comment);

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Only own comments can be edited.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

private:
    /// One comment in its place. Nodes are named by their position in _nodes; the first is the root,
    /// which is not shown.
    struct Node
    {
        BCFLib::Comment *comment = nullptr;
        int parent = 0;
        int row = 0;
        int depth = 0;
        QVector<int> children = {};
    };

    void arrange();
    int append(BCFLib::Comment *comment, int parent);
    QModelIndex indexOfNode(int node) const;

    ArchiveEditor *_editor;
    BCFLib::Topic *_topic = nullptr;
    /// As the topic had them when they were arranged.
    QList<BCFLib::Comment *> _comments;
    QVector<Node> _nodes;
};
