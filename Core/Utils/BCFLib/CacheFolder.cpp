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
    const QString relative = _dir.relativeFilePath(path);
    QString step = _dir.absolutePath();
    for (const QString &name : relative.split(QLatin1Char('/'))) {
        step += QLatin1Char('/') + name;
        if (name == QLatin1String("..") || QFileInfo(step).isSymLink()) {
            return false;
        }
    }
    return true;
}

} // namespace BCFLib
