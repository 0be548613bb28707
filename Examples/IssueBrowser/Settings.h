#pragma once

#include <QStringList>

class QHeaderView;
class QWidget;

/// What the program remembers from one session to the next, in a file in the user's settings folder.
namespace Settings {

/// Puts the window back where it was, and its named splitters and table headers as the user had them.
void restore(QWidget *window);
void store(const QWidget *window);
/// Whether the sizes of that header come from an earlier session.
bool remembers(const QHeaderView *header);

/// Who writes; the name of the user's account until another one is stored.
QString author();
void setAuthor(const QString &author);

/// Archives that were shown or saved, the last one first.
QStringList recentFiles();
void addRecentFile(const QString &path);

} // namespace Settings
