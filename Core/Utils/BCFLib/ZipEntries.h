#ifndef BCFLIB_ZIPENTRIES_H
#define BCFLIB_ZIPENTRIES_H

#include <QFileDevice>
#include <QIODevice>
#include <QString>
#include <QStringList>

#include <functional>

class QuaZip;
class QuaZipDir;

namespace BCFLib {

/// What the model does with the entries of a zip.
namespace ZipEntries {

/// The folders at the root of an open archive, each with a "/" behind its name, in the order of the
/// archive's directory. Takes one walk over the directory, after which QuaZip finds any entry at once.
QStringList rootFolders(QuaZip *zip);

/// Moves @p dir, which stands anywhere, into one of the root folders. False for "../".
///
/// QuaZipDir::cd() would walk over the archive's whole directory to see whether the folder is there.
bool enterFolder(QuaZipDir *dir, const QString &folder);

constexpr QFileDevice::Permissions noPermissions;
constexpr QFileDevice::Permissions readPermissions =
    QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;

/// Writes an entry in text mode; false if it can't be opened, written or closed.
bool writeText(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &write);
/// Writes an entry; false if it can't be opened, written or closed.
bool writeBytes(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &write);
/// Writes an entry; false only if it can't be opened.
bool writeUnchecked(QuaZip *zip, const QString &name, QFileDevice::Permissions permissions,
                    const std::function<void(QIODevice *)> &write);

} // namespace ZipEntries
} // namespace BCFLib

#endif // BCFLIB_ZIPENTRIES_H
