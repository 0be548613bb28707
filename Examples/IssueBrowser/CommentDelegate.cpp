#include "CommentDelegate.h"

#include "CommentTreeModel.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStaticText>
#include <QTreeView>
#include <QtMath>

namespace {

constexpr int margin = 5;
constexpr int editorLines = 5;

QFont headingFont(const QStyleOptionViewItem &option)
{
    QFont font = option.font;
    font.setBold(true);
    return font;
}

QStaticText wrapped(const QString &text, const QFont &font, int width)
{
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QStaticText layout(text);
    layout.setTextFormat(Qt::PlainText);
    layout.setTextOption(wrapping);
    layout.setTextWidth(qMax(width - 2 * margin, 1));
    layout.prepare(QTransform(), font);
    return layout;
}

} // namespace

CommentDelegate::CommentDelegate(QTreeView *view)
    : QStyledItemDelegate(view)
    , _view(view)
{
}

void CommentDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                            const QModelIndex &index) const
{
    const QStyle *const style = _view->style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &option, painter, _view);

    painter->save();
    const QPalette::ColorGroup group =
        option.state & QStyle::State_Enabled ? QPalette::Normal : QPalette::Disabled;
    const bool isSelected = option.state & QStyle::State_Selected;
    painter->setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
    const QFont bold = headingFont(option);
    const QFontMetrics metrics(bold);
    const QRect area = option.rect.adjusted(margin, margin, -margin, -margin);
    // The author gives way to what stands at the right, but keeps a third.
    const QFontMetrics plain(option.font);
    const QString stamp = plain.elidedText(index.data(CommentTreeModel::StampRole).toString(), Qt::ElideRight,
                                           area.width() * 2 / 3);
    const int rest = area.width() - plain.horizontalAdvance(stamp) - 2 * margin;
    painter->setFont(option.font);
    painter->drawText(area, Qt::AlignRight | Qt::AlignTop, stamp);
    painter->setFont(bold);
    painter->drawText(
        area, Qt::AlignLeft | Qt::AlignTop,
        metrics.elidedText(index.data(CommentTreeModel::AuthorRole).toString(), Qt::ElideRight, rest));
    painter->setFont(option.font);
    painter->drawStaticText(area.left(), area.top() + metrics.lineSpacing(),
                            wrapped(index.data().toString(), option.font, option.rect.width()));
    painter->restore();
}

QSize CommentDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    int width = _view->viewport()->width() - _view->indentation();
    for (QModelIndex above = index.parent(); above.isValid(); above = above.parent()) {
        width -= _view->indentation();
    }
    const QStaticText text = wrapped(index.data().toString(), option.font, width);
    const int height = QFontMetrics(headingFont(option)).lineSpacing() + qCeil(text.size().height());
    return QSize(1, height + 2 * margin);
}

QWidget *CommentDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                       const QModelIndex &) const
{
    auto *const editor = new QPlainTextEdit(parent);
    editor->setObjectName(QStringLiteral("commentEditor"));
    editor->setTabChangesFocus(true);
    return editor;
}

void CommentDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    QStyledItemDelegate::setEditorData(editor, index);
    qobject_cast<QPlainTextEdit *>(editor)->moveCursor(QTextCursor::End);
}

void CommentDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                           const QModelIndex &) const
{
    QRect area = option.rect;
    area.setHeight(qMax(area.height(), editor->fontMetrics().lineSpacing() * editorLines));
    // The last comment's editor stands over those before it.
    area.moveBottom(qMin(area.bottom(), qMax(_view->viewport()->height() - 1, area.height())));
    editor->setGeometry(area);
}

bool CommentDelegate::eventFilter(QObject *watched, QEvent *event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    const auto *const key = isKey ? static_cast<const QKeyEvent *>(event) : nullptr;
    if (!key || key->key() != Qt::Key_Return || !(key->modifiers() & Qt::ControlModifier)) {
        return QStyledItemDelegate::eventFilter(watched, event);
    }
    event->accept();
    if (event->type() == QEvent::KeyPress) {
        auto *const editor = qobject_cast<QWidget *>(watched);
        emit commitData(editor);
        emit closeEditor(editor);
    }
    return true;
}
