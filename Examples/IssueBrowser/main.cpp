// issue-browser: shows issue archives in a window, and lets the user edit and save them.

#include "MainWindow.h"
#include "Translators.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {

constexpr int wrongUse = 2;

} // namespace

int main(int argc, char *argv[])
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("issue-browser"));
    installTranslators();
    QApplication::setApplicationDisplayName(QApplication::translate("main", "Issue Browser"));
    QApplication::setApplicationVersion(QStringLiteral(ISSUE_BROWSER_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QApplication::translate("main", "Shows and edits archives of the BIM Collaboration Format."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("archive"),
                                 QApplication::translate("main", "The archive to open."),
                                 QStringLiteral("[archive]"));
    parser.process(application);
    const QStringList archives = parser.positionalArguments();
    if (archives.size() > 1) {
        parser.showHelp(wrongUse);
    }

    MainWindow window;
    window.show();
    if (!archives.isEmpty()) {
        window.open(archives.first());
    }
    return QApplication::exec();
}
