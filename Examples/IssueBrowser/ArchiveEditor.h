#pragma once

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Comment.h>

#include <QSharedPointer>
#include <QUndoStack>
#include <QVariant>

/// The one door through which the window changes an archive, so that every change can be undone.
///
/// The library's objects tell no one when they change; edited() does.
class ArchiveEditor : public QObject
{
    Q_OBJECT

public:
    explicit ArchiveEditor(QObject *parent = nullptr);

    /// Goes on with another archive, or with none, and forgets the edits to the present one.
    void setArchive(const QSharedPointer<BCFLib::BCFModel> &archive);
    /// Whether there is an archive whose load was not broken off: another one can't be saved.
    bool canEdit() const;
    /// Who makes the edits from now on.
    void setAuthor(const QString &author) { _author = author; }
    /// Whether the comment is the author's, who alone may change it.
    bool isOwn(const BCFLib::Comment *comment) const;
    /// The edits so far.
    QUndoStack *history() { return &_history; }

    /// Sets properties of the topic by their names, in one edit; false if that changes nothing.
    ///
    /// A blank title is left out: it would make the archive unusable.
    bool change(BCFLib::Topic *topic, QVariantMap values);
    BCFLib::Topic *addTopic(const QString &title);
    void removeTopic(BCFLib::Topic *topic);

    /// Adds a comment of this moment; @p answered and @p viewpoint may be null.
    BCFLib::Comment *addComment(BCFLib::Topic *topic, const QString &text, BCFLib::Comment *answered,
                                BCFLib::Viewpoint *viewpoint);
    /// Sets the text of a comment; false if it is blank or the same.
    bool changeText(BCFLib::Comment *comment, const QString &text);
    /// Removes the comment; those that answer it begin threads of their own.
    void removeComment(BCFLib::Comment *comment);

signals:
    /// The topic, or the comment of it, was changed, added or removed; null if it was no comment.
    void edited(BCFLib::Topic *topic, BCFLib::Comment *comment);

private:
    class Edit;
    void touch(QObject *object, QUndoCommand *edit) const;

    QSharedPointer<BCFLib::BCFModel> _archive;
    QString _author;
    QUndoStack _history;
};
