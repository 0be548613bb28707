#include "Topic.h"

#include "BCFModel.h"
#include "BCF_2_0_Comment.h"
#include "BCF_2_0_Viewpoint.h"
#include "BimSnippet.h"
#include "BoundedReading.h"
#include "CacheFolder.h"
#include "Comment.h"
#include "DocumentReference.h"
#include "File.h"
#include "GuidHints.h"
#include "Limits.h"
#include "ObjectTree.h"
#include "RelatedTopic.h"
#include "VariantMap.h"
#include "Viewpoint.h"
#include "XmlElements.h"
#include "XmlFile.h"

#include <Core/Utils/Utility/NewId.h>
#include <QDomDocument>
#include <QFileInfo>
#include <QIODevice>
#include <memory>
#include <utility>

namespace BCFLib {

namespace {

/// The elements of a markup file of which there may be many.
QStringList numerousElements()
{
    return {QStringLiteral("Comment"),
            QStringLiteral("Header/File"),
            QStringLiteral("Topic/Labels"),
            QStringLiteral("Topic/DocumentReference"),
            QStringLiteral("Topic/RelatedTopics"),
            QStringLiteral("Viewpoints")};
}

QString guidOrNewId(const QString &guid)
{
    return guid.isEmpty() ? Tavrin::NewId() : guid;
}

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

bool hasFileName(const QString &path, const QString &name)
{
    return QFileInfo(path).fileName() == name;
}

} // namespace

Topic::Topic(QString title, QString creationAuthor, QDateTime creationDate, const QString &guid,
             QObject *parent)
    : QObject(parent)
    , _title(std::move(title))
    , _creationDate(std::move(creationDate))
    , _creationAuthor(std::move(creationAuthor))
    , _commentHints(std::make_unique<GuidHints>())
    , _viewpointHints(std::make_unique<GuidHints>())
{
    setObjectName(guidOrNewId(guid));
}

Topic::Topic(const QVariant &variant, QObject *parent)
    : Topic(QString(), QString(), QDateTime(), QString(), parent)
{
    fromQVariant(variant);
}

Topic::~Topic() = default;

void Topic::childEvent(QChildEvent *event)
{
    _commentHints->familyChanged(event);
    _viewpointHints->familyChanged(event);
}

QString Topic::guid() const
{
    return objectName();
}

void Topic::setGuid(const QString &guid)
{
    setObjectName(guid);
    GuidHints::renamed(this);
}

QString Topic::topicType() const
{
    return _topicType;
}

void Topic::setTopicType(const QString &topicType)
{
    _topicType = topicType;
}

QString Topic::topicStatus() const
{
    return _topicStatus;
}

void Topic::setTopicStatus(const QString &topicStatus)
{
    _topicStatus = topicStatus;
}

QString Topic::title() const
{
    return _title;
}

void Topic::setTitle(const QString &title)
{
    _title = title;
}

QString Topic::referenceLink() const
{
    return _referenceLink;
}

void Topic::setReferenceLink(const QString &referenceLink)
{
    _referenceLink = referenceLink;
}

QString Topic::description() const
{
    return _description;
}

void Topic::setDescription(const QString &description)
{
    _description = description;
}

QString Topic::priority() const
{
    return _priority;
}

void Topic::setPriority(const QString &priority)
{
    _priority = priority;
}

int Topic::index() const
{
    return _index;
}

void Topic::setIndex(int index)
{
    _index = index;
}

QStringList Topic::labels() const
{
    return _labels;
}

void Topic::setLabels(const QStringList &labels)
{
    _labels = labels;
}

QDateTime Topic::creationDate() const
{
    return _creationDate.value();
}

void Topic::setCreationDate(const QDateTime &creationDate)
{
    _creationDate = creationDate;
}

QString Topic::creationAuthor() const
{
    return _creationAuthor;
}

void Topic::setCreationAuthor(const QString &creationAuthor)
{
    _creationAuthor = creationAuthor;
}

QDateTime Topic::modifiedDate() const
{
    return _modifiedDate.value();
}

void Topic::setModifiedDate(const QDateTime &modifiedDate)
{
    _modifiedDate = modifiedDate;
}

QString Topic::modifiedAuthor() const
{
    return _modifiedAuthor;
}

void Topic::setModifiedAuthor(const QString &modifiedAuthor)
{
    _modifiedAuthor = modifiedAuthor;
}

QString Topic::assignedTo() const
{
    return _assignedTo;
}

void Topic::setAssignedTo(const QString &assignedTo)
{
    _assignedTo = assignedTo;
}

QList<Comment *> Topic::comments() const
{
    return ObjectTree::all<Comment>(this);
}

Comment *Topic::comment(const QString &guid) const
{
    return _commentHints->find<Comment>(this, guid);
}

Comment *Topic::addComment(const QString &guid)
{
    if (!guid.isEmpty()) {
        removeComment(guid);
    }
    Comment *comment = createComment(guidOrNewId(guid));
    comment->setTopic(this);
    return comment;
}

Comment *Topic::createComment(const QString &guid)
{
    if (BCFModel::isBCF_2_0(this)) {
        return new BCF_2_0_Lib::Comment(guid, this);
    }
    return new Comment(guid, this);
}

void Topic::removeComment(const QString &guid)
{
    delete comment(guid);
}

void Topic::removeComments()
{
    ObjectTree::deleteAll<Comment>(this);
}

QList<Viewpoint *> Topic::viewpoints() const
{
    return ObjectTree::all<Viewpoint>(this);
}

Viewpoint *Topic::viewpoint(const QString &guid) const
{
    return _viewpointHints->find<Viewpoint>(this, guid);
}

Viewpoint *Topic::addViewpoint(const QString &guid)
{
    if (!guid.isEmpty()) {
        removeViewpoint(guid);
    }
    Viewpoint *viewpoint = createViewpoint(guidOrNewId(guid));
    if (hasOneViewpoint()) {
        viewpoint->setViewpointFilename(QStringLiteral("viewpoint.bcfv"));
    }
    return viewpoint;
}

Viewpoint *Topic::createViewpoint(const QString &guid)
{
    if (BCFModel::isBCF_2_0(this)) {
        return new BCF_2_0_Lib::Viewpoint(guid, this);
    }
    return new Viewpoint(guid, this);
}

bool Topic::hasOneViewpoint() const
{
    int count = 0;
    ObjectTree::firstWhere<Viewpoint>(this, [&count](const Viewpoint *) { return ++count > 1; });
    return count == 1;
}

void Topic::removeViewpoint(const QString &guid)
{
    delete viewpoint(guid);
}

void Topic::removeViewpoints()
{
    ObjectTree::deleteAll<Viewpoint>(this);
}

bool Topic::addSnapshot(const QString &guid, QByteArray *data)
{
    Viewpoint *target = data != nullptr ? viewpoint(guid) : nullptr;
    return target != nullptr && storeSnapshot(target, *data);
}

bool Topic::addSnapshot(const QString &guid, QIODevice *device)
{
    Viewpoint *target = device != nullptr ? viewpoint(guid) : nullptr;
    if (target == nullptr || !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    QByteArray bytes;
    // Half an image is better than none: people still see what it is about.
    return readToEnd(device, Limits::snapshotBytes, &bytes) != ReadOutcome::TooLarge
        && storeSnapshot(target, bytes);
}

bool Topic::storeSnapshot(Viewpoint *viewpoint, const QByteArray &bytes)
{
    _snapshots.insert(viewpoint->guid(), QSharedPointer<QByteArray>::create(bytes));
    if (_snapshots.size() == 1) {
        viewpoint->setSnapshotFilename(QStringLiteral("snapshot.png"));
    }
    return true;
}

QByteArray *Topic::snapshot(const QString &guid) const
{
    return _snapshots.value(guid).data();
}

void Topic::removeSnapshot(const QString &guid)
{
    if (Viewpoint *target = viewpoint(guid)) {
        target->setSnapshotFilename(QString());
        _snapshots.remove(guid);
    }
}

QList<File *> Topic::files() const
{
    return ObjectTree::all<File>(this);
}

File *Topic::addFile()
{
    return new File(this);
}

void Topic::removeFiles()
{
    ObjectTree::deleteAll<File>(this);
}

QList<DocumentReference *> Topic::documentReferences() const
{
    return ObjectTree::all<DocumentReference>(this);
}

DocumentReference *Topic::addDocumentReference(const QString &guid)
{
    return new DocumentReference(guid, this);
}

void Topic::removeDocumentReferences()
{
    ObjectTree::deleteAll<DocumentReference>(this);
}

BimSnippet *Topic::bimSnippet() const
{
    return ObjectTree::first<BimSnippet>(this);
}

BimSnippet *Topic::addBimSnippet()
{
    return new BimSnippet(this);
}

void Topic::removeBimSnippet()
{
    delete bimSnippet();
}

QList<RelatedTopic *> Topic::relatedTopics() const
{
    return ObjectTree::all<RelatedTopic>(this);
}

RelatedTopic *Topic::addRelatedTopic(const QString &guid)
{
    return new RelatedTopic(guidOrNewId(guid), this);
}

void Topic::removeRelatedTopics()
{
    ObjectTree::deleteAll<RelatedTopic>(this);
}

bool Topic::isValid() const
{
    return !guid().isEmpty() && !_title.isEmpty() && !_creationAuthor.isEmpty() && _creationDate.isValid()
        && allViewpointValid();
}

bool Topic::allViewpointValid() const
{
    const QList<Viewpoint *> all = viewpoints();
    if (all.isEmpty()) {
        return true;
    }
    bool hasViewpointFile = false;
    bool hasSnapshotFile = false;
    bool needsSnapshotFile = !_snapshots.isEmpty();
    for (const Viewpoint *viewpoint : all) {
        if (!viewpoint->isValid()) {
            return false;
        }
        const QString snapshotFilename = viewpoint->snapshotFilename();
        hasViewpointFile |= hasFileName(viewpoint->viewpointFilename(), QStringLiteral("viewpoint.bcfv"));
        hasSnapshotFile |= hasFileName(snapshotFilename, QStringLiteral("snapshot.png"));
        needsSnapshotFile |= !snapshotFilename.isEmpty();
    }
    return hasViewpointFile && (hasSnapshotFile || !needsSnapshotFile);
}

void Topic::fillMissingFields()
{
    const QString unknown = QStringLiteral("Unknown");
    setGuid(guidOrNewId(guid()));
    if (_title.isEmpty()) {
        _title = unknown;
    }
    if (_creationAuthor.isEmpty()) {
        _creationAuthor = unknown;
    }
    if (!_creationDate.isValid()) {
        _creationDate = QDateTime::currentDateTime();
    }
}

Topic *Topic::Deserialize(QIODevice *device, QStringList &files, const QString &version)
{
    QDomDocument doc(QStringLiteral("markup.xml"));
    if (device == nullptr || !XmlFile::read(device, &doc, numerousElements())) {
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
    for (const QDomElement &element : Xml::childElements(header, QStringLiteral("File"))) {
        File *file = addFile();
        file->setIfcProject(Xml::attribute(element, QStringLiteral("IfcProject")));
        file->setIfcSpatialStructureElement(
            Xml::attribute(element, QStringLiteral("IfcSpatialStructureElement")));
        file->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) != QLatin1String("false"));
        file->setFilename(Xml::childText(element, QStringLiteral("Filename")));
        file->setDate(QDateTime::fromString(Xml::childText(element, QStringLiteral("Date")), Qt::ISODate));
        file->setReference(Xml::childText(element, QStringLiteral("Reference")));
        if (!file->isExternal() && !file->filename().isEmpty()) {
            const QString memberName = file->filename().remove(QStringLiteral("../"));
            memberNames.append(memberName);
            file->setFilename(CacheFolder().pathOf(memberName));
        }
    }
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
    _modifiedAuthor = Xml::childText(topic, QStringLiteral("ModifiedAuthor"));
    _modifiedDate = Xml::childDate(topic, QStringLiteral("ModifiedDate"));
    for (const QDomElement &label : Xml::childElements(topic, QStringLiteral("Labels"))) {
        _labels.append(label.text());
    }
    _assignedTo = Xml::childText(topic, QStringLiteral("AssignedTo"));
    readAttachments(topic);
    if (BCFModel::isBCF_1_0(version)) {
        fillMissingFields();
    }
}

void Topic::readAttachments(const QDomElement &topic)
{
    const QString isTrue = QStringLiteral("true");
    for (const QDomElement &element : Xml::childElements(topic, QStringLiteral("DocumentReference"))) {
        DocumentReference *reference = addDocumentReference(Xml::attribute(element, QStringLiteral("Guid")));
        reference->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) == isTrue);
        reference->setReferencedDocument(Xml::childText(element, QStringLiteral("ReferencedDocument")));
        reference->setDescription(Xml::childText(element, QStringLiteral("Description")));
    }
    const QDomElement element = topic.firstChildElement(QStringLiteral("BimSnippet"));
    if (!element.isNull()) {
        BimSnippet *snippet = addBimSnippet();
        snippet->setSnippetType(Xml::attribute(element, QStringLiteral("SnippetType")));
        snippet->setIsExternal(Xml::attribute(element, QStringLiteral("isExternal")) == isTrue);
        snippet->setReference(Xml::childText(element, QStringLiteral("Reference")));
        snippet->setReferenceSchema(Xml::childText(element, QStringLiteral("ReferenceSchema")));
    }
    for (const QDomElement &link : Xml::childElements(topic, QStringLiteral("RelatedTopics"))) {
        const QString guid = Xml::attribute(link, QStringLiteral("Guid"));
        if (!guid.isEmpty()) {
            addRelatedTopic(guid);
        }
    }
}

