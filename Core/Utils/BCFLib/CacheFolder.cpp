#include "CacheFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace BCFLib {

CacheFolder::CacheFolder()
    : _dir(QStandardPaths::writableLocation(QStandardPaths::CacheLocation))
{
    if (!_dir.exists()) {
        _dir.mkpath(QStringLiteral("."));
    }
}

QString CacheFolder::path() const
{
    return _dir.absolutePath();
}

QString CacheFolder::pathOf(const QString &memberName) const
{
    return path() + QDir::separator() + memberName;
}

bool CacheFolder::write(const QString &memberName, const QByteArray &bytes) const
{
    const QString copyPath = _dir.absoluteFilePath(memberName);
    QFile copy(copyPath);
    if (!staysInside(copyPath) || !copy.open(QIODevice::WriteOnly)) {
        return false;
    }
    copy.write(bytes);
    return true;
}

bool CacheFolder::staysInside(const QString &path) const
{
    const QFileInfo copy(path);
    if (copy.isSymLink() && !copy.exists()) {
        return false;
    }
    // Where the path really leads, with every link on the way followed.
    const QString target = copy.exists() ? copy.canonicalFilePath() : copy.dir().canonicalPath();
    const QString root = _dir.canonicalPath();
    return !root.isEmpty() && (target == root || target.startsWith(root + QLatin1Char('/')));
}

} // namespace BCFLib
