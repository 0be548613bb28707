#include "RootFolders.h"

#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <quazip/quazipfileinfo.h>
#include <set>

namespace BCFLib {

namespace {

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

QStringList RootFolders::list(QuaZip *zip)
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

bool RootFolders::enter(QuaZipDir *dir, const QString &folder)
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
