#include "BCFModel.h"

#include "ArchiveEntry.h"
#include "ArchiveFile.h"
#include "BoundedReading.h"
#include "CacheFolder.h"
#include "DOMXml.h"
#include "GuidHints.h"
#include "Limits.h"
#include "ObjectTree.h"
#include "Project.h"
#include "Topic.h"
#include "Version.h"
#include "Viewpoint.h"
#include "XmlElements.h"
#include "ZipEntries.h"

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <Core/Utils/Utility/NewId.h>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <memory>
#include <new>
#include <quazip/quazip.h>
#include <quazip/quazipdir.h>

namespace BCFLib {

namespace {

QString entryPath(const QuaZipDir &dir, const QString &name)
{
    return dir.path() + QLatin1Char('/') + name;
}

} // namespace

BCFModel::BCFModel(QObject *parent)
    : QObject(parent)
    , _topicHints(std::make_unique<GuidHints>())
{
}

BCFModel::~BCFModel() = default;

void BCFModel::childEvent(QChildEvent *event)
{
    _topicHints->familyChanged(event);
}

QSharedPointer<BCFModel> BCFModel::Create(const QString &version, QObject *parent)
{
    QSharedPointer<BCFModel> model(new BCFModel(parent));
    model->createVersion(version);
    return model;
}

QSharedPointer<BCFModel> BCFModel::Create(QObject *parent)
{
    return Create(QString(), parent);
}

QString BCFModel::currentBCFVersion()
{
    return QStringLiteral("2.1");
}

bool BCFModel::isBCF_1_0(const QString &version)
{
    return version == QLatin1String("1.0");
}

bool BCFModel::isBCF_2_0(const QString &version)
{
    return version == QLatin1String("2.0");
}

bool BCFModel::isBCF_2_0(QObject *object)
{
    return isBCF_2_0(getVersion(object));
}

QString BCFModel::getVersion(QObject *object)
{
    for (const QObject *current = object; current != nullptr; current = current->parent()) {
        if (const BCFModel *model = qobject_cast<const BCFModel *>(current)) {
            const Version *version = model->version();
            return version != nullptr ? version->versionId() : QString();
        }
    }
    return QString();
}

int BCFModel::numberPrecision()
{
    return Tavrin::DOMXml::numberPrecision();
}

Version *BCFModel::version() const
{
    return ObjectTree::first<Version>(this);
}

Version *BCFModel::addVersion()
{
    return new Version(this);
}

Version *BCFModel::createVersion(const QString &version)
{
    const bool is2_0 = isBCF_2_0(version);
    Version *record = addVersion();
    record->setVersionId(is2_0 ? version : currentBCFVersion());
    record->setDetailedVersion(is2_0 ? QStringLiteral("2.0 RC") : currentBCFVersion());
    return record;
}

Project *BCFModel::project() const
{
    return ObjectTree::first<Project>(this);
}

Project *BCFModel::addProject(const QString &guid)
{
    if (guid.isEmpty()) {
        return new Project(Tavrin::NewId(), this);
    }
    delete ObjectTree::byGuid<Project>(this, guid);
    return new Project(guid, this);
}

QList<Topic *> BCFModel::topics() const
{
    return ObjectTree::all<Topic>(this);
}

Topic *BCFModel::topic(const QString &guid) const
{
    return _topicHints->find<Topic>(this, guid);
}

Topic *BCFModel::addTopic(const QString &title, const QString &creationAuthor, const QDateTime &creationDate,
                          const QString &guid)
{
    return new Topic(title, creationAuthor, creationDate, guid, this);
}

void BCFModel::removeTopic(const QString &guid)
{
    delete topic(guid);
}

QString BCFModel::errorString() const
{
    return _errorString;
}

void BCFModel::setErrorString(const QString &errorString)
{
    _errorString = errorString;
}

QSharedPointer<BCFModel> BCFModel::Deserialize(const QString &path,
                                               const Tavrin::ProgressionSignals &progress)
{
    // The step of the final close.
    progress.addMax(1);
    QSharedPointer<BCFModel> model(new BCFModel);
    Budgeted<ArchiveFile> file(path);
    QuaZip zip(&file);
    try {
        if (zip.open(QuaZip::mdUnzip) && model->readArchive(&zip, progress)) {
            zip.close();
            progress.addSteps(1);
        }
        if (file.isSpent()) {
            model->setErrorString(tr("File \"%1\" unpacks to more than an archive may hold").arg(path));
        }
    } catch (const std::bad_alloc &) {
        model->setErrorString(tr("Not enough memory to load file \"%1\"").arg(path));
    }
    return model;
}

bool BCFModel::readArchive(QuaZip *zip, const Tavrin::ProgressionSignals &progress)
{
    if (Project *project = readProject(zip)) {
        project->setParent(this);
    }
    std::unique_ptr<Version> record(readVersion(zip));
    if (record == nullptr) {
        return false;
    }
    const QString loadVersion = record->versionId();
    if (record->isValid()) {
        record.release()->setParent(this);
    } else {
        createVersion(QStringLiteral("2.0"));
    }
    const QStringList files = readTopics(zip, loadVersion, progress);
    return unpackAttachments(zip, files, progress);
}

Project *BCFModel::readProject(QuaZip *zip)
{
    if (!zip->setCurrentFile(QStringLiteral("project.bcfp"), QuaZip::csDefault)) {
        return nullptr;
    }
    ArchiveEntry file(zip);
    return Project::Deserialize(&file);
}

Version *BCFModel::readVersion(QuaZip *zip)
{
    if (!zip->setCurrentFile(QStringLiteral("bcf.version"), QuaZip::csDefault)) {
        return Version::BCF1Version();
    }
    ArchiveEntry file(zip);
    return Version::Deserialize(&file);
}

QStringList BCFModel::readTopics(QuaZip *zip, const QString &version,
                                 const Tavrin::ProgressionSignals &progress)
{
    QStringList files;
    const QStringList folders = ZipEntries::rootFolders(zip);
    progress.addMax(folders.size());
    QuaZipDir dir(zip);
    for (const QString &folder : folders) {
        if (ZipEntries::enterFolder(&dir, folder)) {
            if (Topic *topic = readTopic(zip, &dir, files, version)) {
                topic->setParent(this);
                for (Viewpoint *viewpoint : topic->viewpoints()) {
                    readViewpointFile(zip, &dir, viewpoint);
                    readSnapshotFile(zip, &dir, viewpoint);
                }
            }
        }
        progress.addSteps(1);
    }
    return files;
}

Topic *BCFModel::readTopic(QuaZip *zip, QuaZipDir *dir, QStringList &files, const QString &version)
{
    if (!zip->setCurrentFile(entryPath(*dir, QStringLiteral("markup.bcf")), QuaZip::csDefault)) {
        return nullptr;
    }
    ArchiveEntry markup(zip);
    Topic *topic = Topic::Deserialize(&markup, files, version);
    const QString viewpointName = QStringLiteral("viewpoint.bcfv");
    if (topic != nullptr && isBCF_1_0(version)
        && zip->setCurrentFile(entryPath(*dir, viewpointName), QuaZip::csDefault)) {
        // Markups of version 1.0 need not list the viewpoint; its fixed names tell that it is there.
        Viewpoint *viewpoint = new Viewpoint(Tavrin::NewId(), topic);
        viewpoint->setViewpointFilename(viewpointName);
        viewpoint->setSnapshotFilename(QStringLiteral("snapshot.png"));
    }
    return topic;
}

void BCFModel::readViewpointFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint)
{
    const QString name = viewpoint->viewpointFilename();
    if (!name.isEmpty() && zip->setCurrentFile(entryPath(*dir, name), QuaZip::csDefault)) {
        ArchiveEntry file(zip);
        viewpoint->deserialize(&file);
    }
}

