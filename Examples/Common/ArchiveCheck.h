#pragma once

#include <QCoreApplication>
#include <QStringList>

namespace BCFLib {
class BCFModel;
class Topic;
class Viewpoint;
}

/// Says in words why an archive can't be used, or not wholly.
///
/// BCFModel::isValid() gives one verdict; these functions name each rule that led to it, and what a
/// look at the file itself tells beside. All texts are plain: what they quote is a stranger's, so a
/// label that shows one has to be told Qt::PlainText.
class ArchiveCheck
{
    Q_DECLARE_TR_FUNCTIONS(ArchiveCheck)

public:
    enum Kind {
        Readable,
        /// A good archive of a version that the library reads only as far as it is like 2.1.
        ReadInPart,
        Missing,
        Folder,
        /// There, but the system doesn't let us read it, or it is no file at all.
        Unreadable,
        Empty,
        NoZip,
        /// Begins as a zip does, but its directory, which stands at the end, is not there.
        CutOff
    };

    struct File
    {
        Kind kind;
        /// As versionId() gives it.
        QString version;
        /// A sentence for the user; empty if the kind is Readable.
        QString text;
        /// How many folders of the archive hold a markup.bcf, each of which should bring a topic.
        int topicFolders;
        /// Whether a load can bring anything.
        bool canBeLoaded() const { return kind == Readable || kind == ReadInPart; }
    };

    /// Looks at the file, without a load.
    static File checkFile(const QString &path);

    /// The VersionId in the archive's bcf.version; null without that file, empty if it names none.
    ///
    /// A model keeps only "2.0" and "2.1".
    static QString versionId(const QString &path);
    /// Whether a load of an archive that says so leaves out what only other versions have.
    static bool isReadInPart(const QString &versionId);

    /// What is missing in the model that was loaded from the file though it is valid; empty if nothing is.
    ///
    /// A save to the same path would make it be missing for good.
    static QStringList warnings(const File &file, const BCFLib::BCFModel &model);

    /// Each reason why the model, loaded from a file that can be loaded, is not valid; empty if it is.
    static QStringList problems(const BCFLib::BCFModel &model);
    static QStringList problems(const BCFLib::Topic &topic);
    static QStringList problems(const BCFLib::Viewpoint &viewpoint);
};