void Topic::readViewpoints(QDomDocument &doc, const QString &version)
{
    for (const QDomElement &element :
         Xml::childElements(doc.documentElement(), QStringLiteral("Viewpoints"))) {
        // An empty guid identifies no more than a missing one.
        const QString guid = Xml::attribute(element, QStringLiteral("Guid"));
        if (guid.isEmpty()) {
            continue;
        }
        Viewpoint *viewpoint =
            usesListForm(version) ? new BCF_2_0_Lib::Viewpoint(guid, this) : new Viewpoint(guid, this);
        viewpoint->setViewpointFilename(Xml::childText(element, QStringLiteral("Viewpoint")));
        viewpoint->setSnapshotFilename(Xml::childText(element, QStringLiteral("Snapshot")));
    }
}

void Topic::readComments(QDomDocument &doc, const QString &version)
{
    const QMap<QString, Viewpoint *> viewpointByGuid = firstByGuid(viewpoints());
    QHash<Comment *, QString> replies;
    bool mayDescribeTopic = BCFModel::isBCF_1_0(version);
    for (const QDomElement &element : Xml::childElements(doc.documentElement(), QStringLiteral("Comment"))) {
        const QString topicGuid = Xml::childGuid(element, QStringLiteral("Topic"));
        if (!topicGuid.isEmpty() && topicGuid != guid()) {
            continue;
        }
        if (mayDescribeTopic && takeAsDescription(Xml::childText(element, QStringLiteral("Comment")))) {
            mayDescribeTopic = false;
            continue;
        }
        const QString commentGuid = guidOrNewId(Xml::attribute(element, QStringLiteral("Guid")));
        Comment *comment = usesListForm(version) ? new BCF_2_0_Lib::Comment(commentGuid, this)
                                                 : new Comment(commentGuid, this);
        const QString viewpointGuid = Xml::childGuid(element, QStringLiteral("Viewpoint"));
        comment->setViewpoint(viewpointByGuid.value(viewpointGuid));
        comment->read(element, replies);
        comment->setTopic(this);
    }
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

bool Topic::serialize(QIODevice *device, QStringList &files)
{
    QDomDocument doc;
    QDomElement markup = Xml::appendElement(doc, doc, QStringLiteral("Markup"));
    files.append(writeHeader(doc, markup));
    writeTopic(doc, markup);
    writeComments(doc, markup);
    writeViewpoints(doc, markup);
    XmlFile::write(doc, device);
    return true;
}

QStringList Topic::writeHeader(QDomDocument &doc, QDomElement &parent)
{
    QStringList paths;
    const QList<File *> all = files();
    if (all.isEmpty()) {
        return paths;
    }
    QDomElement header = Xml::appendElement(doc, parent, QStringLiteral("Header"));
    for (const File *file : all) {
        QDomElement element = Xml::appendElement(doc, header, QStringLiteral("File"));
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProject"), file->ifcProject());
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcSpatialStructureElement"),
                                    file->ifcSpatialStructureElement());
        Xml::setAttribute(element, QStringLiteral("isExternal"), Xml::flagText(file->isExternal()));
        QString filename = file->filename();
        if (!file->isExternal() && !filename.isEmpty()) {
            const QFileInfo local(filename);
            // A path that leads astray is passed on as it is, for the save to see and not to follow it.
            paths.append(CacheFolder::leadsAstray(filename) ? filename : local.absoluteFilePath());
            filename = QStringLiteral("../") + local.fileName();
        }
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Filename"), filename);
        if (file->date().isValid()) {
            Xml::appendText(doc, element, QStringLiteral("Date"), Xml::dateText(file->date()));
        }
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Reference"), file->reference());
    }
    return paths;
}

