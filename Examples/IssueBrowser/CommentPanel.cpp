#include "CommentPanel.h"

#include "ArchiveEditor.h"
#include "CommentDelegate.h"
#include "CommentTreeModel.h"
#include "FieldKeys.h"
#include "Settings.h"
#include "ViewpointChooser.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

#include <algorithm>

using BCFLib::Comment;
using BCFLib::Topic;

namespace {

constexpr int draftLines = 4;

} // namespace

CommentPanel::CommentPanel(ArchiveEditor *editor, QWidget *parent)
    : QWidget(parent)
    , _editor(editor)
    , _model(new CommentTreeModel(editor, this))
    , _tree(new QTreeView)
    , _text(new QPlainTextEdit)
    , _view(new ViewpointChooser)
    , _author(new QLineEdit(Settings::author()))
    , _add(new QPushButton(tr("&Add Comment")))
    , _reply(new QPushButton(tr("&Reply")))
    , _edit(addAction(tr("Edit &Comment"), Qt::Key_F2))
    , _delete(addAction(tr("Delete Co&mment"), QKeySequence::Delete))
{
    _tree->setObjectName(QStringLiteral("comments"));
    _text->setObjectName(QStringLiteral("draft"));
    _author->setObjectName(QStringLiteral("author"));
    _add->setObjectName(QStringLiteral("addComment"));
    _reply->setObjectName(QStringLiteral("reply"));
    _edit->setObjectName(QStringLiteral("editComment"));
    _delete->setObjectName(QStringLiteral("deleteComment"));

    _tree->setModel(_model);
    _tree->setItemDelegate(new CommentDelegate(_tree));
    _tree->setHeaderHidden(true);
    _tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    _tree->setAlternatingRowColors(true);
    _tree->setEditTriggers(QAbstractItemView::DoubleClicked);
    _tree->setExpandsOnDoubleClick(false);
    _tree->setContextMenuPolicy(Qt::ActionsContextMenu);
    // The heights of the rows follow the width.
    _tree->viewport()->installEventFilter(this);

    _author->setCursorPosition(0);
    _author->setPlaceholderText(tr("Your name"));
    _text->setPlaceholderText(tr("Write a comment"));
    _text->setTabChangesFocus(true);
    _text->setFixedHeight(_text->fontMetrics().lineSpacing() * draftLines);
    _add->setShortcut(QKeySequence(QStringLiteral("Ctrl+Return")));
    auto *const keys = new FieldKeys(this);
    keys->watch(_text);
    keys->watch(_author);
    layOut();
    connectParts();
}

QAction *CommentPanel::addAction(const QString &text, const QKeySequence &shortcut)
{
    auto *const action = new QAction(text, this);
    action->setShortcut(shortcut);
    // The same keys mean the topic where the table has the focus.
    action->setShortcutContext(Qt::WidgetShortcut);
    _tree->addAction(action);
    QWidget::addAction(action);
    return action;
}

void CommentPanel::connectParts()
{
    connect(_add, &QPushButton::clicked, this, [this] { add(false); });
    connect(_reply, &QPushButton::clicked, this, [this] { add(true); });
    connect(_edit, &QAction::triggered, this, [this] { _tree->edit(_tree->currentIndex()); });
    connect(_delete, &QAction::triggered, this, [this] { _editor->removeComment(current()); });
    connect(_text, &QPlainTextEdit::textChanged, this, &CommentPanel::updateButtons);
    connect(_author, &QLineEdit::textChanged, _editor, &ArchiveEditor::setAuthor);
    connect(_author, &QLineEdit::textChanged, this, &CommentPanel::updateButtons);
    connect(_author, &QLineEdit::textChanged, this, &CommentPanel::authorChanged);
    connect(_editor, &ArchiveEditor::edited, this, &CommentPanel::follow);
    connect(_model, &QAbstractItemModel::modelReset, _tree, &QTreeView::expandAll);
    connect(_tree->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        updateButtons();
        emit commentSelected(current());
    });
    _editor->setAuthor(author());
}

