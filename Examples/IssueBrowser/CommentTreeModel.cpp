#include "CommentTreeModel.h"

#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCF_2_0_Comment.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QSet>

#include <algorithm>

using BCFLib::Comment;

namespace {

constexpr int deepest = 6;

QString heading(const Comment &comment)
{
    QStringList parts{comment.author(), DisplayText::date(comment.date())};
    if (const auto *const older = qobject_cast<const BCF_2_0_Lib::Comment *>(&comment)) {
        parts << older->status() << older->verbalStatus();
    }
    // The library lets a comment speak of any viewpoint, also of one that is not the topic's.
    const int place = comment.viewpoint() ? comment.topic()->viewpoints().indexOf(comment.viewpoint()) : -1;
    if (place >= 0) {
        parts << DisplayText::viewName(place + 1);
    }
    parts.removeAll(QString());
    return DisplayText::oneLine(parts.join(QStringLiteral(" · ")));
}

int nodeOf(const QModelIndex &index)
{
    return static_cast<int>(index.internalId());
}

} // namespace

CommentTreeModel::CommentTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
    , _nodes(1)
{
}

void CommentTreeModel::setTopic(BCFLib::Topic *topic)
{
    beginResetModel();
    _topic = topic;
    _nodes = QVector<Node>(1);
    if (topic) {
        arrange();
    }
    endResetModel();
}

void CommentTreeModel::arrange()
{
    const QList<Comment *> comments = _topic->comments();
    const QSet<const Comment *> own(comments.begin(), comments.end());
    QHash<const Comment *, QVector<Comment *>> answers;
    for (Comment *comment : comments) {
        const Comment *const answered = comment->replyToComment();
        answers[own.contains(answered) ? answered : nullptr].append(comment);
    }

    QSet<const Comment *> placed;
    const auto appendThread = [&](Comment *first) {
        QVector<QPair<Comment *, int>> waiting{{first, 0}};
        while (!waiting.isEmpty()) {
            const auto [comment, parent] = waiting.takeLast();
            if (placed.contains(comment)) {
                continue;
            }
            placed.insert(comment);
            const int node = append(comment, parent);
            const QVector<Comment *> below = answers.value(comment);
            std::for_each(below.rbegin(), below.rend(), [&](Comment *answer) {
                waiting.append({answer, node});
            });
        }
    };
    for (Comment *comment : answers.value(nullptr)) {
        appendThread(comment);
    }
    // Whatever no thread has reached hangs on a circle of answers.
    for (Comment *comment : comments) {
        appendThread(comment);
    }
}

int CommentTreeModel::append(Comment *comment, int parent)
{
    const int node = _nodes.size();
    const int place = placeBelow(parent);
    _nodes.append({comment, place, _nodes.at(place).children.size(), _nodes.at(place).depth + 1});
    _nodes[place].children.append(node);
    return node;
}

int CommentTreeModel::placeBelow(int parent) const
{
    return _nodes.at(parent).depth < deepest ? parent : _nodes.at(parent).parent;
}

QModelIndex CommentTreeModel::indexOf(int node) const
{
    return node == 0 ? QModelIndex() : createIndex(_nodes.at(node).row, 0, static_cast<quintptr>(node));
}

Comment *CommentTreeModel::comment(const QModelIndex &index) const
{
    return index.isValid() ? _nodes.at(nodeOf(index)).comment : nullptr;
}

QModelIndex CommentTreeModel::addComment(const QString &text, const QString &author,
                                         const QModelIndex &answered)
{
    Comment *const added = _topic->addComment(QString());
    added->setComment(text);
    added->setAuthor(author);
    added->setDate(QDateTime::currentDateTime());
    added->setReplyToComment(comment(answered));

    const int place = placeBelow(answered.isValid() ? nodeOf(answered) : 0);
    const int row = _nodes.at(place).children.size();
    beginInsertRows(indexOf(place), row, row);
    const int node = append(added, place);
    endInsertRows();
    return indexOf(node);
}

QModelIndex CommentTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent)
        ? indexOf(_nodes.at(parent.isValid() ? nodeOf(parent) : 0).children.at(row))
        : QModelIndex();
}

QModelIndex CommentTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(_nodes.at(nodeOf(index)).parent) : QModelIndex();
}

int CommentTreeModel::rowCount(const QModelIndex &parent) const
{
    return _nodes.at(parent.isValid() ? nodeOf(parent) : 0).children.size();
}

int CommentTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant CommentTreeModel::data(const QModelIndex &index, int role) const
{
    const Comment *const shown = comment(index);
    if (!shown) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return DisplayText::paragraph(shown->comment());
    case HeadingRole:
        return heading(*shown);
    default:
        return {};
    }
}
