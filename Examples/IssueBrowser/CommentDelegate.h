#ifndef ISSUEBROWSER_COMMENTDELEGATE_H
#define ISSUEBROWSER_COMMENTDELEGATE_H

#include <QStyledItemDelegate>

class QTreeView;

/// Draws a comment as a heading and its text below, wrapped to the width of the view and always as
/// plain text.
class CommentDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// For the one view that becomes its owner.
    explicit CommentDelegate(QTreeView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    const QTreeView *_view;
};

#endif