void Topic::writeTopic(QDomDocument &doc, QDomElement &parent)
{
    QDomElement topic = Xml::appendElement(doc, parent, QStringLiteral("Topic"));
    Xml::setAttribute(topic, QStringLiteral("Guid"), guid());
    Xml::setAttributeIfNotEmpty(topic, QStringLiteral("TopicType"), _topicType);
    Xml::setAttributeIfNotEmpty(topic, QStringLiteral("TopicStatus"), _topicStatus);
    Xml::appendText(doc, topic, QStringLiteral("Title"), _title);
    Xml::appendTextIfNotEmpty(doc, topic, QStringLiteral("ReferenceLink"), _referenceLink);
    Xml::appendTextIfNotEmpty(doc, topic, QStringLiteral("Description"), _description);
    Xml::appendTextIfNotEmpty(doc, topic, QStringLiteral("Priority"), _priority);
    if (_index != -1) {
        Xml::appendText(doc, topic, QStringLiteral("Index"), QString::number(_index));
    }
    Xml::appendText(doc, topic, QStringLiteral("CreationAuthor"), _creationAuthor);
    Xml::appendText(doc, topic, QStringLiteral("CreationDate"), Xml::dateText(_creationDate));
    Xml::appendTextIfNotEmpty(doc, topic, QStringLiteral("ModifiedAuthor"), _modifiedAuthor);
    if (_modifiedDate.isValid()) {
        Xml::appendText(doc, topic, QStringLiteral("ModifiedDate"), Xml::dateText(_modifiedDate));
    }
    for (const QString &label : qAsConst(_labels)) {
        Xml::appendText(doc, topic, QStringLiteral("Labels"), label);
    }
    Xml::appendTextIfNotEmpty(doc, topic, QStringLiteral("AssignedTo"), _assignedTo);
    writeAttachments(doc, topic);
}

