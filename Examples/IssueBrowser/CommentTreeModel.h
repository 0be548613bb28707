#ifndef ISSUEBROWSER_COMMENTTREEMODEL_H
#define ISSUEBROWSER_COMMENTTREEMODEL_H

#include <QAbstractItemModel>
#include <QVector>

namespace BCFLib {
class Comment;
class Topic;
}

/// The comments of a topic as threads: an answer stands below what it answers.
///
/// The links between comments come from strangers. Where comments answer each other in a circle, the
/// first of them begins the thread; answers below a certain depth stand beside each other.
class CommentTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /// Who wrote a comment, when, and in older archives with what status.
    enum Role { HeadingRole = Qt::UserRole };

    explicit CommentTreeModel(QObject *parent = nullptr);

    /// Shows another topic, which has to outlive its being shown; null for none.
    void setTopic(BCFLib::Topic *topic);
    BCFLib::Topic *topic() const { return _topic; }
    /// The comment at @p index; null for an invalid one.
    BCFLib::Comment *comment(const QModelIndex &index) const;
    /// Adds a comment of this moment to the topic, as an answer if @p answered is valid.
    QModelIndex addComment(const QString &text, const QString &author,
                           const QModelIndex &answered = QModelIndex());

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

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
    int placeBelow(int parent) const;
    QModelIndex indexOf(int node) const;

    BCFLib::Topic *_topic = nullptr;
    QVector<Node> _nodes;
};

#endif
