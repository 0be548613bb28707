#include "Topic.h"

#include "BimSnippet.h"
#include "Comment.h"
#include "DocumentReference.h"
#include "File.h"
#include "Io/CacheFolder.h"
#include "Io/Limits.h"
#include "RelatedTopic.h"
#include "Viewpoint.h"
#include "Xml/Elements.h"
#include "Xml/Printer.h"
#include "Xml/Text.h"
#include "Zip/EntryNames.h"

#include <QDomDocument>
#include <QFileInfo>
#include <QIODevice>
#include <QScopedValueRollback>

namespace BCFLib {

bool Topic::serialize(QIODevice *device, QStringList &files)
{
    QDomDocument doc;
    Xml::Printer printer(device);
    const QScopedValueRollback<Xml::Printer *> rollback(_printer, &printer);
    QDomElement markup = Xml::appendElement(doc, doc, QStringLiteral("Markup"));
    files.append(writeHeader(doc, markup));
    writeTopic(doc, markup);
    writeComments(doc, markup);
    writeViewpoints(doc, markup);
    printer.finish(doc);
    return true;
}

void Topic::printFinished(const QDomDocument &document) const
{
    if (_printer != nullptr) {
        _printer->printFinished(document);
    }
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
            // A path that escapes the cache folder is kept, so that the save can reject it.
            paths.append(CacheFolder::escapesCacheFolder(filename) ? filename : local.absoluteFilePath());
            filename = QStringLiteral("../") + local.fileName();
        }
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Filename"), filename);
        if (file->date().isValid()) {
            Xml::appendText(doc, element, QStringLiteral("Date"), Xml::dateText(file->date()));
        }
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Reference"), file->reference());
        printFinished(doc);
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
        printFinished(doc);
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
        printFinished(doc);
    }
    for (const RelatedTopic *link : relatedTopics()) {
        QDomElement element = Xml::appendElement(doc, topic, QStringLiteral("RelatedTopics"));
        Xml::setAttribute(element, QStringLiteral("Guid"), link->guid());
        printFinished(doc);
    }
}

void Topic::writeComments(QDomDocument &doc, QDomElement &parent)
{
    for (const Comment *comment : comments()) {
        comment->write(doc, parent);
        printFinished(doc);
    }
}

void Topic::writeViewpoints(QDomDocument &doc, QDomElement &parent)
{
    const QMap<const Viewpoint *, ViewpointEntries> entries = viewpointEntries();
    for (const Viewpoint *viewpoint : viewpoints()) {
        const ViewpointEntries names = entries.value(viewpoint);
        QDomElement element = Xml::appendElement(doc, parent, QStringLiteral("Viewpoints"));
        Xml::setAttribute(element, QStringLiteral("Guid"), viewpoint->guid());
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Viewpoint"), names.file);
        Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Snapshot"), names.image);
        printFinished(doc);
    }
}

QMap<const Viewpoint *, Topic::ViewpointEntries> Topic::viewpointEntries() const
{
    QVector<EntryNames::Wish> wishes;
    const auto append = [&wishes](const QString &name, const QString &substitute) {
        wishes.append({Xml::writableText(name), name.isEmpty() ? QString() : substitute});
    };
    const QList<Viewpoint *> all = viewpoints();
    for (const Viewpoint *viewpoint : all) {
        append(viewpoint->viewpointFilename(), QStringLiteral("viewpoint.bcfv"));
        append(viewpoint->snapshotFilename(), QStringLiteral("snapshot.png"));
    }
    const QStringList names = EntryNames::distinct(wishes, {QStringLiteral("markup.bcf")});
    QMap<const Viewpoint *, ViewpointEntries> entries;
    for (int i = 0; i < all.size(); ++i) {
        entries.insert(all.at(i), {names.at(2 * i), names.at(2 * i + 1)});
    }
    return entries;
}

bool Topic::writeSnaphot(const QString &guid, QIODevice *device)
{
    const QByteArray *image = snapshot(guid);
    return device != nullptr && image != nullptr && image->size() <= Limits::snapshotBytes
        && device->write(*image) != -1;
}

} // namespace BCFLib
