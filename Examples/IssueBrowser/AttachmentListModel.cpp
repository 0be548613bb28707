#include "AttachmentListModel.h"

#include "DisplayText.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/BimSnippet.h>
#include <Core/Utils/BCFLib/DocumentReference.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/RelatedTopic.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QApplication>
#include <QFileInfo>
#include <QIcon>
#include <QPalette>
#include <QStyle>

using BCFLib::BimSnippet;
using BCFLib::DocumentReference;
using BCFLib::File;
using BCFLib::RelatedTopic;
using BCFLib::Topic;

namespace {

/// What the user sees of one object: its name, and lines below it.
struct Entry
{
    QString name;
    QStringList particulars;
    QStyle::StandardPixmap icon;
};

Entry entry(const File &file)
{
    // A file of the archive was unpacked somewhere, which is of no interest.
    const QString name = file.isExternal() ? file.filename() : QFileInfo(file.filename()).fileName();
    const auto labelled = [](const QString &label, const QString &text) {
        return text.isEmpty() ? QString() : label.arg(text);
    };
    return {name,
            {file.isExternal() ? AttachmentListModel::tr("Model file outside the archive")
                               : AttachmentListModel::tr("Model file in the archive"),
             DisplayText::date(file.date()), file.reference(),
             labelled(AttachmentListModel::tr("IFC project %1"), file.ifcProject()),
             labelled(AttachmentListModel::tr("IFC structure %1"), file.ifcSpatialStructureElement())},
            QStyle::SP_FileIcon};
}

Entry entry(const DocumentReference &document)
{
    return {document.referencedDocument(),
            {document.isExternal() ? AttachmentListModel::tr("Document outside the archive")
                                   : AttachmentListModel::tr("Document in the archive"),
             document.description()},
            QStyle::SP_FileIcon};
}

Entry entry(const BimSnippet &snippet)
{
    return {snippet.reference(),
            {snippet.isExternal() ? AttachmentListModel::tr("Snippet outside the archive")
                                  : AttachmentListModel::tr("Snippet in the archive"),
             snippet.snippetType(), snippet.referenceSchema()},
            QStyle::SP_FileDialogDetailedView};
}

/// @p target is the topic that the link leads to, if the archive has it.
Entry entry(const RelatedTopic &link, const Topic *target)
{
    if (target) {
        return {target->title(),
                {AttachmentListModel::tr("Related topic"), target->topicStatus()},
                QStyle::SP_ArrowForward};
    }
    return {link.guid(),
            {AttachmentListModel::tr("Related topic that is not in this archive")},
            QStyle::SP_MessageBoxWarning};
}

} // namespace

void AttachmentListModel::setTopic(const Topic *topic)
{
    beginResetModel();
    _topic = topic;
    _rows.clear();
    if (topic) {
        const auto append = [this](const auto &objects) {
            std::copy(objects.begin(), objects.end(), std::back_inserter(_rows));
        };
        if (!topic->referenceLink().isEmpty()) {
            _rows.append(topic);
        }
        append(topic->files());
        append(topic->documentReferences());
        if (const BimSnippet *const snippet = topic->bimSnippet()) {
            _rows.append(snippet);
        }
        append(topic->relatedTopics());
    }
    endResetModel();
}

Topic *AttachmentListModel::relatedTopic(const QModelIndex &index) const
{
    const auto *const link =
        index.isValid() ? qobject_cast<const RelatedTopic *>(_rows.at(index.row())) : nullptr;
    const auto *const archive = link ? qobject_cast<const BCFLib::BCFModel *>(_topic->parent()) : nullptr;
    return archive ? archive->topic(link->guid()) : nullptr;
}

QUrl AttachmentListModel::address(const QModelIndex &index) const
{
    // Nothing but the web: an address comes from strangers, and others may start programs.
    const QUrl url(index.data(Qt::EditRole).toString().trimmed(), QUrl::StrictMode);
    return url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http") ? url : QUrl();
}

int AttachmentListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(_rows.size());
}

QVariant AttachmentListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const QObject *const object = _rows.at(index.row());
    Entry shown{_topic->referenceLink(), {tr("Link")}, QStyle::SP_DriveNetIcon};
    if (const auto *const file = qobject_cast<const File *>(object)) {
        shown = entry(*file);
    } else if (const auto *const document = qobject_cast<const DocumentReference *>(object)) {
        shown = entry(*document);
    } else if (const auto *const snippet = qobject_cast<const BimSnippet *>(object)) {
        shown = entry(*snippet);
    } else if (const auto *const link = qobject_cast<const RelatedTopic *>(object)) {
        shown = entry(*link, relatedTopic(index));
    }

    switch (role) {
    case Qt::DisplayRole: {
        QStringList lines;
        for (const QString &line : QStringList(shown.name) + shown.particulars) {
            lines << DisplayText::oneLine(line);
        }
        lines.removeAll(QString());
        return lines.join(QLatin1Char('\n'));
    }
    case Qt::EditRole:
        return shown.name;
    case Qt::DecorationRole:
        return QApplication::style()->standardIcon(shown.icon);
    default:
        return {};
    }
}
