#include "Topic.h"

#include "BimSnippet.h"
#include "Comment.h"
#include "DocumentReference.h"
#include "File.h"
#include "RelatedTopic.h"
#include "Variant/Maps.h"
#include "Viewpoint.h"

namespace BCFLib {

QVariant Topic::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("guid"), guid());
    Variants::insertIfNotEmpty(map, QStringLiteral("topic_type"), _topicType);
    Variants::insertIfNotEmpty(map, QStringLiteral("topic_status"), _topicStatus);
    Variants::insertIfNotEmpty(map, QStringLiteral("reference_link"), _referenceLink);
    map.insert(QStringLiteral("title"), _title);
    Variants::insertIfNotEmpty(map, QStringLiteral("priority"), _priority);
    if (_index >= 0) {
        map.insert(QStringLiteral("index"), _index);
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("labels"), _labels);
    map.insert(QStringLiteral("creation_date"), Variants::fromDate(creationDate()));
    map.insert(QStringLiteral("creation_author"), _creationAuthor);
    if (!_modifiedDate.isNull()) {
        map.insert(QStringLiteral("modified_date"), Variants::fromDate(modifiedDate()));
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("modified_author"), _modifiedAuthor);
    Variants::insertIfNotEmpty(map, QStringLiteral("assigned_to"), _assignedTo);
    Variants::insertIfNotEmpty(map, QStringLiteral("description"), _description);
    if (const BimSnippet *snippet = bimSnippet()) {
        map.insert(QStringLiteral("bim_snippet"), snippet->toQVariant());
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("files"), Variants::formsOf(files(), &File::toQVariant));
    Variants::insertIfNotEmpty(map, QStringLiteral("document_references"),
                               Variants::formsOf(documentReferences(), &DocumentReference::toQVariant));
    Variants::insertIfNotEmpty(map, QStringLiteral("related_topics"),
                               Variants::formsOf(relatedTopics(), &RelatedTopic::toQVariant));
    Variants::insertIfNotEmpty(map, QStringLiteral("comments"),
                               Variants::formsOf(comments(), &Comment::toQVariant));
    Variants::insertIfNotEmpty(map, QStringLiteral("viewpoints"),
                               Variants::formsOf(viewpoints(), &Viewpoint::toQVariant));
    return map;
}

void Topic::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    setGuid(guidOrNew(map.value(QStringLiteral("guid")).toString()));
    _title = map.value(QStringLiteral("title")).toString();
    setCreationDate(Variants::toDate(map.value(QStringLiteral("creation_date"))));
    _creationAuthor = map.value(QStringLiteral("creation_author")).toString();
    _topicType = map.value(QStringLiteral("topic_type")).toString();
    _topicStatus = map.value(QStringLiteral("topic_status")).toString();
    _referenceLink = map.value(QStringLiteral("reference_link")).toString();
    _priority = map.value(QStringLiteral("priority")).toString();
    _index = map.value(QStringLiteral("index"), -1).toInt();
    _labels = map.value(QStringLiteral("labels")).toStringList();
    setModifiedDate(Variants::toDate(map.value(QStringLiteral("modified_date"))));
    _modifiedAuthor = map.value(QStringLiteral("modified_author")).toString();
    _assignedTo = map.value(QStringLiteral("assigned_to")).toString();
    _description = map.value(QStringLiteral("description")).toString();
    attachmentsFromQVariant(map);
    removeComments();
    removeViewpoints();
    // Viewpoints before comments, which look up the viewpoint that they speak of.
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("viewpoints")))) {
        addViewpoint(QString())->fromQVariant(form);
    }
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("comments")))) {
        addComment(QString())->fromQVariant(form);
    }
}

void Topic::attachmentsFromQVariant(const QVariantMap &map)
{
    removeBimSnippet();
    if (map.contains(QStringLiteral("bim_snippet"))) {
        addBimSnippet()->fromQVariant(map.value(QStringLiteral("bim_snippet")));
    }
    removeFiles();
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("files")))) {
        addFile()->fromQVariant(form);
    }
    removeDocumentReferences();
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("document_references")))) {
        addDocumentReference(QString())->fromQVariant(form);
    }
    removeRelatedTopics();
    for (const QVariant &form : Variants::toList(map.value(QStringLiteral("related_topics")))) {
        addRelatedTopic(form.toString());
    }
}

} // namespace BCFLib
