#pragma once

#include "BCFLibExport.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QMap>
#include <QObject>
#include <QSharedPointer>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

class QDomDocument;
class QDomElement;
class QIODevice;

namespace BCFLib {

namespace Xml {
class Printer;
}

class BimSnippet;
class Comment;
class DocumentReference;
class File;
class GuidIndex;
struct Owners;
class RelatedTopic;
class Viewpoint;

/// One issue of an archive: its fields, what hangs under it, and the images of its viewpoints.
///
/// Made by BCFModel::addTopic(), by a load, or from its variant form; owned by its QObject parent,
/// as a rule the model. The topic owns its comments, viewpoints, files, document references,
/// snippet and related topics in the same way: every list is in the order in which its objects
/// came under the topic, and an object that is deleted, by the topic's operations or by the host
/// itself, leaves its list.
///
/// A setter stores its argument and does nothing else; in particular nothing updates the
/// modification date or author.
class BCFLIB_EXPORT Topic : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _topicType READ topicType WRITE setTopicType)
    Q_PROPERTY(QString _topicStatus READ topicStatus WRITE setTopicStatus)
    Q_PROPERTY(QString _title READ title WRITE setTitle)
    Q_PROPERTY(QString _referenceLink READ referenceLink WRITE setReferenceLink)
    Q_PROPERTY(QString _description READ description WRITE setDescription)
    Q_PROPERTY(QString _priority READ priority WRITE setPriority)
    Q_PROPERTY(int _index READ index WRITE setIndex)
    Q_PROPERTY(QStringList _labels READ labels WRITE setLabels)
    Q_PROPERTY(QDateTime _creationDate READ creationDate WRITE setCreationDate)
    Q_PROPERTY(QString _creationAuthor READ creationAuthor WRITE setCreationAuthor)
    Q_PROPERTY(QDateTime _modifiedDate READ modifiedDate WRITE setModifiedDate)
    Q_PROPERTY(QString _modifiedAuthor READ modifiedAuthor WRITE setModifiedAuthor)
    Q_PROPERTY(QString _assignedTo READ assignedTo WRITE setAssignedTo)

