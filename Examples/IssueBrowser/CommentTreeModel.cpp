#include "CommentTreeModel.h"

#include "ArchiveEditor.h"
#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCF_2_0_Comment.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QSet>

#include <algorithm>

using BCFLib::Comment;

namespace {

constexpr int deepest = 6;

/// When it was written, in older archives with what status, and of which view it speaks.
QString stamp(const Comment &comment)
{
    QStringList parts{DisplayText::date(comment.date())};
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

CommentTreeModel::CommentTreeModel(ArchiveEditor *editor, QObject *parent)
    : QAbstractItemModel(parent)
    , _editor(editor)
    , _nodes(1)
{
}

void CommentTreeModel::setTopic(BCFLib::Topic *topic)
{
    beginResetModel();
    _topic = topic;
    _nodes = QVector<Node>(1);
    _comments.clear();
    if (topic) {
        arrange();
    }
    endResetModel();
}

void CommentTreeModel::update(const Comment *comment)
{
    if (_topic->comments() != _comments) {
        setTopic(_topic);
    } else {
        emit dataChanged(indexOf(comment), indexOf(comment));
    }
}

void CommentTreeModel::arrange()
{
    _comments = _topic->comments();
    const QSet<const Comment *> own(_comments.cbegin(), _comments.cend());
    QHash<const Comment *, QVector<Comment *>> answers;
    for (Comment *comment : std::as_const(_comments)) {
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
    for (Comment *comment : std::as_const(_comments)) {
        appendThread(comment);
    }
}

int CommentTreeModel::append(Comment *comment, int parent)
{
    const int node = _nodes.size();
    const int place = _nodes.at(parent).depth < deepest ? parent : _nodes.at(parent).parent;
    const Node &above = _nodes.at(place);
    _nodes.append({comment, place, static_cast<int>(above.children.size()), above.depth + 1});
    _nodes[place].children.append(node);
    return node;
}

QModelIndex CommentTreeModel::indexOfNode(int node) const
{
    return node == 0 ? QModelIndex() : createIndex(_nodes.at(node).row, 0, static_cast<quintptr>(node));
}

Comment *CommentTreeModel::comment(const QModelIndex &index) const
{
    return index.isValid() ? _nodes.at(nodeOf(index)).comment : nullptr;
}

QModelIndex CommentTreeModel::indexOf(const Comment *comment) const
{
    for (int node = 1; node < _nodes.size(); ++node) {
        if (_nodes.at(node).comment == comment) {
            return indexOfNode(node);
        }
    }
    return {};
}

QModelIndex CommentTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent)
        ? indexOfNode(_nodes.at(parent.isValid() ? nodeOf(parent) : 0).children.at(row))
        : QModelIndex();
}

QModelIndex CommentTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOfNode(_nodes.at(nodeOf(index)).parent) : QModelIndex();
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
    case Qt::EditRole:
        return shown->comment();
    case AuthorRole:
        return DisplayText::oneLine(shown->author());
    case StampRole:
        return stamp(*shown);
    default:
        return {};
    }
}

Qt::ItemFlags CommentTreeModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    return _editor->isOwn(comment(index)) ? flags | Qt::ItemIsEditable : flags;
}

bool CommentTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    return role == Qt::EditRole && _editor->changeText(comment(index), value.toString());
}
