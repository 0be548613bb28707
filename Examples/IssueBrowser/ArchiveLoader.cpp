#include "ArchiveLoader.h"

#include <Core/Utils/BCFLib/BCFLoadingWorker.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QLockFile>
#include <QStandardPaths>

using BCFLib::BCFLoadingWorker;

namespace {

/// In milliseconds; a lock that is held for longer was left behind on another machine.
constexpr int longestWait = 60000;

QDir cacheFolder()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
}

/// Whether a file that a stranger named was unpacked, and doesn't stand somewhere else.
bool isUnpacked(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && QFileInfo(info.canonicalFilePath()).path() == cacheFolder().canonicalPath();
}

/// Moves the attachments from the cache folder to one of the archive's own.
///
/// All loads, also those of other windows, share the cache folder, and the same name there is the same
/// file.
void takeAttachments(LoadedArchive &archive)
{
    QHash<QString, QString> taken;
    for (const BCFLib::Topic *topic : archive.model->topics()) {
        for (BCFLib::File *file : topic->files()) {
            const QString unpacked = file->filename();
            // After a load that was broken off, some are not there.
            if (file->isExternal() || (!taken.contains(unpacked) && !isUnpacked(unpacked))) {
                continue;
            }
            if (!archive.attachments) {
                archive.attachments =
                    std::make_shared<QTemporaryDir>(cacheFolder().filePath(QStringLiteral("window-XXXXXX")));
            }
            const QString own = archive.attachments->filePath(QFileInfo(unpacked).fileName());
            if (!taken.contains(unpacked) && !QFile::rename(unpacked, own)) {
                archive.model->setErrorString(
                    ArchiveLoader::tr("The file \"%1\" can't be moved to \"%2\"").arg(unpacked, own));
                return;
            }
            taken.insert(unpacked, own);
            file->setFilename(own);
        }
    }
}

} // namespace

ArchiveLoader::~ArchiveLoader()
{
    if (_thread) {
        _thread->wait();
    }
}

void ArchiveLoader::load(const QString &path)
{
    Q_ASSERT(!isLoading());
    _total = 0;
    _done = 0;
    _percent = 0;
    _archive.path = path;
    _thread.reset(QThread::create([this] { run(); }));
    connect(_thread.get(), &QThread::finished, this, &ArchiveLoader::finish);
    _thread->start();
}

void ArchiveLoader::run()
{
    _archive.file = ArchiveCheck::checkFile(_archive.path);
    if (!_archive.file.canBeLoaded()) {
        return;
    }
    // Until the attachments are out of the cache folder, no other window may unpack its own there.
    cacheFolder().mkpath(QStringLiteral("."));
    QLockFile lock(cacheFolder().filePath(QStringLiteral("load.lock")));
    lock.setStaleLockTime(0);
    lock.tryLock(longestWait);

    BCFLoadingWorker worker(_archive.path);
    // These come queued, as the receiver lives over there.
    connect(&worker, &BCFLoadingWorker::addMaxSig, this, [this](qint64 steps) { count(_total, steps); });
    connect(&worker, &BCFLoadingWorker::addStepsSig, this, [this](qint64 steps) { count(_done, steps); });
    worker.doLoad();
    _archive.model = worker.model();
    takeAttachments(_archive);
    _archive.problems = ArchiveCheck::problems(*_archive.model);
    // Only the thread that an object belongs to can give it away.
    _archive.model->moveToThread(thread());
}

void ArchiveLoader::count(qint64 &steps, qint64 more)
{
    steps += more;
    const int percent = static_cast<int>(_done * 100 / qMax<qint64>(_total, 1));
    if (percent != _percent) {
        _percent = percent;
        emit progressed(percent);
    }
}

void ArchiveLoader::finish()
{
    _thread->wait();
    _thread.release()->deleteLater();
    emit loaded(std::exchange(_archive, {}));
}
