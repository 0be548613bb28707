#include "CommentPanel.h"

#include "CommentDelegate.h"
#include "CommentTreeModel.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

namespace {

constexpr int draftLines = 4;

} // namespace

CommentPanel::CommentPanel(QWidget *parent)
    : QWidget(parent)
    , _model(new CommentTreeModel(this))
    , _tree(new QTreeView)
    , _text(new QPlainTextEdit)
    , _author(new QLineEdit(qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"))))
    , _add(new QPushButton(tr("&Add Comment")))
    , _reply(new QPushButton(tr("&Reply")))
{
    _tree->setObjectName(QStringLiteral("comments"));
    _text->setObjectName(QStringLiteral("draft"));
    _author->setObjectName(QStringLiteral("author"));
    _add->setObjectName(QStringLiteral("addComment"));
    _reply->setObjectName(QStringLiteral("reply"));

    _tree->setModel(_model);
    _tree->setItemDelegate(new CommentDelegate(_tree));
    _tree->setHeaderHidden(true);
    _tree->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    _tree->setAlternatingRowColors(true);
    // The heights of the rows follow the width.
    _tree->viewport()->installEventFilter(this);

    _author->setCursorPosition(0);
    _text->setPlaceholderText(tr("Write a comment"));
    _text->setTabChangesFocus(true);
    _text->setFixedHeight(_text->fontMetrics().lineSpacing() * draftLines);
    _add->setShortcut(Qt::CTRL + Qt::Key_Return);
    layOut();

    connect(_add, &QPushButton::clicked, this, [this] { add(false); });
    connect(_reply, &QPushButton::clicked, this, [this] { add(true); });
    connect(_text, &QPlainTextEdit::textChanged, this, &CommentPanel::updateButtons);
    connect(_author, &QLineEdit::textChanged, this, &CommentPanel::updateButtons);
    connect(_author, &QLineEdit::textChanged, this, &CommentPanel::authorChanged);
    connect(_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &current) {
                updateButtons();
                emit commentSelected(_model->comment(current));
            });
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
    grid->addWidget(_reply, 3, 2);
    grid->addWidget(_add, 3, 3);
}

void CommentPanel::setTopic(BCFLib::Topic *topic)
{
    _model->setTopic(topic);
    _tree->expandAll();
    updateButtons();
}

QString CommentPanel::author() const
{
    return _author->text();
}

bool CommentPanel::hasDraft() const
{
    return !_text->toPlainText().trimmed().isEmpty();
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
    const QModelIndex answered = asReply ? _tree->currentIndex() : QModelIndex();
    const QModelIndex added = _model->addComment(_text->toPlainText(), author(), answered);
    _text->clear();
    _tree->expand(added.parent());
    _tree->setCurrentIndex(added);
    _tree->scrollTo(added);
    emit commentAdded();
}

void CommentPanel::updateButtons()
{
    const bool canAdd = _model->topic() != nullptr && hasDraft() && !author().trimmed().isEmpty();
    _add->setEnabled(canAdd);
    _reply->setEnabled(canAdd && _tree->currentIndex().isValid());
}
