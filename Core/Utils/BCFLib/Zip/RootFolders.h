#ifndef BCFLIB_ZIP_ROOTFOLDERS_H
#define BCFLIB_ZIP_ROOTFOLDERS_H

#include <QStringList>

class QuaZip;
class QuaZipDir;

namespace BCFLib {
namespace RootFolders {

/// The folders at the root of an open archive, each with a "/" behind its name, in the order of the
/// archive's directory. Takes one walk over the directory, after which QuaZip finds any entry at once.
QStringList list(QuaZip *zip);

/// Moves @p dir, which stands anywhere, into one of the root folders. False for "../".
///
/// QuaZipDir::cd() would walk over the archive's whole directory to see whether the folder is there.
bool enter(QuaZipDir *dir, const QString &folder);

} // namespace RootFolders
} // namespace BCFLib

#endif // BCFLIB_ZIP_ROOTFOLDERS_H
