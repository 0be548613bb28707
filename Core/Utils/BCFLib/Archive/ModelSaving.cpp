#include "BCFModel.h"

#include "File.h"
#include "Io/CacheFolder.h"
#include "Io/Limits.h"
#include "Io/NativePath.h"
#include "Io/ReadAll.h"
#include "Project.h"
#include "Topic.h"
#include "Version.h"
#include "Viewpoint.h"
#include "Xml/Text.h"
#include "Zip/EntryNames.h"
#include "Zip/EntryWriter.h"
#include "Zip/SavedFile.h"

#include <QFile>
#include <QFileInfo>
#include <new>
#include <quazip/quazip.h>
#include <set>
#include <system_error>

namespace BCFLib {

namespace {

// The names at the root of every archive.
const QLatin1String versionName("bcf.version");
const QLatin1String projectName("project.bcfp");

/// The files that are to travel inside the archive. Not in a hash: names can be chosen such that all hash
/// alike.
std::set<QString> attachedFiles(const QList<Topic *> &topics)
{
    std::set<QString> paths;
    for (const Topic *topic : topics) {
        for (const File *file : topic->files()) {
            if (!file->isExternal() && !file->filename().isEmpty()) {
                paths.insert(file->filename());
            }
        }
    }
    return paths;
}

bool isSameFile(const QString &path, const QString &other)
{
    // A path may begin with a name that stands for several folders, see QDir::setSearchPaths().
    const auto resolved = [](const QString &path) { return nativePath(QFileInfo(path).absoluteFilePath()); };
    std::error_code isMissing;
    return std::filesystem::equivalent(resolved(path), resolved(other), isMissing);
}

/// The name in the archive is the one in the markup, which can't hold every character.
QString attachmentName(const QString &path)
{
    return Xml::writableText(QFileInfo(path).fileName());
}

/// Whether an archive at @p path can hold a file, whose name in it is given, with no harm to either.
bool canHold(const QString &path, const QString &attachment)
{
    const QString name = attachmentName(attachment);
    return !EntryNames::areAlike(name, versionName) && !EntryNames::areAlike(name, projectName)
        && !isSameFile(path, attachment);
}

/// A folder for each topic: that of its guid, where there can be such a one beside the others.
QStringList foldersOf(const QList<Topic *> &topics)
{
    QVector<EntryNames::Wish> wishes;
    for (const Topic *topic : topics) {
        const QString guid = topic->guid();
        const bool isPath = guid.contains(QLatin1Char('/'));
        wishes.append({isPath ? QString() : Xml::writableText(guid), QStringLiteral("topic")});
    }
    QStringList taken{versionName, projectName};
    for (const QString &path : attachedFiles(topics)) {
        taken.append(attachmentName(path));
    }
    return EntryNames::distinct(wishes, taken);
}

} // namespace

bool BCFModel::serialize(const QString &path)
{
    try {
        for (const QString &attachment : attachedFiles(topics())) {
            if (!canHold(path, attachment)) {
                return false;
            }
        }
        SavedFile file(path);
        QuaZip zip(&file);
        // Names in the encoding of the system may lack letters, and the archive would not record which
        // encoding was used.
        zip.setUtf8Enabled(true);
        if (!zip.open(QuaZip::mdCreate) || !writeArchive(&zip)) {
            return false;
        }
        zip.close();
        // A load looks for a project also where there is none.
        file.budget()->lookUp(projectName);
        file.budget()->setArchiveSize(file.size());
        // A device that takes everything keeps nothing.
        return zip.getZipError() == ZIP_OK && file.isSound() && file.size() > 0 && !file.budget()->isSpent();
    } catch (const std::bad_alloc &) {
        return false;
    }
}

bool BCFModel::writeArchive(QuaZip *zip) const
{
    if (Version *record = version()) {
        const auto write = [record](QIODevice *device) { return record->serialize(device); };
        if (!EntryWriter::write(zip, versionName, EntryWriter::textMode, write)) {
            return false;
        }
    }
    if (Project *record = project()) {
        const auto write = [record](QIODevice *device) { return record->serialize(device); };
        if (!EntryWriter::write(zip, projectName, EntryWriter::byteMode, write, EntryWriter::noPermissions)) {
            return false;
        }
    }
    const QList<Topic *> all = topics();
    const QStringList folders = foldersOf(all);
    QStringList files;
    for (int i = 0; i < all.size(); ++i) {
        if (!writeTopic(zip, all.at(i), folders.at(i), files)) {
            return false;
        }
    }
    // A file that several topics name is written once.
    for (const QString &path : std::set<QString>(files.begin(), files.end())) {
        if (!writeAttachment(zip, path)) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeTopic(QuaZip *zip, Topic *topic, const QString &folder, QStringList &files)
{
    const QString path = folder + QLatin1Char('/');
    const auto writeMarkup = [topic, &files](QIODevice *device) { return topic->serialize(device, files); };
    if (!EntryWriter::write(zip, path + QStringLiteral("markup.bcf"), EntryWriter::textMode, writeMarkup)) {
        return false;
    }
    const auto entries = topic->viewpointEntries();
    for (Viewpoint *viewpoint : topic->viewpoints()) {
        const QString file = entries.value(viewpoint).file;
        const QString image = entries.value(viewpoint).image;
        const auto writeViewpoint = [viewpoint](QIODevice *device) { return viewpoint->serialize(device); };
        const auto writeImage = [topic, viewpoint](QIODevice *device) {
            return topic->writeSnaphot(viewpoint->guid(), device);
        };
        if ((!file.isEmpty() && !EntryWriter::write(zip, path + file, EntryWriter::textMode, writeViewpoint))
            || (!image.isEmpty()
                && !EntryWriter::write(zip, path + image, EntryWriter::byteMode, writeImage))) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeAttachment(QuaZip *zip, const QString &path)
{
    const auto write = [&path](QIODevice *device) {
        QFile file(path);
        QByteArray bytes;
        return !CacheFolder::escapesCacheFolder(path) && file.open(QIODevice::ReadOnly)
            && readToEnd(&file, Limits::attachmentBytes, &bytes) == ReadOutcome::Complete
            && device->write(bytes) == bytes.size();
    };
    return EntryWriter::write(zip, attachmentName(path), EntryWriter::byteMode, write);
}

} // namespace BCFLib
