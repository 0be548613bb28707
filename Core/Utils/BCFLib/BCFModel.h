#pragma once

#include "BCFLibExport.h"

#include <QDateTime>
#include <QList>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QStringList>

#include <memory>

class QuaZip;
class QuaZipDir;

namespace Tavrin {
class ProgressionSignals;
}

namespace BCFLib {

class GuidIndex;
struct Owners;
class Project;
class Topic;
class Version;
class Viewpoint;

/// One issue archive in memory: the root of the object tree and the door to loading and saving.
///
/// A model is made by Create() or Deserialize() and lives in a QSharedPointer. It owns, through
/// the QObject parent relation, one Version, at most one Project in normal use, and the topics;
/// the raw pointers that its operations hand out stay good until the object is removed or the
/// model is destroyed.
///
/// Nothing here throws. A failed load shows in version() being null or errorString() being
/// filled; isValid() turns that into a verdict and a text for the user. A model and everything
/// below it belong to the thread that made them and are used from one thread at a time.
class BCFLIB_EXPORT BCFModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _errorString READ errorString WRITE setErrorString)

public:
    ~BCFModel() override;

    /// An empty model with a version record for @p version, see createVersion().
    ///
    /// A host that gives a @p parent must let go of its last shared pointer before that parent
    /// is destroyed.
    static QSharedPointer<BCFModel> Create(const QString &version, QObject *parent);
    /// An empty model of the current version.
    static QSharedPointer<BCFModel> Create(QObject *parent);

    /// Loads the archive at @p path, reporting steps to @p progress.
    ///
    /// The result is null only where memory does not suffice for an empty model. What can't be read
    /// is left out, record by record; only an archive that can't be opened, a malformed version file
    /// and an attachment that can't be unpacked into the cache folder end the load early, with what
    /// was read so far.
    static QSharedPointer<BCFModel> Deserialize(const QString &path,
                                                const Tavrin::ProgressionSignals &progress);

    /// The version that new models get: "2.1".
    static QString currentBCFVersion();
    /// Whether @p version is exactly "1.0".
    static bool isBCF_1_0(const QString &version);
    /// Whether @p version is exactly "2.0".
    static bool isBCF_2_0(const QString &version);
    /// Whether @p object hangs under a model of version "2.0".
    static bool isBCF_2_0(QObject *object);
    /// The version of the model at or above @p object; empty without a model or a version record.
    static QString getVersion(QObject *object);
    /// Digits after the decimal point of every number in a written file: 16.
    static int numberPrecision();

    /// The first version record; null after a failed load.
    Version *version() const;
    /// Adds a version record: "2.0" for exactly that text, the current version for any other.
    ///
    /// An existing record stays first and is still what version() returns.
    Version *createVersion(const QString &version);

    /// The first project record, or null.
    Project *project() const;
    /// Adds a project, replacing one of the same @p guid. An empty guid gives a fresh one.
    Project *addProject(const QString &guid);

    /// All topics in the order in which they came under the model.
    QList<Topic *> topics() const;
    /// The first topic of that guid, or null.
    Topic *topic(const QString &guid) const;
    /// Adds a topic. An empty @p guid gives a fresh one; a guid already in use is not looked for.
    Topic *addTopic(const QString &title, const QString &creationAuthor, const QDateTime &creationDate,
                    const QString &guid);
    /// Deletes the first topic of that guid with all that hangs below it.
    void removeTopic(const QString &guid);

    /// What went wrong in the load that made this model; empty if nothing did.
    QString errorString() const { return _errorString; }
    void setErrorString(const QString &errorString) { _errorString = errorString; }

    /// Writes the model as a zip archive straight at @p path, replacing a file that is there.
    ///
    /// False means that some step failed; the archive as far as it was written stays at the path, but
    /// nothing happens to a file that the archive is to hold. True means that the archive can be read back:
    /// where topics, viewpoints or images would share a name in it, or have an invalid one, the save
    /// chooses others. The model itself is never changed by a save.
    bool serialize(const QString &path);

    /// Whether the archive is usable.
    bool isValid() const;
    /// Whether the archive is usable, with a @p message and a @p title to show to the user.
    ///
    /// @p filename is only named in the message. An archive without topics is usable, but comes
    /// with a warning. The texts mean something when the result is false or the message is filled.
    bool isValid(const QString &filename, QString &message, QString &title) const;

protected:
    /// An empty model without a version record. Saved so, it would be read as version 1.0; hosts call
    /// Create().
    explicit BCFModel(QObject *parent = nullptr);

    /// Keeps the look-up by guid in step with the topics, also where a class of a host keeps what comes to
    /// its childEvent() to itself.
    bool event(QEvent *event) override;

    /// Adds a version record whose two texts are empty.
    Version *addVersion();

    /// The version record of an open archive; that of version 1.0 if there is no such file.
    ///
    /// Null if the file is not well-formed. The caller owns the result.
    static Version *readVersion(QuaZip *zip);
    /// The project record of an archive that is open for reading; the caller owns it.
    ///
    /// Null if there is no file or it is not well-formed; the archive is as usable without.
    static Project *readProject(QuaZip *zip);
    /// Reads the markup of the folder that @p dir stands in; null if there is none that can be read.
    ///
    /// The caller owns the result, whose viewpoints still lack what stands in their own files. The
    /// names of attachments are appended to @p files.
    static Topic *readTopic(QuaZip *zip, QuaZipDir *dir, QStringList &files, const QString &version);
    /// Fills @p viewpoint from its file in that folder; one that is missing or malformed changes nothing.
    static void readViewpointFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint);
    /// Gives the image of @p viewpoint in that folder to the viewpoint's topic, if it is there.
    static void readSnapshotFile(QuaZip *zip, QuaZipDir *dir, Viewpoint *viewpoint);

private:
    friend struct Owners;

    void readArchive(const QString &path, const Tavrin::ProgressionSignals &progress);
    bool readEntries(QuaZip *zip, const Tavrin::ProgressionSignals &progress);
    QStringList readTopics(QuaZip *zip, const QStringList &folders, const QString &version,
                           const Tavrin::ProgressionSignals &progress);
    bool unpackAttachments(QuaZip *zip, const QStringList &files, const Tavrin::ProgressionSignals &progress);

    bool writeArchive(QuaZip *zip) const;
    static bool writeTopic(QuaZip *zip, Topic *topic, const QString &folder, QStringList &files);
    static bool writeAttachment(QuaZip *zip, const QString &path);

    QString _errorString;
    mutable std::unique_ptr<GuidIndex> _topicIndex;
};

} // namespace BCFLib