public:
    /// Builds a topic from its variant form.
    ///
    /// The classes of its comments and viewpoints follow the model above @p parent.
    Topic(const QVariant &variant, QObject *parent);
    ~Topic() override;

    /// The identifier of the topic, which is the object name and, where it can be, the folder's name in a
    /// saved archive.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid);

    /// Kind of issue, free text.
    QString topicType() const { return _topicType; }
    void setTopicType(const QString &topicType) { _topicType = topicType; }

    /// State of the issue, free text.
    QString topicStatus() const { return _topicStatus; }
    void setTopicStatus(const QString &topicStatus) { _topicStatus = topicStatus; }

    /// One line that says what the issue is; a topic without is not usable.
    QString title() const { return _title; }
    void setTitle(const QString &title) { _title = title; }

    /// Link to an outside reference.
    QString referenceLink() const { return _referenceLink; }
    void setReferenceLink(const QString &referenceLink) { _referenceLink = referenceLink; }

    /// The issue at length.
    QString description() const { return _description; }
    void setDescription(const QString &description) { _description = description; }

    /// Urgency as free text, not a number.
    QString priority() const { return _priority; }
    void setPriority(const QString &priority) { _priority = priority; }

    /// Position in a host's own numbering; -1 means that there is none. Nothing keeps it unique.
    int index() const { return _index; }
    void setIndex(int index) { _index = index; }

    /// Labels in file order, duplicates kept.
    QStringList labels() const { return _labels; }
    void setLabels(const QStringList &labels) { _labels = labels; }

    /// When the issue was made; local time after a load.
    QDateTime creationDate() const;
    void setCreationDate(const QDateTime &creationDate);

    /// Who made the issue, as a rule an e-mail address; a topic without is not usable.
    QString creationAuthor() const { return _creationAuthor; }
    void setCreationAuthor(const QString &creationAuthor) { _creationAuthor = creationAuthor; }

    /// Last change; invalid means none.
    QDateTime modifiedDate() const;
    void setModifiedDate(const QDateTime &modifiedDate);

    /// Who changed it last; empty means nobody.
    QString modifiedAuthor() const { return _modifiedAuthor; }
    void setModifiedAuthor(const QString &modifiedAuthor) { _modifiedAuthor = modifiedAuthor; }

    /// Who is to deal with the issue.
    QString assignedTo() const { return _assignedTo; }
    void setAssignedTo(const QString &assignedTo) { _assignedTo = assignedTo; }

    /// The comments, answers among them, in the order in which they came under the topic.
    QList<Comment *> comments() const;
    /// The first comment of that guid, or null.
    Comment *comment(const QString &guid) const;
    /// Adds a comment of the class that the model's version calls for.
    ///
    /// A comment of the same @p guid is deleted first; an empty guid gives a fresh one.
    Comment *addComment(const QString &guid);
    /// Deletes the comment of that guid, if any.
    void removeComment(const QString &guid);
    /// Deletes all comments.
    void removeComments();

    /// The viewpoints in the order in which they came under the topic.
    QList<Viewpoint *> viewpoints() const;
    /// The first viewpoint of that guid, or null.
    Viewpoint *viewpoint(const QString &guid) const;
    /// Adds a viewpoint of the class that the model's version calls for.
    ///
    /// A viewpoint of the same @p guid is deleted first; an empty guid gives a fresh one. The only
    /// viewpoint of a topic is named "viewpoint.bcfv"; one that is added beside others has no
    /// file name, and so is not saved, until the host gives it one.
    Viewpoint *addViewpoint(const QString &guid);
    /// Deletes the viewpoint of that guid, if any. Its image stays in the snapshot store.
    void removeViewpoint(const QString &guid);
    /// Deletes all viewpoints. Their images stay in the snapshot store.
    void removeViewpoints();

    /// Stores a copy of @p data as the image of the viewpoint of that guid, replacing an earlier one.
    ///
    /// False if @p data is null or the topic has no such viewpoint. The topic's only image is named
    /// "snapshot.png"; the names of others are the host's to set.
    bool addSnapshot(const QString &guid, QByteArray *data);
    /// The same with all bytes of @p device, which is opened for reading and stays open.
    ///
    /// False also if the device can't be opened or holds more than an image may.
    bool addSnapshot(const QString &guid, QIODevice *device);
    /// The stored image or null; owned by the topic, good until it is replaced or removed.
    QByteArray *snapshot(const QString &guid) const;
    /// Forgets the image of the viewpoint of that guid and clears the viewpoint's snapshot name.
    ///
    /// Does nothing if the topic has no such viewpoint. The names of other images stay as they are.
    void removeSnapshot(const QString &guid);

    /// The model files that the topic is about.
    QList<File *> files() const;
    /// Adds a file that is external and has no name yet.
    File *addFile();
    /// Deletes the entries; no file on disk is touched.
    void removeFiles();

    /// The documents that the topic refers to.
    QList<DocumentReference *> documentReferences() const;
    /// Adds a document reference; the guid is taken as it comes, also an empty or repeated one.
    DocumentReference *addDocumentReference(const QString &guid);
    /// Deletes all document references.
    void removeDocumentReferences();

    /// The first snippet, or null. Only this one is saved.
    BimSnippet *bimSnippet() const;
    /// Adds an empty snippet after any existing one, which stays the first.
    BimSnippet *addBimSnippet();
    /// Deletes the first snippet, if any.
    void removeBimSnippet();

    /// The links to other topics.
    QList<RelatedTopic *> relatedTopics() const;
    /// Adds a link to another topic; an empty @p guid gives a fresh one.
    RelatedTopic *addRelatedTopic(const QString &guid);
    /// Deletes the links, not the topics that they lead to.
    void removeRelatedTopics();

    /// Whether guid, title, author and date are there and all viewpoints are usable.
    bool isValid() const;

    /// The topic with all that hangs below it as nested maps and lists.
    QVariant toQVariant() const;
    /// Replaces everything that the topic holds, apart from its stored images, by what @p variant holds.
    ///
    /// Pointers to former comments, viewpoints and other children are invalid afterwards.
    void fromQVariant(const QVariant &variant);

