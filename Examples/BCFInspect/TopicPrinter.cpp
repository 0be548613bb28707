#include "TopicPrinter.h"

#include "ArchiveCheck.h"
#include "Report.h"
#include "ViewpointPrinter.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/BCF_2_0_Comment.h>
#include <Core/Utils/BCFLib/BimSnippet.h>
#include <Core/Utils/BCFLib/DocumentReference.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/RelatedTopic.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QDateTime>
#include <QStringList>

namespace {

QString dateText(const QDateTime &date)
{
    return date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss t")) : QString();
}

/// "author, date", or what is known of the two.
QString byText(const QString &author, const QDateTime &date)
{
    return joined({author, dateText(date)});
}

QString placeText(bool isExternal)
{
    return isExternal ? QStringLiteral("outside the archive") : QStringLiteral("in the archive");
}

QString numbered(const QString &name, int number)
{
    return QStringLiteral("%1 %2").arg(name).arg(number);
}

} // namespace

TopicPrinter::TopicPrinter(const BCFLib::BCFModel &model, Report &report)
    : _model(model)
    , _report(report)
{
    for (const BCFLib::Topic *topic : model.topics()) {
        _titles.insert(topic->guid(), topic->title());
    }
}

void TopicPrinter::printAll()
{
    const QList<BCFLib::Topic *> topics = _model.topics();
    for (int i = 0; i < topics.size(); ++i) {
        print(*topics.at(i), i + 1, topics.size());
    }
}

void TopicPrinter::print(const BCFLib::Topic &topic, int number, int count)
{
    const QString title = topic.title().isEmpty() ? QStringLiteral("-") : topic.title();
    _report.heading(QStringLiteral("Topic %1 of %2: %3").arg(number).arg(count).arg(title), QLatin1Char('-'));
    printFields(topic);
    printFiles(topic);
    printReferences(topic);
    printComments(topic);
    printViewpoints(topic);
}

void TopicPrinter::printFields(const BCFLib::Topic &topic)
{
    _report.field(QStringLiteral("Guid"), topic.guid());
    printVerdict(ArchiveCheck::problems(topic), _report);
    _report.field(QStringLiteral("Type"), topic.topicType());
    _report.field(QStringLiteral("Status"), topic.topicStatus());
    _report.field(QStringLiteral("Priority"), topic.priority());
    _report.field(QStringLiteral("Index"), topic.index() < 0 ? QString() : QString::number(topic.index()));
    _report.field(QStringLiteral("Labels"), topic.labels().join(QStringLiteral(", ")));
    _report.field(QStringLiteral("Created"), byText(topic.creationAuthor(), topic.creationDate()));
    _report.field(QStringLiteral("Modified"), byText(topic.modifiedAuthor(), topic.modifiedDate()));
    _report.field(QStringLiteral("Assigned to"), topic.assignedTo());
    _report.field(QStringLiteral("Description"), topic.description());
}

void TopicPrinter::printFiles(const BCFLib::Topic &topic)
{
    const QList<BCFLib::File *> files = topic.files();
    if (files.isEmpty()) {
        _report.field(QStringLiteral("Files"), QString());
    }
    for (int i = 0; i < files.size(); ++i) {
        const BCFLib::File &file = *files.at(i);
        _report.field(numbered(QStringLiteral("File"), i + 1), file.filename());
        _report.indent();
        _report.field(QStringLiteral("Place"), placeText(file.isExternal()));
        _report.field(QStringLiteral("Date"), dateText(file.date()));
        _report.field(QStringLiteral("Project"), file.ifcProject());
        _report.field(QStringLiteral("Structure"), file.ifcSpatialStructureElement());
        _report.field(QStringLiteral("Reference"), file.reference());
        _report.outdent();
    }
}

void TopicPrinter::printReferences(const BCFLib::Topic &topic)
{
    _report.field(QStringLiteral("Link"), topic.referenceLink());

    QStringList documents;
    for (const BCFLib::DocumentReference *document : topic.documentReferences()) {
        documents << joined(
            {document->description(), document->referencedDocument(), placeText(document->isExternal())});
    }
    _report.field(QStringLiteral("Documents"), documents.join(QLatin1Char('\n')));

    QStringList related;
    for (const BCFLib::RelatedTopic *link : topic.relatedTopics()) {
        related << _titles.value(link->guid(), QStringLiteral("not in this archive")) + QStringLiteral(", ")
                + link->guid();
    }
    _report.field(QStringLiteral("Related"), related.join(QLatin1Char('\n')));

    QString snippet;
    if (const BCFLib::BimSnippet *const bim = topic.bimSnippet()) {
        snippet = joined(
            {bim->snippetType(), bim->reference(), bim->referenceSchema(), placeText(bim->isExternal())});
    }
    _report.field(QStringLiteral("Snippet"), snippet);
}

void TopicPrinter::printComments(const BCFLib::Topic &topic)
{
    const QList<BCFLib::Comment *> comments = topic.comments();
    const QList<BCFLib::Viewpoint *> viewpoints = topic.viewpoints();
    _numbers.clear();
    for (int i = 0; i < comments.size(); ++i) {
        _numbers.insert(comments.at(i), numbered(QStringLiteral("comment"), i + 1));
    }
    for (int i = 0; i < viewpoints.size(); ++i) {
        _numbers.insert(viewpoints.at(i), numbered(QStringLiteral("viewpoint"), i + 1));
    }

    if (comments.isEmpty()) {
        _report.field(QStringLiteral("Comments"), QString());
    }
    for (int i = 0; i < comments.size(); ++i) {
        const BCFLib::Comment &comment = *comments.at(i);
        _report.field(numbered(QStringLiteral("Comment"), i + 1), byText(comment.author(), comment.date()));
        _report.indent();
        printComment(comment);
        _report.outdent();
    }
}

void TopicPrinter::printComment(const BCFLib::Comment &comment)
{
    _report.field(QStringLiteral("Text"), comment.comment());
    _report.field(QStringLiteral("Viewpoint"), _numbers.value(comment.viewpoint()));
    _report.field(QStringLiteral("Reply to"), _numbers.value(comment.replyToComment()));
    _report.field(QStringLiteral("Modified"), byText(comment.modifiedAuthor(), comment.modifiedDate()));
    if (const BCF_2_0_Lib::Comment *const older = qobject_cast<const BCF_2_0_Lib::Comment *>(&comment)) {
        _report.field(QStringLiteral("Status"), older->status());
        _report.field(QStringLiteral("In words"), older->verbalStatus());
    }
}

void TopicPrinter::printViewpoints(const BCFLib::Topic &topic)
{
    const QList<BCFLib::Viewpoint *> viewpoints = topic.viewpoints();
    if (viewpoints.isEmpty()) {
        _report.field(QStringLiteral("Viewpoints"), QString());
    }
    for (int i = 0; i < viewpoints.size(); ++i) {
        const BCFLib::Viewpoint &viewpoint = *viewpoints.at(i);
        _report.field(numbered(QStringLiteral("Viewpoint"), i + 1), viewpoint.guid());
        _report.indent();
        printViewpoint(viewpoint, topic.snapshot(viewpoint.guid()), _report);
        _report.outdent();
    }
}
