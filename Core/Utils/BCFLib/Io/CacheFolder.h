#pragma once

#include <QDir>
#include <QString>

class QByteArray;

namespace BCFLib {

/// The application's cache folder, where the files that travel inside an archive are unpacked.
///
/// The folder is made if it does not exist. Nothing in it is ever deleted.
class CacheFolder
{
public:
    CacheFolder();

    /// Absolute path of the folder.
    QString path() const { return _dir.absolutePath(); }

    /// Absolute path of the copy of the entry of that name.
    QString pathOf(const QString &memberName) const { return path() + QDir::separator() + memberName; }

    /// Replaces the copy of the entry of that name, at once and as a whole.
    ///
    /// False if the file can't be written, also because its folder isn't there, or if the name,
    /// which comes from a stranger, leads out of the cache folder, by itself or by a symbolic link.
    bool write(const QString &memberName, const QByteArray &bytes) const;

    /// Whether @p path begins in the folder, but leads out of it, by itself or by a symbolic link.
    ///
    /// Only an archive from a stranger names such a file, which is neither written nor read then.
    static bool escapesCacheFolder(const QString &path);

private:
    QDir _dir;
};

} // namespace BCFLib