protected:
    /// Keeps the look-up by guid in step with the children, also where a class of a host keeps what comes to
    /// its childEvent() to itself.
    bool event(QEvent *event) override;

    /// For BCFModel::addTopic() and the reader; an empty @p guid gives a fresh one.
    Topic(QString title, QString creationAuthor, QDateTime creationDate, const QString &guid,
          QObject *parent);

    /// Reads the markup file of a topic folder that was found in an archive of @p version.
    ///
    /// Null if @p device is null or holds no well-formed XML. The caller owns the result. The names
    /// of files that travel inside the archive are appended to @p files.
    static Topic *Deserialize(QIODevice *device, QStringList &files, const QString &version);
    /// Adds the files of the header; the result names those that travel inside the archive.
    QStringList readHeader(QDomDocument &doc);
    /// Fills the fields and adds document references, snippet and related topics.
    void readTopic(QDomDocument &doc, const QString &version);
    /// Adds viewpoints of the class that @p version calls for, with their file names. An entry without a
    /// guid is left out.
    void readViewpoints(QDomDocument &doc, const QString &version);
    /// Adds comments of the class that @p version calls for, and links them once all are there.
    void readComments(QDomDocument &doc, const QString &version);
    /// Supplies the values that isValid() insists on and that a version 1.0 file may lack.
    void fillMissingFields();

    /// Writes the markup file to an open device; always true. Closes the device where the file would be too
    /// large to be read back.
    ///
    /// The absolute paths of files that are to travel inside the archive are appended to @p files.
    bool serialize(QIODevice *device, QStringList &files);
    /// Appends the header, if there are files; the result holds the paths of those that are to travel
    /// inside the archive.
    QStringList writeHeader(QDomDocument &doc, QDomElement &parent);
    /// Appends the fields and attachments, leaving out what is absent.
    void writeTopic(QDomDocument &doc, QDomElement &parent);
    /// Appends each comment in the form of its own class.
    void writeComments(QDomDocument &doc, QDomElement &parent);
    /// Appends an entry with the file names for each viewpoint, as viewpointEntries() gives them.
    void writeViewpoints(QDomDocument &doc, QDomElement &parent);
    /// Writes the stored image of that guid; false if there is none, it is larger than what a load takes, or
    /// the write fails.
    bool writeSnaphot(const QString &guid, QIODevice *device);

    /// A new comment of the class that the model's version calls for.
    Comment *createComment(const QString &guid);
    /// A new viewpoint of the class that the model's version calls for, without file names.
    Viewpoint *createViewpoint(const QString &guid);

    /// Whether each viewpoint is usable and the files that every topic with viewpoints needs are named.
    bool allViewpointValid() const;

private:
    friend class BCFModel;
    friend class Viewpoint;
    friend struct Owners;

    /// The names under which a save writes a viewpoint's file and image; empty where there is none.
    struct ViewpointEntries
    {
        QString file;
        QString image;
    };

    /// Those of each viewpoint. They differ from the names that the viewpoints hold where several hold one
    /// name, or one that can't be.
    QMap<const Viewpoint *, ViewpointEntries> viewpointEntries() const;

    /// The guid itself, or a fresh one where it is empty.
    static QString guidOrNew(const QString &guid);
    void readAttachments(const QDomElement &topic);
    /// Has what is finished of a file printed, if one is being written.
    void printFinished(const QDomDocument &document) const;
    void writeAttachments(QDomDocument &doc, QDomElement &topic);
    void attachmentsFromQVariant(const QVariantMap &map);
    bool takeAsDescription(const QString &text);
    bool storeSnapshot(Viewpoint *viewpoint, const QByteArray &bytes);
    int positionOf(const Viewpoint *viewpoint) const;

    QString _topicType;
    QString _topicStatus;
    QString _title;
    QString _referenceLink;
    QString _description;
    QString _priority;
    int _index = -1;
    QStringList _labels;
    QDateTime _creationDate;
    QString _creationAuthor;
    QDateTime _modifiedDate;
    QString _modifiedAuthor;
    QString _assignedTo;
    /// Whether a date is still as its file has it. It is turned into local time when it is asked for: that
    /// takes longer than all else that is done with a date, and most are never asked for.
    bool _isCreationDateOfFile = false;
    bool _isModifiedDateOfFile = false;
    QMap<QString, QSharedPointer<QByteArray>> _snapshots;
    mutable std::unique_ptr<GuidIndex> _commentIndex;
    mutable std::unique_ptr<GuidIndex> _viewpointIndex;
    /// Only while a file is written.
    Xml::Printer *_printer = nullptr;
};

} // namespace BCFLib
