#include "Directory.h"

#include "ArchiveDevice.h"

#include <QTextCodec>
#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <set>

namespace BCFLib {

namespace {

/// The most that the two bytes for its length can say.
constexpr int longestName = 65535;

/// The name as it is looked up.
QString keyOf(const QString &name)
{
    const bool hasCase = QuaZip::convertCaseSensitivity(QuaZip::csDefault) == Qt::CaseSensitive;
    return hasCase ? name : name.toLower();
}

} // namespace

void Directory::read(QuaZip *zip)
{
    std::set<QString> known;
    QByteArray buffer(longestName, Qt::Uninitialized);
    for (bool more = zip->goToFirstFile(); more; more = zip->goToNextFile()) {
        unz64_file_pos position;
        unz_file_info64 info;
        if (unzGetFilePos64(zip->getUnzFile(), &position) != UNZ_OK
            || unzGetCurrentFileInfo64(zip->getUnzFile(), &info, buffer.data(), longestName, nullptr, 0,
                                       nullptr, 0)
                != UNZ_OK) {
            continue;
        }
        const QByteArray bytes = buffer.left(static_cast<int>(info.size_filename));
        const bool isUtf8 = (info.flag & UNZ_ENCODING_UTF8) != 0;
        const QString name = isUtf8 ? QString::fromUtf8(bytes) : zip->getFileNameCodec()->toUnicode(bytes);
        _entries[keyOf(name)] = position;
        const QString folder = name.left(name.indexOf(QLatin1Char('/')) + 1);
        if (!folder.isEmpty() && known.insert(folder).second) {
            _rootFolders.append(folder);
        }
    }
    // From here on QuaZip takes it that there is a current entry.
    zip->goToFirstFile();
}

bool Directory::goTo(QuaZip *zip, const QString &name)
{
    ArchiveDevice *device = ArchiveDevice::of(zip);
    if (device == nullptr) {
        return zip->setCurrentFile(name, QuaZip::csDefault);
    }
    device->budget()->lookUp(name);
    const auto &entries = device->directory()._entries;
    const auto entry = entries.find(keyOf(name));
    return !device->budget()->isSpent() && entry != entries.end()
        && unzGoToFilePos64(zip->getUnzFile(), &entry->second) == UNZ_OK;
}

bool Directory::enter(QuaZipDir *dir, const QString &folder)
{
    if (folder == QLatin1String("../")) {
        return false;
    }
    // What stands below "." leads back to the root, as does a name that begins with "/".
    dir->setPath(folder == QLatin1String("./") ? QStringLiteral("/") : folder);
    return true;
}

} // namespace BCFLib
