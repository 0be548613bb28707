#pragma once

#include <QStyledItemDelegate>

class QTreeView;

/// Draws a comment as a heading and its text below, wrapped to the width of the view and always as
/// plain text. Its editor takes several lines; Ctrl+Return or leaving it ends the edit, Escape gives it up.
class CommentDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// For the one view that becomes its owner.
    explicit CommentDelegate(QTreeView *view);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    const QTreeView *_view;
};