void Topic::writeAttachments(QDomDocument &doc, QDomElement &topic)
{
    if (const BimSnippet *snippet = bimSnippet()) {
        QDomElement element = Xml::appendElement(doc, topic, QStringLiteral("BimSnippet"));
        Xml::setAttribute(element, QStringLiteral("SnippetType"), snippet->snippetType());
        Xml::setAttribute(element, QStringLiteral("isExternal"), Xml::flagText(snippet->isExternal()));
        Xml::appendText(doc, element, QStringLiteral("Reference"), snippet->reference());
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("ReferenceSchema"),
                                  snippet->referenceSchema());
    }
    for (const DocumentReference *reference : documentReferences()) {
        QDomElement element = Xml::appendElement(doc, topic, QStringLiteral("DocumentReference"));
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("Guid"), reference->guid());
        Xml::setAttribute(element, QStringLiteral("isExternal"), Xml::flagText(reference->isExternal()));
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("ReferencedDocument"),
                                  reference->referencedDocument());
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Description"), reference->description());
    }
    for (const RelatedTopic *link : relatedTopics()) {
        QDomElement element = Xml::appendElement(doc, topic, QStringLiteral("RelatedTopics"));
        Xml::setAttribute(element, QStringLiteral("Guid"), link->guid());
    }
}

