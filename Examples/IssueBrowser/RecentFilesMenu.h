#pragma once

#include <QMenu>

/// The archives that were opened last.
class RecentFilesMenu : public QMenu
{
    Q_OBJECT

public:
    explicit RecentFilesMenu(QWidget *parent = nullptr);

signals:
    void picked(const QString &path);

private:
    void fill();
};
