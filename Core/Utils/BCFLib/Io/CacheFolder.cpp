#include "CacheFolder.h"

#include "NativePath.h"

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <system_error>

namespace BCFLib {

namespace {

QDir location()
{
    return QDir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
}

/// Whether a path leads to a place below @p dir, with every link on the way followed.
bool standsBelow(const QDir &dir, const QString &path)
{
    const QFileInfo copy(path);
    if (copy.isSymLink() && !copy.exists()) {
        return false;
    }
    const QString target = copy.exists() ? copy.canonicalFilePath() : copy.dir().canonicalPath();
    const QString root = dir.canonicalPath();
    return !root.isEmpty() && (target == root || target.startsWith(root + QLatin1Char('/')));
}

} // namespace

CacheFolder::CacheFolder()
    : _dir(location())
{
    _dir.mkpath(QStringLiteral("."));
}

bool CacheFolder::write(const QString &memberName, const QByteArray &bytes) const
{
    const QString copyPath = _dir.absoluteFilePath(memberName);
    if (!standsBelow(_dir, copyPath)) {
        return false;
    }
    // Beside the copy, so that nobody ever sees a part of it, and what has its name now is not opened.
    QTemporaryFile part(QFileInfo(copyPath).path() + QStringLiteral("/XXXXXX.part"));
    if (!part.open() || part.write(bytes) != bytes.size() || !part.flush()) {
        return false;
    }
    part.close();
    if (part.error() != QFileDevice::NoError) {
        return false;
    }
    std::error_code failure;
    std::filesystem::rename(nativePath(part.fileName()), nativePath(copyPath), failure);
    part.setAutoRemove(static_cast<bool>(failure));
    return !failure;
}

bool CacheFolder::escapesCacheFolder(const QString &path)
{
    return path.startsWith(location().absolutePath() + QLatin1Char('/')) && !standsBelow(location(), path);
}

} // namespace BCFLib
