#include "ZipEntries.h"

#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipfileinfo.h>
#include <quazip/quazipnewinfo.h>
#include <set>
#include <zlib.h>

namespace BCFLib {

namespace {

constexpr int windowBits = -15;
constexpr int memoryLevel = 8;

bool openEntry(QuaZipFile *entry, const QString &name, QIODevice::OpenMode mode,
               QFileDevice::Permissions permissions)
{
    QuaZipNewInfo info(name);
    if (permissions != ZipEntries::noPermissions) {
        info.setPermissions(permissions);
    }
    return entry->open(mode, info, nullptr, 0, Z_DEFLATED, Z_DEFAULT_COMPRESSION, false, windowBits,
                       memoryLevel, Z_DEFAULT_STRATEGY);
}

bool writeChecked(QuaZip *zip, const QString &name, QIODevice::OpenMode mode,
                  const std::function<bool(QIODevice *)> &write)
{
    QuaZipFile entry(zip);
    if (!openEntry(&entry, name, mode, ZipEntries::readPermissions) || !write(&entry)) {
        return false;
    }
    entry.close();
    return entry.getZipError() == ZIP_OK;
}

/// The name of the entry that the zip stands at.
QString currentName(QuaZip *zip)
{
    // What QuaZip reads quickly is filled up with chance bytes where a name has more than 256 bytes,
    // which is at least 128 units of text. The information on the entry tells all of the name.
    QString name = zip->getCurrentFileName();
    if (name.size() < 128) {
        return name;
    }
    QuaZipFileInfo64 info;
    return zip->getCurrentFileInfo(&info) ? info.name : QString();
}

} // namespace

QStringList ZipEntries::rootFolders(QuaZip *zip)
{
    QStringList folders;
    // No hash: names can be chosen such that all hash alike.
    std::set<QString> known;
    for (bool more = zip->goToFirstFile(); more; more = zip->goToNextFile()) {
        const QString name = currentName(zip);
        const QString folder = name.left(name.indexOf(QLatin1Char('/')) + 1);
        if (!folder.isEmpty() && known.insert(folder).second) {
            folders.append(folder);
        }
    }
    return folders;
}

bool ZipEntries::enterFolder(QuaZipDir *dir, const QString &folder)
{
    if (folder == QLatin1String("../")) {
        return false;
    }
    // Names that begin with "/" and those below "." lead back to the root.
    const bool isRoot = folder == QLatin1String("/") || folder == QLatin1String("./");
    dir->setPath(isRoot ? QString() : folder);
    return true;
}

bool ZipEntries::writeText(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &write)
{
    return writeChecked(zip, name, QIODevice::WriteOnly | QIODevice::Text, write);
}

bool ZipEntries::writeBytes(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &write)
{
    return writeChecked(zip, name, QIODevice::WriteOnly, write);
}

bool ZipEntries::writeUnchecked(QuaZip *zip, const QString &name, QFileDevice::Permissions permissions,
                                const std::function<void(QIODevice *)> &write)
{
    QuaZipFile entry(zip);
    if (!openEntry(&entry, name, QIODevice::WriteOnly, permissions)) {
        return false;
    }
    write(&entry);
    return true;
}

} // namespace BCFLib