void CommentPanel::layOut()
{
    auto *const heading = new QLabel(tr("Co&mments"));
    auto *const as = new QLabel(tr("A&s"));
    heading->setBuddy(_tree);
    as->setBuddy(_author);
    auto *const grid = new QGridLayout(this);
    grid->addWidget(heading, 0, 0, 1, 4);
    grid->addWidget(_tree, 1, 0, 1, 4);
    grid->addWidget(_text, 2, 0, 1, 4);
    grid->addWidget(as, 3, 0);
    grid->addWidget(_author, 3, 1);
    grid->addWidget(_view, 3, 2, 1, 2);
    grid->addWidget(_reply, 4, 2);
    grid->addWidget(_add, 4, 3);
}

void CommentPanel::setTopic(Topic *topic)
{
    if (topic == _model->topic()) {
        return;
    }
    keepDraft();
    _model->setTopic(topic);
    _view->setTopic(topic);
    const Draft draft = _drafts.take(topic);
    _view->setViewpoint(draft.view);
    _text->setPlainText(draft.text);
    _text->moveCursor(QTextCursor::End);
    updateButtons();
}

void CommentPanel::submit()
{
    // Its editor, if there is one, is left by this.
    if (_tree->isAncestorOf(QApplication::focusWidget())) {
        _tree->setFocus();
    }
}

void CommentPanel::follow(Topic *topic, Comment *comment)
{
    if (comment && topic == _model->topic()) {
        const Comment *const before = current();
        _model->update(comment);
        setCurrent(_model->indexOf(comment).isValid() ? comment : before);
        updateButtons();
    }
}

void CommentPanel::keepDraft()
{
    Topic *const topic = _model->topic();
    if (topic && isWriting()) {
        _drafts.insert(topic, {_text->toPlainText(), _view->viewpoint()});
        connect(topic, &QObject::destroyed, this, [this, topic] { _drafts.remove(topic); });
    }
}

QString CommentPanel::author() const
{
    return _author->text();
}

bool CommentPanel::isWriting() const
{
    return !_text->toPlainText().trimmed().isEmpty();
}

bool CommentPanel::hasDraft() const
{
    return isWriting() || std::any_of(_drafts.keyBegin(), _drafts.keyEnd(), [](const Topic *topic) {
               return topic->parent();
           });
}

bool CommentPanel::addDrafts()
{
    if (hasDraft() && author().trimmed().isEmpty()) {
        _author->setFocus();
        return false;
    }
    keepDraft();
    _text->clear();
    const QHash<Topic *, Draft> drafts = std::exchange(_drafts, {});
    for (auto draft = drafts.cbegin(); draft != drafts.cend(); ++draft) {
        // A topic that was deleted may come back, but not here.
        if (draft.key()->parent()) {
            _editor->addComment(draft.key(), draft->text, nullptr, draft->view);
        }
    }
    return true;
}

Comment *CommentPanel::current() const
{
    return _model->comment(_tree->currentIndex());
}

void CommentPanel::setCurrent(const Comment *comment)
{
    const QModelIndex index = _model->indexOf(comment);
    _tree->setCurrentIndex(index);
    _tree->scrollTo(index);
}

bool CommentPanel::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Resize) {
        QMetaObject::invokeMethod(_tree, &QTreeView::doItemsLayout, Qt::QueuedConnection);
    }
    return QWidget::eventFilter(watched, event);
}

void CommentPanel::add(bool asReply)
{
    // A shortcut leaves the keyboard where it was, with an edit under way there.
    _text->setFocus();
    Comment *const added = _editor->addComment(_model->topic(), _text->toPlainText(),
                                               asReply ? current() : nullptr, _view->viewpoint());
    _text->clear();
    _view->setViewpoint(nullptr);
    setCurrent(added);
}

void CommentPanel::updateButtons()
{
    const bool canWrite = _model->topic() && _editor->canEdit();
    const bool canAdd = canWrite && isWriting() && !author().trimmed().isEmpty();
    _text->setReadOnly(!canWrite);
    _add->setEnabled(canAdd);
    _reply->setEnabled(canAdd && current());
    _edit->setEnabled(_editor->isOwn(current()));
    _delete->setEnabled(_edit->isEnabled());
}
