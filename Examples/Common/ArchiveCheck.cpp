#include "ArchiveCheck.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Version.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipfileinfo.h>

#include <algorithm>
#include <memory>

namespace {

/// Reads bcf.version as a load does.
struct VersionFile : BCFLib::Version
{
    using Version::Deserialize;
};

constexpr int orthogonalBit = 2;

QString baseName(const QString &path)
{
    return QFileInfo(path).fileName();
}

bool isStoredOrDeflated(const QuaZip &zip)
{
    QuaZipFileInfo64 info;
    return zip.getCurrentFileInfo(&info) && (info.method == 0 || info.method == 8);
}

/// Of an archive that QuaZip can't open.
ArchiveCheck::Kind kindOfNoArchive(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly)) {
        return ArchiveCheck::Unreadable;
    }
    const QByteArray start = file.read(4);
    if (start.isEmpty()) {
        return ArchiveCheck::Empty;
    }
    return start == "PK\003\004" ? ArchiveCheck::CutOff : ArchiveCheck::NoZip;
}

ArchiveCheck::Kind kindOf(const QString &path)
{
    const QFileInfo info(path);
    if (info.isDir()) {
        return ArchiveCheck::Folder;
    }
    if (!info.exists()) {
        return ArchiveCheck::Missing;
    }
    // A pipe would keep us waiting.
    QuaZip zip(path);
    if (!info.isFile() || !zip.open(QuaZip::mdUnzip)) {
        return kindOfNoArchive(path);
    }
    return ArchiveCheck::Readable;
}

int countTopicFolders(const QString &path)
{
    QuaZip zip(path);
    if (!zip.open(QuaZip::mdUnzip)) {
        return 0;
    }
    // Some tools write names that a load finds no folder in.
    const QRegularExpression markup(QStringLiteral("^[^/\\\\]+[/\\\\]markup\\.bcf$"),
                                    QRegularExpression::CaseInsensitiveOption);
    QStringList markups = zip.getFileNameList().filter(markup);
    markups.removeDuplicates();
    return static_cast<int>(markups.size());
}

bool hasFileNamed(const QList<BCFLib::Viewpoint *> &viewpoints,
                  QString (BCFLib::Viewpoint::*fileName)() const, const QString &name)
{
    return std::any_of(viewpoints.begin(), viewpoints.end(), [&](const BCFLib::Viewpoint *viewpoint) {
        return baseName((viewpoint->*fileName)()) == name;
    });
}

} // namespace

QString ArchiveCheck::versionId(const QString &path)
{
    QuaZip zip(path);
    if (!zip.open(QuaZip::mdUnzip) || !zip.setCurrentFile(QStringLiteral("bcf.version"))
        || !isStoredOrDeflated(zip)) {
        return QString();
    }
    QuaZipFile entry(&zip);
    const std::unique_ptr<BCFLib::Version> version(VersionFile::Deserialize(&entry));
    if (version == nullptr) {
        return QString();
    }
    // A file that names none has an empty version, which is not the same as no file.
    return version->versionId().isEmpty() ? QStringLiteral("") : version->versionId();
}

bool ArchiveCheck::isReadInPart(const QString &versionId)
{
    const QStringList known{QStringLiteral("1.0"), QStringLiteral("2.0"), QStringLiteral("2.1")};
    return !versionId.isNull() && !known.contains(versionId);
}

ArchiveCheck::File ArchiveCheck::checkFile(const QString &path)
{
    File file{kindOf(path), QString(), QString(), 0};
    switch (file.kind) {
    case Missing:
        file.text = tr("There is no file \"%1\".").arg(path);
        break;
    case Folder:
        file.text = tr("\"%1\" is a folder, not an archive.").arg(path);
        break;
    case Unreadable:
        file.text = tr("\"%1\" can't be read.").arg(path);
        break;
    case Empty:
        file.text = tr("\"%1\" is empty.").arg(path);
        break;
    case NoZip:
        file.text = tr("\"%1\" is no zip archive, so it can't hold issues.").arg(path);
        break;
    case CutOff:
        file.text = tr("\"%1\" is cut off: its end is missing. Fetch it again.").arg(path);
        break;
    default:
        file.version = versionId(path);
        file.topicFolders = countTopicFolders(path);
        if (isReadInPart(file.version)) {
            file.kind = ReadInPart;
            file.text = file.version.isEmpty()
                ? tr("\"%1\" doesn't say its version, so it may hold more than is shown.").arg(path)
                : tr("\"%1\" is of version %2, which is read only in part: comments, viewpoints and more"
                     " may be missing.")
                      .arg(path, file.version);
        }
    }
    return file;
}

