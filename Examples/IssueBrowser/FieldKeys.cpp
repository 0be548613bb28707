#include "FieldKeys.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

struct Typing
{
    bool canUndo = false;
    bool canRedo = false;
    bool isModified = false;
};

Typing typingIn(QObject *field)
{
    if (const auto *const text = qobject_cast<const QPlainTextEdit *>(field)) {
        const QTextDocument *const document = text->document();
        return {document->isUndoAvailable(), document->isRedoAvailable(), document->isModified()};
    }
    const auto *const choices = qobject_cast<const QComboBox *>(field);
    const auto *const line = choices ? choices->lineEdit() : qobject_cast<const QLineEdit *>(field);
    return line ? Typing{line->isUndoAvailable(), line->isRedoAvailable(), line->isModified()} : Typing();
}

} // namespace

void FieldKeys::watch(QWidget *field)
{
    field->installEventFilter(this);
    if (qobject_cast<QComboBox *>(field)) {
        field->setFocusPolicy(Qt::StrongFocus);
    }
}

bool FieldKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const auto *const key = static_cast<const QKeyEvent *>(event);
        const Typing typing = typingIn(watched);
        if ((key->matches(QKeySequence::Undo) && !typing.canUndo)
            || (key->matches(QKeySequence::Redo) && !typing.canUndo && !typing.canRedo)) {
            event->ignore();
            return true;
        }
        return false;
    }
    case QEvent::KeyPress:
        if (static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Escape && typingIn(watched).isModified) {
            emit escaped(watched);
            return true;
        }
        return false;
    case QEvent::Wheel: {
        const auto *const choices = qobject_cast<const QComboBox *>(watched);
        event->setAccepted(!choices || choices->hasFocus());
        return !event->isAccepted();
    }
    case QEvent::FocusOut: {
        const Qt::FocusReason reason = static_cast<const QFocusEvent *>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            emit left(watched);
        }
        return false;
    }
    default:
        return false;
    }
}
