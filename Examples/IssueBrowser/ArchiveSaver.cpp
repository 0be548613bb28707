#include "ArchiveSaver.h"

#include <ArchiveCheck.h>
#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>

namespace {

/// What can't be saved of a topic; empty if nothing stands against it.
QString problem(const BCFLib::Topic &topic)
{
    for (const BCFLib::Viewpoint *viewpoint : topic.viewpoints()) {
        if (!viewpoint->snapshotFilename().isEmpty() && !topic.snapshot(viewpoint->guid())) {
            return ArchiveSaver::tr("A viewpoint of topic \"%1\" lacks its image \"%2\".")
                .arg(topic.title(), viewpoint->snapshotFilename());
        }
    }
    for (const BCFLib::File *file : topic.files()) {
        if (!file->isExternal() && !QFile(file->filename()).open(QIODevice::ReadOnly)) {
            return ArchiveSaver::tr("The file \"%2\" of topic \"%1\" can't be read.")
                .arg(topic.title(), file->filename());
        }
    }
    return QString();
}

/// Why the archive could not be written to a good folder.
QString problem(const BCFLib::BCFModel &archive, const QString &folder)
{
    for (const BCFLib::Topic *topic : archive.topics()) {
        const QString found = problem(*topic);
        if (!found.isEmpty()) {
            return found;
        }
    }
    const qint64 room = QStorageInfo(folder).bytesAvailable();
    return ArchiveSaver::tr("Writing to the folder \"%1\" failed. Its disk has room for %2.")
        .arg(folder, QLocale().formattedDataSize(room));
}

} // namespace

ArchiveSaver::ArchiveSaver(BCFLib::BCFModel &archive, const QString &path)
    : _thread(QThread::create([this, &archive, path] {
        save(archive, path);
        // Only the thread that an object belongs to can give it away.
        archive.moveToThread(thread());
    }))
{
    connect(_thread.get(), &QThread::finished, this, &ArchiveSaver::saved);
    archive.moveToThread(_thread.get());
    _thread->start();
}

ArchiveSaver::~ArchiveSaver()
{
    finish();
}

QString ArchiveSaver::finish()
{
    _thread->wait();
    return _problem;
}

void ArchiveSaver::save(BCFLib::BCFModel &archive, const QString &path)
{
    // A load that was broken off has left something out, which must not get lost in the file too.
    if (!archive.errorString().isEmpty()) {
        _problem = archive.errorString();
        return;
    }
    // A save writes straight at its path and leaves a torso when it fails. So it goes to a folder
    // beside the goal, on the same disk, and takes the name only when it is complete.
    const QFileInfo goal(path);
    const QString target = goal.exists() ? goal.canonicalFilePath() : goal.absoluteFilePath();
    const QString place = QFileInfo(target).path();
    const QTemporaryDir folder(target + QStringLiteral(".XXXXXX"));
    const QString unfinished = folder.filePath(QStringLiteral("archive"));
    if (goal.isDir()) {
        _problem = tr("There is a folder of that name.");
    } else if (!QFileInfo(place).isDir()) {
        _problem = tr("There is no folder \"%1\".").arg(place);
    } else if (!folder.isValid()) {
        _problem = tr("Nothing can be written to the folder \"%1\".").arg(place);
    } else {
        watch(unfinished);
        if (!archive.serialize(unfinished)) {
            _problem = problem(archive, place);
            return;
        }
        if (goal.exists()) {
            QFile::setPermissions(unfinished, goal.permissions());
        }
        std::error_code error;
        std::filesystem::rename(unfinished.toStdU16String(), target.toStdU16String(), error);
        if (error) {
            _problem = QString::fromLocal8Bit(error.message().c_str());
        }
    }
}

void ArchiveSaver::watch(const QString &unfinished)
{
    const auto startWatching = [this, unfinished] {
        auto *const timer = new QTimer(this);
        timer->start(100);
        connect(timer, &QTimer::timeout, this,
                [this, unfinished] { emit progressed(QFileInfo(unfinished).size()); });
    };
    QMetaObject::invokeMethod(this, startWatching, Qt::QueuedConnection);
}
