#ifndef BCFLIB_ZIP_ENTRYWRITER_H
#define BCFLIB_ZIP_ENTRYWRITER_H

#include <QFileDevice>
#include <QIODevice>
#include <QString>

#include <functional>

class QuaZip;

namespace BCFLib {

/// Writes the entries of a zip.
namespace ZipEntries {

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

#endif // BCFLIB_ZIP_ENTRYWRITER_H
