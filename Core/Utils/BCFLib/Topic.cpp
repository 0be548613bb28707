#include "Topic.h"

#include "BCFModel.h"
#include "BCF_2_0_Comment.h"
#include "BCF_2_0_Viewpoint.h"
#include "BimSnippet.h"
#include "Comment.h"
#include "DocumentReference.h"
#include "File.h"
#include "Io/Limits.h"
#include "Io/ReadAll.h"
#include "RelatedTopic.h"
#include "Tree/GuidIndex.h"
#include "Tree/Owners.h"
#include "Tree/Search.h"
#include "Viewpoint.h"

#include <Core/Utils/Utility/NewId.h>
#include <QFileInfo>
#include <QIODevice>
#include <utility>

namespace BCFLib {

namespace {

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
{
    setObjectName(guidOrNew(guid));
    Owners::hasBeenMade(this);
}

Topic::Topic(const QVariant &variant, QObject *parent)
    : Topic(QString(), QString(), QDateTime(), QString(), parent)
{
    fromQVariant(variant);
}

Topic::~Topic()
{
    Owners::aboutToGo(this);
}

bool Topic::event(QEvent *event)
{
    Owners::event(this, event);
    return QObject::event(event);
}

QString Topic::guidOrNew(const QString &guid)
{
    return guid.isEmpty() ? Tavrin::NewId() : guid;
}

void Topic::setGuid(const QString &guid)
{
    Owners::aboutToRename(this, guid);
    setObjectName(guid);
}

QDateTime Topic::creationDate() const
{
    return _isCreationDateOfFile ? _creationDate.toLocalTime() : _creationDate;
}

void Topic::setCreationDate(const QDateTime &creationDate)
{
    _creationDate = creationDate;
    _isCreationDateOfFile = false;
}

QDateTime Topic::modifiedDate() const
{
    return _isModifiedDateOfFile ? _modifiedDate.toLocalTime() : _modifiedDate;
}

void Topic::setModifiedDate(const QDateTime &modifiedDate)
{
    _modifiedDate = modifiedDate;
    _isModifiedDateOfFile = false;
}

QList<Comment *> Topic::comments() const
{
    return Search::all<Comment>(this);
}

Comment *Topic::comment(const QString &guid) const
{
    return GuidIndex::find<Comment>(this, guid, &_commentIndex);
}

Comment *Topic::addComment(const QString &guid)
{
    if (!guid.isEmpty()) {
        removeComment(guid);
    }
    Comment *comment = createComment(guidOrNew(guid));
    comment->setTopic(this);
    return comment;
}

Comment *Topic::createComment(const QString &guid)
{
    return BCFModel::isBCF_2_0(this) ? new BCF_2_0_Lib::Comment(guid, this) : new Comment(guid, this);
}

void Topic::removeComment(const QString &guid)
{
    delete comment(guid);
}

void Topic::removeComments()
{
    Search::deleteAll<Comment>(this);
}

QList<Viewpoint *> Topic::viewpoints() const
{
    return Search::all<Viewpoint>(this);
}

Viewpoint *Topic::viewpoint(const QString &guid) const
{
    return GuidIndex::find<Viewpoint>(this, guid, &_viewpointIndex);
}

Viewpoint *Topic::addViewpoint(const QString &guid)
{
    if (!guid.isEmpty()) {
        removeViewpoint(guid);
    }
    Viewpoint *viewpoint = createViewpoint(guidOrNew(guid));
    if (GuidIndex::count<Viewpoint>(this, &_viewpointIndex) == 1) {
        viewpoint->setViewpointFilename(QStringLiteral("viewpoint.bcfv"));
    }
    return viewpoint;
}

Viewpoint *Topic::createViewpoint(const QString &guid)
{
    return BCFModel::isBCF_2_0(this) ? new BCF_2_0_Lib::Viewpoint(guid, this) : new Viewpoint(guid, this);
}

/// The place among viewpoints(), which is found at once if it is the last.
int Topic::positionOf(const Viewpoint *viewpoint) const
{
    const QObjectList &all = children();
    if (!all.isEmpty() && all.last() == viewpoint && viewpoint->findChild<Viewpoint *>() == nullptr) {
        return GuidIndex::count<Viewpoint>(this, &_viewpointIndex) - 1;
    }
    return viewpoints().indexOf(const_cast<Viewpoint *>(viewpoint));
}

void Topic::removeViewpoint(const QString &guid)
{
    delete viewpoint(guid);
}

void Topic::removeViewpoints()
{
    Search::deleteAll<Viewpoint>(this);
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
    // Where memory ends, QSharedPointer::create() crashes.
    _snapshots.insert(viewpoint->guid(), QSharedPointer<QByteArray>(new QByteArray(bytes)));
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
    return Search::all<File>(this);
}

File *Topic::addFile()
{
    return new File(this);
}

void Topic::removeFiles()
{
    Search::deleteAll<File>(this);
}

QList<DocumentReference *> Topic::documentReferences() const
{
    return Search::all<DocumentReference>(this);
}

DocumentReference *Topic::addDocumentReference(const QString &guid)
{
    return new DocumentReference(guid, this);
}

void Topic::removeDocumentReferences()
{
    Search::deleteAll<DocumentReference>(this);
}

BimSnippet *Topic::bimSnippet() const
{
    return Search::first<BimSnippet>(this);
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
    return Search::all<RelatedTopic>(this);
}

RelatedTopic *Topic::addRelatedTopic(const QString &guid)
{
    return new RelatedTopic(guidOrNew(guid), this);
}

void Topic::removeRelatedTopics()
{
    Search::deleteAll<RelatedTopic>(this);
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

} // namespace BCFLib
