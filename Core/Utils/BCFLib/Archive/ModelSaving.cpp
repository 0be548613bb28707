#include "BCFModel.h"

#include "Io/CacheFolder.h"
#include "Io/Limits.h"
#include "Io/ReadAll.h"
#include "Project.h"
#include "Topic.h"
#include "Version.h"
#include "Viewpoint.h"
#include "Xml/Text.h"
#include "Zip/EntryWriter.h"

#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <new>
#include <quazip/quazip.h>

namespace BCFLib {

bool BCFModel::serialize(const QString &path)
{
    QFile file(path);
    QuaZip zip(&file);
    try {
        if (!zip.open(QuaZip::mdCreate) || !writeArchive(&zip)) {
            return false;
        }
        zip.close();
    } catch (const std::bad_alloc &) {
        return false;
    }
    // The last bytes leave the file's buffer on closing, where a full disk shows in the file alone.
    return zip.getZipError() == ZIP_OK && file.error() == QFileDevice::NoError;
}

bool BCFModel::writeArchive(QuaZip *zip) const
{
    if (Version *record = version()) {
        const auto write = [record](QIODevice *device) { return record->serialize(device); };
        if (!ZipEntries::writeText(zip, QStringLiteral("bcf.version"), write)) {
            return false;
        }
    }
    if (Project *record = project()) {
        const auto write = [record](QIODevice *device) { record->serialize(device); };
        if (!ZipEntries::writeUnchecked(zip, QStringLiteral("project.bcfp"), ZipEntries::noPermissions,
                                        write)) {
            return false;
        }
    }
    QStringList files;
    for (Topic *topic : topics()) {
        if (!writeTopic(zip, topic, files)) {
            return false;
        }
    }
    // A file that several topics name is written once.
    for (const QString &path : QSet<QString>(files.begin(), files.end())) {
        if (!writeAttachment(zip, path)) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeTopic(QuaZip *zip, Topic *topic, QStringList &files) const
{
    // Names of entries go the way of the texts that name them.
    const QString folder = Xml::writableText(topic->guid()) + QLatin1Char('/');
    const auto writeMarkup = [topic, &files](QIODevice *device) { return topic->serialize(device, files); };
    if (!ZipEntries::writeText(zip, folder + QStringLiteral("markup.bcf"), writeMarkup)) {
        return false;
    }
    for (Viewpoint *viewpoint : topic->viewpoints()) {
        const auto writeViewpoint = [viewpoint](QIODevice *device) { return viewpoint->serialize(device); };
        const QString viewpointName = Xml::writableText(viewpoint->viewpointFilename());
        if (!viewpointName.isEmpty() && !ZipEntries::writeText(zip, folder + viewpointName, writeViewpoint)) {
            return false;
        }
        const auto writeImage = [topic, viewpoint](QIODevice *device) {
            return topic->writeSnaphot(viewpoint->guid(), device);
        };
        const QString imageName = Xml::writableText(viewpoint->snapshotFilename());
        if (!imageName.isEmpty() && !ZipEntries::writeBytes(zip, folder + imageName, writeImage)) {
            return false;
        }
    }
    return true;
}

bool BCFModel::writeAttachment(QuaZip *zip, const QString &path)
{
    bool isRead = false;
    const auto write = [&path, &isRead](QIODevice *device) {
        QFile file(path);
        QByteArray bytes;
        isRead = !CacheFolder::leadsAstray(path) && file.open(QIODevice::ReadOnly)
            && readToEnd(&file, Limits::attachmentBytes, &bytes) != ReadOutcome::TooLarge;
        if (isRead) {
            device->write(bytes);
        }
    };
    return ZipEntries::writeUnchecked(zip, QFileInfo(path).fileName(), ZipEntries::readPermissions, write)
        && isRead;
}

} // namespace BCFLib
