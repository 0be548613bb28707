#include "ArchiveEditor.h"

#include <memory>

using BCFLib::Comment;
using BCFLib::Topic;

namespace {

/// Sets a property, and back.
class PropertyChange : public QUndoCommand
{
public:
    PropertyChange(QObject *object, QByteArray property, QVariant value, QUndoCommand *edit)
        : QUndoCommand(edit)
        , _object(object)
        , _property(std::move(property))
        , _other(std::move(value))
    {
    }

    void redo() override
    {
        const QVariant present = _object->property(_property);
        _object->setProperty(_property, _other);
        _other = present;
    }
    void undo() override { redo(); }

private:
    QObject *_object;
    QByteArray _property;
    QVariant _other;
};

/// Puts an object into the tree or takes it out, and back.
///
/// The object itself waits outside, so that it comes back with all that hangs below it, and earlier
/// edits go on knowing it.
class Presence : public QUndoCommand
{
public:
    /// An object that is to come stands in the tree already.
    Presence(QObject *object, bool isToCome, QUndoCommand *edit)
        : QUndoCommand(edit)
        , _object(object)
        , _parent(object->parent())
        , _place(_parent->children().indexOf(object))
        , _isToCome(isToCome)
    {
    }

    void redo() override { setPresent(_isToCome); }
    void undo() override { setPresent(!_isToCome); }

private:
    void setPresent(bool isPresent)
    {
        if (!isPresent) {
            _object->setParent(nullptr);
            _absent.reset(_object);
        } else if (_absent) {
            // A parent only appends: whoever stood behind the object has to go behind it again.
            const QObjectList later = _parent->children().mid(_place);
            _absent.release()->setParent(_parent);
            for (QObject *sibling : later) {
                sibling->setParent(nullptr);
                sibling->setParent(_parent);
            }
        }
    }

    QObject *_object;
    QObject *_parent;
    int _place;
    bool _isToCome;
    std::unique_ptr<QObject> _absent;
};

} // namespace

/// What a user sees as one edit; its steps are child commands.
class ArchiveEditor::Edit : public QUndoCommand
{
public:
    Edit(const QString &text, ArchiveEditor *editor, Topic *topic, Comment *comment = nullptr)
        : QUndoCommand(text)
        , _editor(editor)
        , _topic(topic)
        , _comment(comment)
    {
    }

    void redo() override
    {
        QUndoCommand::redo();
        emit _editor->edited(_topic, _comment);
    }
    void undo() override
    {
        QUndoCommand::undo();
        emit _editor->edited(_topic, _comment);
    }

private:
    ArchiveEditor *_editor;
    Topic *_topic;
    Comment *_comment;
};

ArchiveEditor::ArchiveEditor(QObject *parent)
    : QObject(parent)
{
}

void ArchiveEditor::setArchive(const QSharedPointer<BCFLib::BCFModel> &archive)
{
    _history.clear();
    _archive = archive;
}

bool ArchiveEditor::canEdit() const
{
    return _archive && _archive->errorString().isEmpty();
}

bool ArchiveEditor::isOwn(const Comment *comment) const
{
    return canEdit() && comment != nullptr && comment->author() == _author;
}

bool ArchiveEditor::change(Topic *topic, QVariantMap values)
{
    const QString title = QStringLiteral("_title");
    if (values.value(title, title).toString().trimmed().isEmpty()) {
        values.remove(title);
    }
    auto edit = std::make_unique<Edit>(tr("Change Topic"), this, topic);
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const QByteArray property = value.key().toLatin1();
        if (topic->property(property) != value.value()) {
            new PropertyChange(topic, property, value.value(), edit.get());
        }
    }
    if (edit->childCount() == 0) {
        return false;
    }
    touch(topic, edit.get());
    _history.push(edit.release());
    return true;
}

Topic *ArchiveEditor::addTopic(const QString &title)
{
    Topic *const topic = _archive->addTopic(title, _author, QDateTime::currentDateTime(), QString());
    auto *const edit = new Edit(tr("New Topic"), this, topic);
    new Presence(topic, true, edit);
    _history.push(edit);
    return topic;
}

void ArchiveEditor::removeTopic(Topic *topic)
{
    auto *const edit = new Edit(tr("Delete Topic"), this, topic);
    new Presence(topic, false, edit);
    _history.push(edit);
}

Comment *ArchiveEditor::addComment(Topic *topic, const QString &text, Comment *answered,
                                   BCFLib::Viewpoint *viewpoint)
{
    Comment *const comment = topic->addComment(QString());
    comment->setComment(text);
    comment->setAuthor(_author);
    comment->setDate(QDateTime::currentDateTime());
    comment->setReplyToComment(answered);
    comment->setViewpoint(viewpoint);

    auto *const edit = new Edit(tr("Add Comment"), this, topic, comment);
    new Presence(comment, true, edit);
    touch(topic, edit);
    _history.push(edit);
    return comment;
}

bool ArchiveEditor::changeText(Comment *comment, const QString &text)
{
    if (text.trimmed().isEmpty() || text == comment->comment()) {
        return false;
    }
    auto *const topic = qobject_cast<Topic *>(comment->parent());
    auto *const edit = new Edit(tr("Edit Comment"), this, topic, comment);
    new PropertyChange(comment, "_comment", text, edit);
    touch(comment, edit);
    touch(topic, edit);
    _history.push(edit);
    return true;
}

void ArchiveEditor::removeComment(Comment *comment)
{
    auto *const topic = qobject_cast<Topic *>(comment->parent());
    auto *const edit = new Edit(tr("Delete Comment"), this, topic, comment);
    for (Comment *other : topic->comments()) {
        if (other->replyToComment() == comment) {
            new PropertyChange(other, "_replyToComment", QVariant::fromValue<Comment *>(nullptr), edit);
        }
    }
    new Presence(comment, false, edit);
    touch(topic, edit);
    _history.push(edit);
}

void ArchiveEditor::touch(QObject *object, QUndoCommand *edit) const
{
    new PropertyChange(object, "_modifiedDate", QDateTime::currentDateTime(), edit);
    new PropertyChange(object, "_modifiedAuthor", _author, edit);
}
