#include "EntryWriter.h"

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

} // namespace

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
