#include "CopyAction.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>

#include <algorithm>

void addCopyAction(QAbstractItemView *view, const QString &name)
{
    auto *const copy = new QAction(name, view);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(copy);
    view->setContextMenuPolicy(Qt::ActionsContextMenu);
    QObject::connect(copy, &QAction::triggered, view, [view] {
        QModelIndexList rows = view->selectionModel()->selectedRows();
        std::sort(rows.begin(), rows.end());
        QStringList texts;
        for (const QModelIndex &row : qAsConst(rows)) {
            texts << row.data(Qt::EditRole).toString();
        }
        QApplication::clipboard()->setText(texts.join(QLatin1Char('\n')));
    });
}
