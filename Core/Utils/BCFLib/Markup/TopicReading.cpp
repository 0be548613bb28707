#include "Topic.h"

#include "BCFModel.h"
#include "BCF_2_0_Comment.h"
#include "BCF_2_0_Viewpoint.h"
#include "BimSnippet.h"
#include "Comment.h"
#include "DocumentReference.h"
#include "File.h"
#include "Io/CacheFolder.h"
#include "RelatedTopic.h"
#include "Viewpoint.h"
#include "Xml/Elements.h"
#include "Xml/Reader.h"

#include <QDomDocument>
#include <memory>

namespace BCFLib {

namespace {

/// Whether an archive of that version is held in the classes of versions 2.0 and 1.0.
bool usesListForm(const QString &version)
{
    return BCFModel::isBCF_2_0(version) || BCFModel::isBCF_1_0(version);
}

/// The objects by guid; of several with one guid the first.
template<class T>
QMap<QString, T *> firstByGuid(const QList<T *> &objects)
{
    // No hash: guids can be chosen such that all hash alike.
    QMap<QString, T *> result;
    for (T *object : objects) {
        if (!result.contains(object->guid())) {
            result.insert(object->guid(), object);
        }
    }
    return result;
}

} // namespace

Topic *Topic::Deserialize(QIODevice *device, QStringList &files, const QString &version)
{
    QDomDocument doc(QStringLiteral("markup.xml"));
    if (device == nullptr || !Xml::readDocument(device, &doc, Xml::NodeCount::Runs::OfNumerousElements)) {
        return nullptr;
    }
    std::unique_ptr<Topic> topic(new Topic(QString(), QString(), QDateTime(), QString(), nullptr));
    if (doc.documentElement().firstChildElement(QStringLiteral("Topic")).isNull()) {
        // Of what a topic begins with, only a file without a topic keeps the time of the load.
        topic->setCreationDate(QDateTime::currentDateTime().toLocalTime());
    }
    files.append(topic->readHeader(doc));
    topic->readTopic(doc, version);
    topic->readViewpoints(doc, version);
    // Last, since comments need the topic's final guid and its viewpoints.
    topic->readComments(doc, version);
    return topic.release();
}

QStringList Topic::readHeader(QDomDocument &doc)
{
    QStringList memberNames;
    const QDomElement header = doc.documentElement().firstChildElement(QStringLiteral("Header"));
    Xml::takeChildren(header, QStringLiteral("File"), [&](const QDomElement &element) {
        File *file = addFile();
        file->setIfcProject(Xml::attribute(element, QStringLiteral("IfcProject")));
        file->setIfcSpatialStructureElement(
            Xml::attribute(element, QStringLiteral("IfcSpatialStructureElement")));
        file->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) != QLatin1String("false"));
        file->setFilename(Xml::childText(element, QStringLiteral("Filename")));
        file->setDate(Xml::childDate(element, QStringLiteral("Date")));
        file->setReference(Xml::childText(element, QStringLiteral("Reference")));
        if (!file->isExternal() && !file->filename().isEmpty()) {
            const QString memberName = file->filename().remove(QStringLiteral("../"));
            memberNames.append(memberName);
            file->setFilename(CacheFolder().pathOf(memberName));
        }
    });
    return memberNames;
}

void Topic::readTopic(QDomDocument &doc, const QString &version)
{
    const QDomElement topic = doc.documentElement().firstChildElement(QStringLiteral("Topic"));
    if (topic.isNull()) {
        return;
    }
    setGuid(Xml::attribute(topic, QStringLiteral("Guid")));
    _topicType = Xml::attribute(topic, QStringLiteral("TopicType"));
    _topicStatus = Xml::attribute(topic, QStringLiteral("TopicStatus"));
    _title = Xml::childText(topic, QStringLiteral("Title"));
    _referenceLink = Xml::childText(topic, QStringLiteral("ReferenceLink"));
    _description = Xml::childText(topic, QStringLiteral("Description"));
    _priority = Xml::childText(topic, QStringLiteral("Priority"));
    const QDomElement index = topic.firstChildElement(QStringLiteral("Index"));
    _index = index.isNull() ? -1 : index.text().toInt();
    _creationAuthor = Xml::childText(topic, QStringLiteral("CreationAuthor"));
    _creationDate = Xml::childDate(topic, QStringLiteral("CreationDate"));
    _isCreationDateOfFile = true;
    _modifiedAuthor = Xml::childText(topic, QStringLiteral("ModifiedAuthor"));
    _modifiedDate = Xml::childDate(topic, QStringLiteral("ModifiedDate"));
    _isModifiedDateOfFile = true;
    Xml::takeChildren(topic, QStringLiteral("Labels"),
                      [&](const QDomElement &label) { _labels.append(label.text()); });
    _assignedTo = Xml::childText(topic, QStringLiteral("AssignedTo"));
    readAttachments(topic);
    if (BCFModel::isBCF_1_0(version)) {
        fillMissingFields();
    }
}

