#ifndef BCFLIB_ZIP_ENTRYWRITER_H
#define BCFLIB_ZIP_ENTRYWRITER_H

#include <QFileDevice>
#include <QIODevice>
#include <QString>

#include <functional>

class QuaZip;

namespace BCFLib {

/// Writes an entry of a zip.
namespace EntryWriter {

constexpr QFileDevice::Permissions noPermissions;
constexpr QFileDevice::Permissions readPermissions =
    QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;

/// False if the entry can't be opened, written or closed, or if who writes it closes it.
bool write(QuaZip *zip, const QString &name, QIODevice::OpenMode mode, QFileDevice::Permissions permissions,
           const std::function<bool(QIODevice *)> &writeTo);
/// The same in text mode, for all to read.
bool writeText(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &writeTo);
/// The same for bytes.
bool writeBytes(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &writeTo);

} // namespace EntryWriter
} // namespace BCFLib

#endif // BCFLIB_ZIP_ENTRYWRITER_H
