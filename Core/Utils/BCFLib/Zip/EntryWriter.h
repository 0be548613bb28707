#pragma once

#include <QFileDevice>
#include <QIODevice>
#include <QString>

#include <functional>

class QuaZip;

/// Writes an entry of a zip.
namespace BCFLib::EntryWriter {

constexpr QIODevice::OpenMode textMode = QIODevice::WriteOnly | QIODevice::Text;
constexpr QIODevice::OpenMode byteMode = QIODevice::WriteOnly;

constexpr QFileDevice::Permissions noPermissions;
constexpr QFileDevice::Permissions readPermissions =
    QFileDevice::ReadOwner | QFileDevice::ReadGroup | QFileDevice::ReadOther;

/// Deflates what @p writeTo writes. False if the entry can't be opened, written or closed, or if who writes
/// it closes it.
bool write(QuaZip *zip, const QString &name, QIODevice::OpenMode mode,
           const std::function<bool(QIODevice *)> &writeTo,
           QFileDevice::Permissions permissions = readPermissions);

} // namespace BCFLib::EntryWriter