void Topic::writeComments(QDomDocument &doc, QDomElement &parent)
{
    for (const Comment *comment : comments()) {
        comment->write(doc, parent);
    }
}

void Topic::writeViewpoints(QDomDocument &doc, QDomElement &parent)
{
    for (const Viewpoint *viewpoint : viewpoints()) {
        QDomElement element = Xml::appendElement(doc, parent, QStringLiteral("Viewpoints"));
        Xml::setAttribute(element, QStringLiteral("Guid"), viewpoint->guid());
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Viewpoint"), viewpoint->viewpointFilename());
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Snapshot"), viewpoint->snapshotFilename());
    }
}

bool Topic::writeSnaphot(const QString &guid, QIODevice *device)
{
    const QByteArray *image = snapshot(guid);
    return device != nullptr && image != nullptr && device->write(*image) != -1;
}

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
    if (!_labels.isEmpty()) {
        map.insert(QStringLiteral("labels"), _labels);
    }
    map.insert(QStringLiteral("creation_date"), Variants::fromDate(_creationDate.value()));
    map.insert(QStringLiteral("creation_author"), _creationAuthor);
    if (!_modifiedDate.value().isNull()) {
        map.insert(QStringLiteral("modified_date"), Variants::fromDate(_modifiedDate.value()));
    }
    Variants::insertIfNotEmpty(map, QStringLiteral("modified_author"), _modifiedAuthor);
    Variants::insertIfNotEmpty(map, QStringLiteral("assigned_to"), _assignedTo);
    Variants::insertIfNotEmpty(map, QStringLiteral("description"), _description);
    if (const BimSnippet *snippet = bimSnippet()) {
        map.insert(QStringLiteral("bim_snippet"), snippet->toQVariant());
    }
    Variants::insertFormsIfNotEmpty(map, QStringLiteral("files"), files());
    Variants::insertFormsIfNotEmpty(map, QStringLiteral("document_references"), documentReferences());
    Variants::insertFormsIfNotEmpty(map, QStringLiteral("related_topics"), relatedTopics());
    Variants::insertFormsIfNotEmpty(map, QStringLiteral("comments"), comments());
    Variants::insertFormsIfNotEmpty(map, QStringLiteral("viewpoints"), viewpoints());
    return map;
}