void BCFModel::readSnapshotFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint)
{
    const QString name = viewpoint->snapshotFilename();
    Topic *topic = qobject_cast<Topic *>(viewpoint->parent());
    if (!name.isEmpty() && topic != nullptr
        && zip->setCurrentFile(entryPath(*dir, name), QuaZip::csDefault)) {
        ArchiveEntry file(zip);
        topic->addSnapshot(viewpoint->guid(), &file);
    }
}

bool BCFModel::unpackAttachments(QuaZip *zip, const QStringList &files,
                                 const Tavrin::ProgressionSignals &progress)
{
    if (files.isEmpty()) {
        return true;
    }
    const CacheFolder cache;
    // A file that several topics name is copied once.
    const QSet<QString> names(files.begin(), files.end());
    progress.addMax(names.size());
    for (const QString &name : names) {
        ArchiveEntry entry(zip);
        QByteArray bytes;
        if (!zip->setCurrentFile(name, QuaZip::csDefault) || !entry.open(QIODevice::ReadOnly)
            || readToEnd(&entry, Limits::attachmentBytes, &bytes) != ReadOutcome::Complete) {
            setErrorString(tr("File \"%1\" doesn't exist in bcfzip").arg(name));
            return false;
        }
        if (!cache.write(name, bytes)) {
            setErrorString(tr("Can't write in cache path \"%1\"").arg(cache.path()));
            return false;
        }
        progress.addSteps(1);
    }
    return true;
}

