#ifndef ISSUEBROWSER_ARCHIVESAVER_H
#define ISSUEBROWSER_ARCHIVESAVER_H

namespace BCFLib {
class BCFModel;
}

class QString;

/// Saves the archive to @p path, or leaves what stands there as it is and returns false, as for every
/// archive whose load was broken off.
bool saveArchive(BCFLib::BCFModel &archive, const QString &path);

#endif
