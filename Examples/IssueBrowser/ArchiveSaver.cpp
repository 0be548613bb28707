#include "ArchiveSaver.h"

#include <Core/Utils/BCFLib/BCFModel.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include <filesystem>

bool saveArchive(BCFLib::BCFModel &archive, const QString &path)
{
    // A load that was broken off has left something out, which must not get lost in the file too.
    if (!archive.errorString().isEmpty()) {
        return false;
    }
    // A save writes straight at its path and leaves a torso when it fails. So it goes to a folder
    // beside the goal, on the same disk, and takes the name only when it is complete.
    const QFileInfo goal(path);
    const QString target = goal.exists() ? goal.canonicalFilePath() : goal.absoluteFilePath();
    const QTemporaryDir folder(target + QStringLiteral(".XXXXXX"));
    const QString unfinished = folder.filePath(QStringLiteral("archive"));
    if (!folder.isValid() || !archive.serialize(unfinished)) {
        return false;
    }
    std::error_code error;
    std::filesystem::rename(unfinished.toStdU16String(), target.toStdU16String(), error);
    return !error;
}
