#include "Settings.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QSettings>
#include <QSplitter>

namespace {

constexpr int mostRecentFiles = 10;

constexpr QLatin1String geometryKey("window/geometry");
constexpr QLatin1String authorKey("author");
constexpr QLatin1String recentKey("recentFiles");

/// One object at a time, so that windows side by side see what the others have stored.
class Store : public QSettings
{
public:
    Store()
        : QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Tavrin"),
                    QStringLiteral("issue-browser"))
    {
    }
};

QString keyOf(const QObject *part)
{
    return QStringLiteral("window/") + part->objectName();
}

/// Calls @p deal with each part of that class that has a name.
template<class Part, class Deal>
void forEachNamed(const QWidget *window, Deal deal)
{
    for (Part *part : window->findChildren<Part *>()) {
        // Qt names splitters of its own, too.
        if (!part->objectName().isEmpty() && !part->objectName().startsWith(QLatin1String("qt_"))) {
            deal(part);
        }
    }
}

} // namespace

void Settings::restore(QWidget *window)
{
    const Store store;
    const auto restoreState = [&store](auto *part) {
        part->restoreState(store.value(keyOf(part)).toByteArray());
    };
    window->restoreGeometry(store.value(geometryKey).toByteArray());
    forEachNamed<QSplitter>(window, restoreState);
    forEachNamed<QHeaderView>(window, restoreState);
}

void Settings::store(const QWidget *window)
{
    Store store;
    const auto storeState = [&store](const auto *part) { store.setValue(keyOf(part), part->saveState()); };
    store.setValue(geometryKey, window->saveGeometry());
    forEachNamed<QSplitter>(window, storeState);
    forEachNamed<QHeaderView>(window, storeState);
}

bool Settings::remembers(const QHeaderView *header)
{
    return Store().contains(keyOf(header));
}

QString Settings::author()
{
    const QString account = qEnvironmentVariable("USER", qEnvironmentVariable("USERNAME"));
    return Store().value(authorKey, account).toString();
}

void Settings::setAuthor(const QString &author)
{
    Store().setValue(authorKey, author);
}

QStringList Settings::recentFiles()
{
    return Store().value(recentKey).toStringList();
}

void Settings::addRecentFile(const QString &path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    QStringList files = recentFiles();
    files.removeAll(absolute);
    files.prepend(absolute);
    Store().setValue(recentKey, QStringList(files.mid(0, mostRecentFiles)));
}
