#include "BCFModel.h"

#include "Io/CacheFolder.h"
#include "Io/Limits.h"
#include "Io/ReadAll.h"
#include "Project.h"
#include "Topic.h"
#include "Version.h"
#include "Viewpoint.h"
#include "Zip/ArchiveDevice.h"
#include "Zip/Directory.h"
#include "Zip/EntryReader.h"

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <Core/Utils/Utility/NewId.h>
#include <memory>
#include <new>
#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <set>

namespace BCFLib {

namespace {

QString entryPath(const QuaZipDir &dir, const QString &name)
{
    return dir.path() + QLatin1Char('/') + name;
}

} // namespace

QSharedPointer<BCFModel> BCFModel::Deserialize(const QString &path,
                                               const Tavrin::ProgressionSignals &progress)
{
    QSharedPointer<BCFModel> model;
    QString outOfMemory;
    try {
        outOfMemory = tr("Not enough memory to load file \"%1\"").arg(path);
        model.reset(new BCFModel);
        // The step of the final close.
        progress.addMax(1);
        model->readArchive(path, progress);
    } catch (const std::bad_alloc &) {
        if (model != nullptr) {
            model->_errorString.swap(outOfMemory);
        }
    }
    return model;
}

void BCFModel::readArchive(const QString &path, const Tavrin::ProgressionSignals &progress)
{
    ArchiveDevice file(path);
    QuaZip zip(&file);
    if (zip.open(QuaZip::mdUnzip) && readEntries(&zip, progress)) {
        zip.close();
        progress.addSteps(1);
    }
    if (!file.isSound()) {
        setErrorString(tr("File \"%1\" changed or could not be read to its end").arg(path));
    } else if (file.budget()->isSpent()) {
        setErrorString(tr("File \"%1\" unpacks to more than an archive may hold").arg(path));
    }
}

bool BCFModel::readEntries(QuaZip *zip, const Tavrin::ProgressionSignals &progress)
{
    Directory &directory = ArchiveDevice::of(zip)->directory();
    directory.read(zip);
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
    const QStringList files = readTopics(zip, directory.rootFolders(), loadVersion, progress);
    return unpackAttachments(zip, files, progress);
}

Project *BCFModel::readProject(QuaZip *zip)
{
    if (!Directory::goTo(zip, QStringLiteral("project.bcfp"))) {
        return nullptr;
    }
    EntryReader file(zip);
    return Project::Deserialize(&file);
}

Version *BCFModel::readVersion(QuaZip *zip)
{
    if (!Directory::goTo(zip, QStringLiteral("bcf.version"))) {
        return Version::BCF1Version();
    }
    EntryReader file(zip);
    return Version::Deserialize(&file);
}

QStringList BCFModel::readTopics(QuaZip *zip, const QStringList &folders, const QString &version,
                                 const Tavrin::ProgressionSignals &progress)
{
    QStringList files;
    progress.addMax(folders.size());
    QuaZipDir dir(zip);
    for (const QString &folder : folders) {
        if (Directory::enter(&dir, folder)) {
            if (Topic *topic = readTopic(zip, &dir, files, version)) {
                topic->setParent(this);
                const QList<Viewpoint *> viewpoints = topic->viewpoints();
                for (Viewpoint *viewpoint : viewpoints) {
                    readViewpointFile(zip, &dir, viewpoint);
                }
                // Only now, as the topic looks viewpoints up for it: what came below them after the first
                // search would take more memory.
                for (Viewpoint *viewpoint : viewpoints) {
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
    if (!Directory::goTo(zip, entryPath(*dir, QStringLiteral("markup.bcf")))) {
        return nullptr;
    }
    EntryReader markup(zip);
    Topic *topic = Topic::Deserialize(&markup, files, version);
    const QString viewpointName = QStringLiteral("viewpoint.bcfv");
    if (topic != nullptr && isBCF_1_0(version) && Directory::goTo(zip, entryPath(*dir, viewpointName))) {
        // Markups of version 1.0 need not list the viewpoint; its fixed names show that it is there.
        Viewpoint *viewpoint = new Viewpoint(Tavrin::NewId(), topic);
        viewpoint->setViewpointFilename(viewpointName);
        viewpoint->setSnapshotFilename(QStringLiteral("snapshot.png"));
    }
    return topic;
}

void BCFModel::readViewpointFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint)
{
    const QString name = viewpoint->viewpointFilename();
    if (!name.isEmpty() && Directory::goTo(zip, entryPath(*dir, name))) {
        EntryReader file(zip);
        viewpoint->deserialize(&file);
    }
}

void BCFModel::readSnapshotFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint)
{
    const QString name = viewpoint->snapshotFilename();
    Topic *topic = qobject_cast<Topic *>(viewpoint->parent());
    if (!name.isEmpty() && topic != nullptr && Directory::goTo(zip, entryPath(*dir, name))) {
        EntryReader file(zip);
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
    // A file that several topics name is copied once. Not in a hash: names can be chosen such that all hash
    // alike.
    const std::set<QString> names(files.begin(), files.end());
    progress.addMax(static_cast<qint64>(names.size()));
    for (const QString &name : names) {
        EntryReader entry(zip);
        QByteArray bytes;
        if (!Directory::goTo(zip, name) || !entry.open(QIODevice::ReadOnly)
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

} // namespace BCFLib
