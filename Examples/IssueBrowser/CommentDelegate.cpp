#include "CommentDelegate.h"

#include "CommentTreeModel.h"

#include <QApplication>
#include <QPainter>
#include <QStaticText>
#include <QTreeView>
#include <QtMath>

namespace {

constexpr int margin = 5;

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
    painter->setFont(bold);
    painter->drawText(area, Qt::AlignLeft | Qt::AlignTop,
                      metrics.elidedText(index.data(CommentTreeModel::HeadingRole).toString(), Qt::ElideRight,
                                         area.width()));
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
