#include "Comment.h"

#include "DOMXml.h"
#include "GuidHints.h"
#include "Topic.h"
#include "VariantMap.h"
#include "Viewpoint.h"
#include "XmlElements.h"

#include <QDomDocument>

namespace BCFLib {

Comment::Comment(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
}

Comment::~Comment() = default;

QVariant Comment::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("guid"), guid());
    map.insert(QStringLiteral("date"), Variants::fromDate(_date.value()));
    map.insert(QStringLiteral("author"), _author);
    map.insert(QStringLiteral("comment"), _comment);
    map.insert(QStringLiteral("topic_guid"), _topic ? _topic->guid() : QString());
    if (_viewpoint) {
        map.insert(QStringLiteral("viewpoint_guid"), _viewpoint->guid());
    }
    if (_replyToComment) {
        map.insert(QStringLiteral("reply_to_comment_guid"), _replyToComment->guid());
    }
    if (_modifiedDate.isValid()) {
        map.insert(QStringLiteral("modified_date"), Variants::fromDate(_modifiedDate.value()));
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("modified_author"), _modifiedAuthor);
    return map;
}

void Comment::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    setGuid(map.value(QStringLiteral("guid")).toString());
    _date = Variants::toDate(map.value(QStringLiteral("date")));
    _author = map.value(QStringLiteral("author")).toString();
    _comment = map.value(QStringLiteral("comment")).toString();
    if (map.contains(QStringLiteral("viewpoint_guid"))) {
        const QString viewpointGuid = map.value(QStringLiteral("viewpoint_guid")).toString();
        _viewpoint = _topic ? _topic->viewpoint(viewpointGuid) : nullptr;
    }
    if (map.contains(QStringLiteral("reply_to_comment_guid"))) {
        const QString answeredGuid = map.value(QStringLiteral("reply_to_comment_guid")).toString();
        _replyToComment = _topic ? _topic->comment(answeredGuid) : nullptr;
    }
    _modifiedDate = Variants::toDate(map.value(QStringLiteral("modified_date")));
    _modifiedAuthor = map.value(QStringLiteral("modified_author")).toString();
}

QString Comment::guid() const
{
    return objectName();
}

void Comment::setGuid(const QString &guid)
{
    setObjectName(guid);
    GuidHints::renamed(this);
}

QDateTime Comment::date() const
{
    return _date.value();
}

void Comment::setDate(const QDateTime &date)
{
    _date = date;
}

QString Comment::author() const
{
    return _author;
}

void Comment::setAuthor(const QString &author)
{
    _author = author;
}

QString Comment::comment() const
{
    return _comment;
}

void Comment::setComment(const QString &comment)
{
    _comment = comment;
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
    return _modifiedDate.value();
}

void Comment::setModifiedDate(const QDateTime &modifiedDate)
{
    _modifiedDate = modifiedDate;
}

QString Comment::modifiedAuthor() const
{
    return _modifiedAuthor;
}

void Comment::setModifiedAuthor(const QString &modifiedAuthor)
{
    _modifiedAuthor = modifiedAuthor;
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

void Comment::read(const QDomElement &element, QHash<Comment *, QString> &replies)
{
    _date = Xml::childDate(element, QStringLiteral("Date"));
    _author = Xml::childText(element, QStringLiteral("Author"));
    _comment = Xml::childText(element, QStringLiteral("Comment"));
    const QString answeredGuid = Xml::childGuid(element, QStringLiteral("ReplyToComment"));
    if (!answeredGuid.isEmpty()) {
        replies.insert(this, answeredGuid);
    }
    _modifiedDate = Xml::childDate(element, QStringLiteral("ModifiedDate"));
    _modifiedAuthor = Xml::childText(element, QStringLiteral("ModifiedAuthor"));
}

void Comment::write(QDomDocument &doc, QDomElement &parent) const
{
    const auto appendLink = [&doc](QDomElement &element, const QString &name, const QString &guid) {
        element.appendChild(Tavrin::DOMXml::createAttributeElement(doc, name, QStringLiteral("Guid"), guid));
    };
    QDomElement element = Xml::appendElement(doc, parent, QStringLiteral("Comment"));
    Xml::setAttribute(element, QStringLiteral("Guid"), guid());
    Xml::appendText(doc, element, QStringLiteral("Date"), Xml::dateText(_date));
    Xml::appendText(doc, element, QStringLiteral("Author"), _author);
    Xml::appendText(doc, element, QStringLiteral("Comment"), _comment);
    // An empty topic guid is taken by every topic, so a comment without a topic can be read again.
    appendLink(element, QStringLiteral("Topic"), _topic ? _topic->guid() : QString());
    if (_viewpoint) {
        appendLink(element, QStringLiteral("Viewpoint"), _viewpoint->guid());
    }
    if (_replyToComment) {
        appendLink(element, QStringLiteral("ReplyToComment"), _replyToComment->guid());
    }
    if (_modifiedDate.isValid()) {
        Xml::appendText(doc, element, QStringLiteral("ModifiedDate"), Xml::dateText(_modifiedDate));
    }
    Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("ModifiedAuthor"), _modifiedAuthor);
}

} // namespace BCFLib
