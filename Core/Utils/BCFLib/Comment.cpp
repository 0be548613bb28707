#include "Comment.h"

#include "Topic.h"
#include "Tree/Owners.h"
#include "Viewpoint.h"

namespace BCFLib {

Comment::Comment(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
    Owners::hasBeenMade(this);
}

Comment::~Comment()
{
    Owners::aboutToGo(this);
}

void Comment::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

void Comment::setGuid(const QString &guid)
{
    Owners::aboutToRename(this, guid);
    setObjectName(guid);
}

QDateTime Comment::date() const
{
    return _isDateOfFile ? _date.toLocalTime() : _date;
}

void Comment::setDate(const QDateTime &date)
{
    _date = date;
    _isDateOfFile = false;
}

Comment *Comment::replyToComment() const
{
    return _replyToComment;
}

void Comment::setReplyToComment(Comment *replyToComment)
{
    _replyToComment = replyToComment;
}

QDateTime Comment::modifiedDate() const
{
    return _isModifiedDateOfFile ? _modifiedDate.toLocalTime() : _modifiedDate;
}

void Comment::setModifiedDate(const QDateTime &modifiedDate)
{
    _modifiedDate = modifiedDate;
    _isModifiedDateOfFile = false;
}

Topic *Comment::topic() const
{
    return _topic;
}

void Comment::setTopic(Topic *topic)
{
    _topic = topic;
}

Viewpoint *Comment::viewpoint() const
{
    return _viewpoint;
}

void Comment::setViewpoint(Viewpoint *viewpoint)
{
    _viewpoint = viewpoint;
}

} // namespace BCFLib
