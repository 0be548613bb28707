#ifndef BCFLIB_ZIP_DIRECTORY_H
#define BCFLIB_ZIP_DIRECTORY_H

#include <QString>
#include <QStringList>

#include <map>
#include <quazip/unzip.h>

class QuaZip;
class QuaZipDir;

namespace BCFLib {

/// Where the entries of an archive stand, from one walk over its directory.
///
/// QuaZip keeps the names that it tells in a hash, and takes quadratic time over names that were chosen to
/// hash alike. So it is not asked.
class Directory
{
public:
    /// Walks over the directory of an archive that is open for reading.
    void read(QuaZip *zip);

    /// The folders at the root, each with a "/" behind its name, in the order of the directory.
    QStringList rootFolders() const;

    /// Moves @p zip to the entry of that name, the last if there are several; false if there is none.
    ///
    /// Whether case counts is as for QuaZip::setCurrentFile(), which does the work for archives that were not
    /// opened by way of an ArchiveDevice.
    static bool goTo(QuaZip *zip, const QString &name);

    /// Moves @p dir, which stands anywhere, into one of the root folders. False for "../".
    ///
    /// QuaZipDir::cd() would walk over the archive's whole directory to see whether the folder is there.
    static bool enter(QuaZipDir *dir, const QString &folder);

private:
    std::map<QString, unz64_file_pos> _entries;
    QStringList _rootFolders;
};

} // namespace BCFLib

#endif // BCFLIB_ZIP_DIRECTORY_H
