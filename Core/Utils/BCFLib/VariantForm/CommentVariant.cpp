#include "BCF_2_0_Comment.h"
#include "Comment.h"
#include "Variant/Maps.h"

namespace BCFLib {

QVariant Comment::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("guid"), guid());
    map.insert(QStringLiteral("date"), Variants::fromDate(date()));
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
        map.insert(QStringLiteral("modified_date"), Variants::fromDate(modifiedDate()));
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("modified_author"), _modifiedAuthor);
    return map;
}

void Comment::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    setGuid(map.value(QStringLiteral("guid")).toString());
    setDate(Variants::toDate(map.value(QStringLiteral("date"))));
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
    setModifiedDate(Variants::toDate(map.value(QStringLiteral("modified_date"))));
    _modifiedAuthor = map.value(QStringLiteral("modified_author")).toString();
}

} // namespace BCFLib

namespace BCF_2_0_Lib {

QVariant Comment::toQVariant() const
{
    QVariantMap map = BCFLib::Comment::toQVariant().toMap();
    BCFLib::Variants::insertIfNotEmpty(map, QStringLiteral("verbal_status"), _verbalStatus);
    map.insert(QStringLiteral("status"), _status);
    return map;
}

void Comment::fromQVariant(const QVariant &variant)
{
    BCFLib::Comment::fromQVariant(variant);
    const QVariantMap map = variant.toMap();
    _verbalStatus = map.value(QStringLiteral("verbal_status")).toString();
    _status = map.value(QStringLiteral("status")).toString();
}

} // namespace BCF_2_0_Lib