QStringList ArchiveCheck::warnings(const File &file, const BCFLib::BCFModel &model)
{
    QStringList warnings;
    if (file.kind == ReadInPart) {
        warnings << file.text;
    }
    const int unread = file.topicFolders - static_cast<int>(model.topics().size());
    if (unread > 0 && model.version() != nullptr) {
        warnings
            << tr("Topics that could not be read: %1. A save of this archive would lose them.").arg(unread);
    }
    return warnings;
}

QStringList ArchiveCheck::problems(const BCFLib::BCFModel &model)
{
    QStringList problems;
    if (!model.errorString().isEmpty()) {
        problems << model.errorString();
    } else if (model.version() == nullptr) {
        problems << tr("The file bcf.version in the archive is damaged, so nothing was read.");
    } else if (!model.version()->isValid()) {
        problems << tr("The version \"%1\" can't be saved.").arg(model.version()->versionId());
    }
    for (const BCFLib::Topic *topic : model.topics()) {
        const QString name = topic->title().isEmpty() ? topic->guid() : topic->title();
        for (const QString &problem : ArchiveCheck::problems(*topic)) {
            problems << tr("Topic \"%1\": %2").arg(name, problem);
        }
    }
    return problems;
}

QStringList ArchiveCheck::problems(const BCFLib::Topic &topic)
{
    QStringList problems;
    if (topic.isValid()) {
        return problems;
    }
    if (topic.guid().isEmpty()) {
        problems << tr("it has no guid");
    }
    if (topic.title().isEmpty()) {
        problems << tr("it has no title");
    }
    if (topic.creationAuthor().isEmpty()) {
        problems << tr("it has no creation author");
    }
    if (!topic.creationDate().isValid()) {
        problems << tr("it has no creation date, or none that can be read");
    }
    const QList<BCFLib::Viewpoint *> viewpoints = topic.viewpoints();
    for (int i = 0; i < viewpoints.size(); ++i) {
        for (const QString &problem : ArchiveCheck::problems(*viewpoints.at(i))) {
            problems << tr("viewpoint %1 %2").arg(i + 1).arg(problem);
        }
    }
    if (!viewpoints.isEmpty()
        && !hasFileNamed(viewpoints, &BCFLib::Viewpoint::viewpointFilename,
                         QStringLiteral("viewpoint.bcfv"))) {
        problems << tr("none of its viewpoint files is named viewpoint.bcfv");
    }
    // A topic can also hold an image whose viewpoint was removed, and asks for the name even then.
    const bool holdsImage = problems.isEmpty()
        || std::any_of(viewpoints.begin(), viewpoints.end(), [&](const BCFLib::Viewpoint *viewpoint) {
                                return !viewpoint->snapshotFilename().isEmpty()
                                    || topic.snapshot(viewpoint->guid()) != nullptr;
                            });
    if (holdsImage
        && !hasFileNamed(viewpoints, &BCFLib::Viewpoint::snapshotFilename, QStringLiteral("snapshot.png"))) {
        problems << tr("none of its images is named snapshot.png");
    }
    return problems;
}

QStringList ArchiveCheck::problems(const BCFLib::Viewpoint &viewpoint)
{
    QStringList problems;
    if (viewpoint.guid().isEmpty()) {
        problems << tr("has no guid");
    }
    if (!viewpoint.viewpointFilename().isEmpty() && (viewpoint.whichCameraIsSet() & orthogonalBit) != 0
        && viewpoint.orthogonalCamera().viewToWorldScale == 0.0) {
        problems << tr("has an orthogonal camera of scale 0");
    }
    const auto *const topic = qobject_cast<const BCFLib::Topic *>(viewpoint.parent());
    if (!viewpoint.snapshotFilename().isEmpty()
        && (topic == nullptr || topic->snapshot(viewpoint.guid()) == nullptr)) {
        problems << tr("lacks its image \"%1\"").arg(viewpoint.snapshotFilename());
    }
    return problems;
}
