#pragma once

#include <QString>
#include <QStringList>

#include <map>
#include <quazip/unzip.h>

class QuaZip;
class QuaZipDir;

namespace BCFLib {

/// Where the entries of an archive stand, from one walk over its directory.
///
/// QuaZip can look entries up as well, but in a hash, and takes quadratic time over names that were chosen to
/// hash alike.
class Directory
{
public:
    /// Walks over the directory of an archive that is open for reading.
    void read(QuaZip *zip);

    /// The folders at the root, each with a "/" after its name, in the order of the directory.
    QStringList rootFolders() const { return _rootFolders; }

    /// Moves @p zip to the entry of that name, the last if there are several; false if there is none.
    ///
    /// Case counts where it does for QuaZip::setCurrentFile(), which is asked where a host opened the archive
    /// by a device of its own.
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
