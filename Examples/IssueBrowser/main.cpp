// issue-browser: shows issue archives in a window, and lets the user edit and save them.

#include "MainWindow.h"
#include "Translators.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

namespace {

constexpr int wrongUse = 2;

/// Saves a picture of the window as soon as an archive is shown, and ends the program.
void saveScreenshot(MainWindow &window, const QString &path)
{
    const auto save = [&window, path] { QApplication::exit(window.grab().save(path) ? 0 : 1); };
    // Some rounds of the event loop later all layouts have settled.
    QObject::connect(&window, &MainWindow::opened, &window, [save] { QTimer::singleShot(200, save); });
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("issue-browser"));
    installTranslators();
    QApplication::setApplicationDisplayName(QApplication::translate("main", "Issue Browser"));
    QApplication::setApplicationVersion(QStringLiteral(ISSUE_BROWSER_VERSION));

    QCommandLineParser parser;
    const QCommandLineOption screenshot(
        QStringLiteral("screenshot"),
        QApplication::translate("main", "Save a picture of the window with the archive to <file>, and end."),
        QApplication::translate("main", "file"));
    parser.setApplicationDescription(
        QApplication::translate("main", "Shows and edits archives of the BIM Collaboration Format."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOption(screenshot);
    parser.addPositionalArgument(QStringLiteral("archive"),
                                 QApplication::translate("main", "The archive to open."),
                                 QStringLiteral("[archive]"));
    parser.process(application);
    const QStringList archives = parser.positionalArguments();
    if (archives.size() > 1 || (parser.isSet(screenshot) && archives.isEmpty())) {
        parser.showHelp(wrongUse);
    }

    MainWindow window;
    if (parser.isSet(screenshot)) {
        saveScreenshot(window, parser.value(screenshot));
    }
    window.show();
    if (!archives.isEmpty()) {
        window.open(archives.first());
    }
    return QApplication::exec();
}
