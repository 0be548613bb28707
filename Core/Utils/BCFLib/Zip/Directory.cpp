#include "Directory.h"

#include "ArchiveDevice.h"

#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <quazip/quazipfileinfo.h>
#include <set>

namespace BCFLib {

namespace {

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
    for (bool more = zip->goToFirstFile(); more; more = zip->goToNextFile()) {
        // What QuaZip tells of a name alone is filled up with chance bytes where it is long.
        QuaZipFileInfo64 info;
        unz64_file_pos position;
        if (!zip->getCurrentFileInfo(&info) || unzGetFilePos64(zip->getUnzFile(), &position) != UNZ_OK) {
            continue;
        }
        _entries[keyOf(info.name)] = position;
        const QString folder = info.name.left(info.name.indexOf(QLatin1Char('/')) + 1);
        if (!folder.isEmpty() && known.insert(folder).second) {
            _rootFolders.append(folder);
        }
    }
    // From here on QuaZip takes it that there is a current entry.
    zip->goToFirstFile();
}

QStringList Directory::rootFolders() const
{
    return _rootFolders;
}

bool Directory::goTo(QuaZip *zip, const QString &name)
{
    ArchiveDevice *device = ArchiveDevice::of(zip);
    if (device == nullptr) {
        return zip->setCurrentFile(name, QuaZip::csDefault);
    }
    // A name takes time, too: a folder's can be long, and be asked for with each of its files.
    device->budget()->spendBytes(name.size());
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
    // Names that begin with "/" and those below "." lead back to the root.
    const bool isRoot = folder == QLatin1String("/") || folder == QLatin1String("./");
    dir->setPath(isRoot ? QString() : folder);
    return true;
}

} // namespace BCFLib
