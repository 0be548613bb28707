#pragma once

#include "BCFLibExport.h"
// Whole classes, not only their names: otherwise the links can't be read through the meta-object.
#include "Topic.h"
#include "Viewpoint.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

class QDomDocument;
class QDomElement;

namespace BCFLib {

/// One comment on a topic, in the form of version 2.1.
///
/// Made by Topic::addComment() or by a load and owned by its topic; a comment that a host
/// constructs itself has no topic link until setTopic() is called. Comments form a flat list:
/// threads exist only through replyToComment().
///
/// The links to topic, viewpoint and answered comment own nothing. A link whose target is
/// destroyed, by whomever, reads as null from then on.
class BCFLIB_EXPORT Comment : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _guid READ guid WRITE setGuid)
    Q_PROPERTY(QDateTime _date READ date WRITE setDate)
    Q_PROPERTY(QString _author READ author WRITE setAuthor)
    Q_PROPERTY(QString _comment READ comment WRITE setComment)
    Q_PROPERTY(BCFLib::Topic *_topic READ topic WRITE setTopic)
    Q_PROPERTY(BCFLib::Viewpoint *_viewpoint READ viewpoint WRITE setViewpoint)
    Q_PROPERTY(BCFLib::Comment *_replyToComment READ replyToComment WRITE setReplyToComment)
    Q_PROPERTY(QDateTime _modifiedDate READ modifiedDate WRITE setModifiedDate)
    Q_PROPERTY(QString _modifiedAuthor READ modifiedAuthor WRITE setModifiedAuthor)

public:
    /// A comment with that guid, taken as it comes, and without a date.
    Comment(const QString &guid, QObject *parent);
    ~Comment() override;

    /// The comment as a map with snake_case keys; the links stand in it as the guids of their targets.
    ///
    /// Guid, date, author, text and topic are always there, the rest only if it is set.
    virtual QVariant toQVariant() const;
    /// Overwrites guid and plain fields; a link is changed only if @p variant has its key.
    ///
    /// Links are looked up at once, below topic(): a reply to a comment that is made later is lost.
    virtual void fromQVariant(const QVariant &variant);

    /// The identifier, which is the object name.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid);

    /// When it was written; invalid until it is set.
    QDateTime date() const;
    void setDate(const QDateTime &date);

    /// Who wrote it, as a rule an e-mail address.
    QString author() const { return _author; }
    void setAuthor(const QString &author) { _author = author; }

    /// The text.
    QString comment() const { return _comment; }
    void setComment(const QString &comment) { _comment = comment; }

    /// The comment that this one answers, or null.
    Comment *replyToComment() const;
    void setReplyToComment(Comment *replyToComment);

    /// Last change; invalid means none.
    QDateTime modifiedDate() const;
    void setModifiedDate(const QDateTime &modifiedDate);

    /// Who changed it last; empty means nobody.
    QString modifiedAuthor() const { return _modifiedAuthor; }
    void setModifiedAuthor(const QString &modifiedAuthor) { _modifiedAuthor = modifiedAuthor; }

    /// The topic that it belongs to.
    Topic *topic() const;
    void setTopic(Topic *topic);

    /// The viewpoint that it speaks of, or null.
    Viewpoint *viewpoint() const;
    void setViewpoint(Viewpoint *viewpoint);

protected:
    /// Hands the event on to the owners that keep an index of guids.
    void childEvent(QChildEvent *event) override;

    /// Fills the comment from its element and notes in @p replies the guid that it answers.
    virtual void read(const QDomElement &element, QHash<Comment *, QString> &replies);
    /// Appends the comment's element to @p parent.
    virtual void write(QDomDocument &doc, QDomElement &parent) const;

private:
    friend class Topic;

    QDateTime _date;
    QString _author;
    QString _comment;
    QPointer<Comment> _replyToComment;
    QDateTime _modifiedDate;
    QString _modifiedAuthor;
    QPointer<Topic> _topic;
    QPointer<Viewpoint> _viewpoint;
    /// Whether a date is still as its file has it, see Topic.
    bool _isDateOfFile = false;
    bool _isModifiedDateOfFile = false;
};

} // namespace BCFLib
