#include "BCFModel.h"

#include "Io/CacheFolder.h"
#include "Io/Limits.h"
#include "Io/ReadAll.h"
#include "Project.h"
#include "Topic.h"
#include "Version.h"
#include "Viewpoint.h"
#include "Zip/ArchiveDevice.h"
#include "Zip/EntryReader.h"
#include "Zip/RootFolders.h"

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <Core/Utils/Utility/NewId.h>
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
    const QStringList folders = RootFolders::list(zip);
    progress.addMax(folders.size());
    QuaZipDir dir(zip);
    for (const QString &folder : folders) {
        if (RootFolders::enter(&dir, folder)) {
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

} // namespace BCFLib