void Topic::readAttachments(const QDomElement &topic)
{
    const QString isTrue = QStringLiteral("true");
    Xml::takeChildren(topic, QStringLiteral("DocumentReference"), [&](const QDomElement &element) {
        DocumentReference *reference = addDocumentReference(Xml::attribute(element, QStringLiteral("Guid")));
        reference->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) == isTrue);
        reference->setReferencedDocument(Xml::childText(element, QStringLiteral("ReferencedDocument")));
        reference->setDescription(Xml::childText(element, QStringLiteral("Description")));
    });
    const QDomElement element = topic.firstChildElement(QStringLiteral("BimSnippet"));
    if (!element.isNull()) {
        BimSnippet *snippet = addBimSnippet();
        snippet->setSnippetType(Xml::attribute(element, QStringLiteral("SnippetType")));
        snippet->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) == isTrue);
        snippet->setReference(Xml::childText(element, QStringLiteral("Reference")));
        snippet->setReferenceSchema(Xml::childText(element, QStringLiteral("ReferenceSchema")));
    }
    Xml::takeChildren(topic, QStringLiteral("RelatedTopics"), [&](const QDomElement &link) {
        const QString guid = Xml::attribute(link, QStringLiteral("Guid"));
        if (!guid.isEmpty()) {
            addRelatedTopic(guid);
        }
    });
}

void Topic::fillMissingFields()
{
    const QString unknown = QStringLiteral("Unknown");
    setGuid(guidOrNew(guid()));
    if (_title.isEmpty()) {
        _title = unknown;
    }
    if (_creationAuthor.isEmpty()) {
        _creationAuthor = unknown;
    }
    if (!_creationDate.isValid()) {
        setCreationDate(QDateTime::currentDateTime());
    }
}

void Topic::readViewpoints(QDomDocument &doc, const QString &version)
{
    Xml::takeChildren(doc.documentElement(), QStringLiteral("Viewpoints"), [&](const QDomElement &element) {
        // An empty guid identifies no more than a missing one.
        const QString guid = Xml::attribute(element, QStringLiteral("Guid"));
        if (guid.isEmpty()) {
            return;
        }
        Viewpoint *viewpoint =
            usesListForm(version) ? new BCF_2_0_Lib::Viewpoint(guid, this) : new Viewpoint(guid, this);
        viewpoint->setViewpointFilename(Xml::childText(element, QStringLiteral("Viewpoint")));
        viewpoint->setSnapshotFilename(Xml::childText(element, QStringLiteral("Snapshot")));
    });
}

void Topic::readComments(QDomDocument &doc, const QString &version)
{
    const QMap<QString, Viewpoint *> viewpointByGuid = firstByGuid(viewpoints());
    QHash<Comment *, QString> replies;
    bool mayDescribeTopic = BCFModel::isBCF_1_0(version);
    Xml::takeChildren(doc.documentElement(), QStringLiteral("Comment"), [&](const QDomElement &element) {
        const QString topicGuid = Xml::childGuid(element, QStringLiteral("Topic"));
        if (!topicGuid.isEmpty() && topicGuid != guid()) {
            return;
        }
        if (mayDescribeTopic && takeAsDescription(Xml::childText(element, QStringLiteral("Comment")))) {
            mayDescribeTopic = false;
            return;
        }
        const QString commentGuid = guidOrNew(Xml::attribute(element, QStringLiteral("Guid")));
        Comment *comment = usesListForm(version) ? new BCF_2_0_Lib::Comment(commentGuid, this)
                                                 : new Comment(commentGuid, this);
        const QString viewpointGuid = Xml::childGuid(element, QStringLiteral("Viewpoint"));
        comment->setViewpoint(viewpointByGuid.value(viewpointGuid));
        comment->read(element, replies);
        comment->setTopic(this);
    });
    // A second pass, as a comment may answer one that stands later in the file.
    const QMap<QString, Comment *> commentByGuid =
        replies.isEmpty() ? QMap<QString, Comment *>() : firstByGuid(comments());
    for (auto reply = replies.constBegin(); reply != replies.constEnd(); ++reply) {
        reply.key()->setReplyToComment(commentByGuid.value(reply.value()));
    }
}

bool Topic::takeAsDescription(const QString &text)
{
    const QString mark = QStringLiteral("Description : ");
    if (!text.startsWith(mark)) {
        return false;
    }
    _description = QString(text).remove(mark);
    return true;
}

} // namespace BCFLib