void Topic::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    setGuid(guidOrNewId(map.value(QStringLiteral("guid")).toString()));
    _title = map.value(QStringLiteral("title")).toString();
    _creationDate = Variants::toDate(map.value(QStringLiteral("creation_date")));
    _creationAuthor = map.value(QStringLiteral("creation_author")).toString();
    _topicType = map.value(QStringLiteral("topic_type")).toString();
    _topicStatus = map.value(QStringLiteral("topic_status")).toString();
    _referenceLink = map.value(QStringLiteral("reference_link")).toString();
    _priority = map.value(QStringLiteral("priority")).toString();
    _index = map.value(QStringLiteral("index"), -1).toInt();
    _labels = map.value(QStringLiteral("labels")).toStringList();
    _modifiedDate = Variants::toDate(map.value(QStringLiteral("modified_date")));
    _modifiedAuthor = map.value(QStringLiteral("modified_author")).toString();
    _assignedTo = map.value(QStringLiteral("assigned_to")).toString();
    _description = map.value(QStringLiteral("description")).toString();
    attachmentsFromQVariant(map);
    removeComments();
    removeViewpoints();
    // Viewpoints before comments, which look up the viewpoint that they speak of.
    for (const QVariant &form : map.value(QStringLiteral("viewpoints")).toList()) {
        addViewpoint(QString())->fromQVariant(form);
    }
    for (const QVariant &form : map.value(QStringLiteral("comments")).toList()) {
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
    for (const QVariant &form : map.value(QStringLiteral("files")).toList()) {
        addFile()->fromQVariant(form);
    }
    removeDocumentReferences();
    for (const QVariant &form : map.value(QStringLiteral("document_references")).toList()) {
        addDocumentReference(QString())->fromQVariant(form);
    }
    removeRelatedTopics();
    for (const QVariant &form : map.value(QStringLiteral("related_topics")).toList()) {
        addRelatedTopic(form.toString());
    }
}

} // namespace BCFLib
