#include "Translators.h"

#include <QCoreApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace {

QString translationsOfQt()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

} // namespace

void installTranslators()
{
    // Not the languages after it: the texts are in English without any catalogue.
    const QString language = QLocale().uiLanguages().value(0).replace(QLatin1Char('-'), QLatin1Char('_'));
    const QDir programs(QCoreApplication::applicationDirPath());
    const QStringList folders{programs.filePath(QStringLiteral(TRANSLATIONS_FOLDER)),
                              programs.filePath(QStringLiteral(BUILT_TRANSLATIONS_FOLDER)),
                              translationsOfQt()};
    for (const char *const catalogue : {"issue-browser_", "bcflib_", "qtbase_"}) {
        auto *const translator = new QTranslator(QCoreApplication::instance());
        for (const QString &folder : folders) {
            if (translator->load(QLatin1String(catalogue) + language, folder)) {
                QCoreApplication::installTranslator(translator);
                break;
            }
        }
    }
}