bool BCFModel::serialize(const QString &path)
{
    QFile file(path);
    QuaZip zip(&file);
    try {
        if (!zip.open(QuaZip::mdCreate) || !writeArchive(&zip)) {
            return false;
        }
        zip.close();
    } catch (const std::bad_alloc &) {
        return false;
    }
    // The last bytes leave the file's buffer on closing, where a full disk shows in the file alone.
    return zip.getZipError() == ZIP_OK && file.error() == QFileDevice::NoError;
}

bool BCFModel::writeArchive(QuaZip *zip) const
{
    if (Version *record = version()) {
        const auto write = [record](QIODevice *device) { return record->serialize(device); };
        if (!ZipEntries::writeText(zip, QStringLiteral("bcf.version"), write)) {
            return false;
        }
    }
    if (Project *record = project()) {
        const auto write = [record](QIODevice *device) { record->serialize(device); };
        if (!ZipEntries::writeUnchecked(zip, QStringLiteral("project.bcfp"), ZipEntries::noPermissions,
                                        write)) {
            return false;
        }
    }
    QStringList files;
    for (Topic *topic : topics()) {
        if (!writeTopic(zip, topic, files)) {
            return false;
        }
    }
    // A file that several topics name is written once.
    for (const QString &path : QSet<QString>(files.begin(), files.end())) {
        if (!writeAttachment(zip, path)) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeTopic(QuaZip *zip, Topic *topic, QStringList &files) const
{
    // Names of entries go the way of the texts that name them.
    const QString folder = Xml::writableText(topic->guid()) + QLatin1Char('/');
    const auto writeMarkup = [topic, &files](QIODevice *device) { return topic->serialize(device, files); };
    if (!ZipEntries::writeText(zip, folder + QStringLiteral("markup.bcf"), writeMarkup)) {
        return false;
    }
    for (Viewpoint *viewpoint : topic->viewpoints()) {
        const auto writeViewpoint = [viewpoint](QIODevice *device) { return viewpoint->serialize(device); };
        const QString viewpointName = Xml::writableText(viewpoint->viewpointFilename());
        if (!viewpointName.isEmpty() && !ZipEntries::writeText(zip, folder + viewpointName, writeViewpoint)) {
            return false;
        }
        const auto writeImage = [topic, viewpoint](QIODevice *device) {
            return topic->writeSnaphot(viewpoint->guid(), device);
        };
        const QString imageName = Xml::writableText(viewpoint->snapshotFilename());
        if (!imageName.isEmpty() && !ZipEntries::writeBytes(zip, folder + imageName, writeImage)) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeAttachment(QuaZip *zip, const QString &path)
{
    bool isRead = false;
    const auto write = [&path, &isRead](QIODevice *device) {
        QFile file(path);
        QByteArray bytes;
        isRead = !CacheFolder::leadsAstray(path) && file.open(QIODevice::ReadOnly)
            && readToEnd(&file, Limits::attachmentBytes, &bytes) != ReadOutcome::TooLarge;
        if (isRead) {
            device->write(bytes);
        }
    };
    return ZipEntries::writeUnchecked(zip, QFileInfo(path).fileName(), ZipEntries::readPermissions, write)
        && isRead;
}

bool BCFModel::isValid() const
{
    QString message;
    QString title;
    return isValid(QString(), message, title);
}

bool BCFModel::isValid(const QString &filename, QString &message, QString &title) const
{
    title = tr("Error");
    const Version *record = version();
    if (record == nullptr || !record->isValid()) {
        message = tr("Invalid bcf version for \"%1\" file").arg(filename);
        return false;
    }
    if (!_errorString.isEmpty()) {
        message = _errorString;
        return false;
    }
    const QList<Topic *> all = topics();
    if (all.isEmpty()) {
        message = tr("\"%1\" file have no topics in it").arg(filename);
        title = tr("Warning");
        return true;
    }
    for (const Topic *topic : all) {
        if (!topic->isValid()) {
            const QString name = topic->title().isEmpty() ? topic->guid() : topic->title();
            message = tr("Invalid file \"%1\" because of topic \"%2\"").arg(filename, name);
            return false;
        }
    }
    return true;
}

} // namespace BCFLib
