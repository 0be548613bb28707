#include "RecentFilesMenu.h"

#include "Settings.h"

#include <QFileInfo>

RecentFilesMenu::RecentFilesMenu(QWidget *parent)
    : QMenu(tr("Open &Recent"), parent)
{
    setObjectName(QStringLiteral("recentFiles"));
    setToolTipsVisible(true);
    connect(this, &QMenu::aboutToShow, this, &RecentFilesMenu::fill);
    connect(this, &QMenu::triggered, this,
            [this](const QAction *action) { emit picked(action->data().toString()); });
}

void RecentFilesMenu::fill()
{
    clear();
    for (const QString &path : Settings::recentFiles()) {
        // An ampersand in a file name is no mark of a shortcut.
        QAction *const action =
            addAction(QFileInfo(path).fileName().replace(QLatin1Char('&'), QLatin1String("&&")));
        action->setData(path);
        action->setToolTip(path);
    }
    if (isEmpty()) {
        addAction(tr("None yet"))->setEnabled(false);
    }
}
