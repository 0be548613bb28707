// bcf-inspect: shows what stands in issue archives, or saves one of them again.

#include "Archive.h"
#include "JsonWriter.h"
#include "LoadRunner.h"
#include "ProgressBar.h"
#include "Report.h"
#include "TopicPrinter.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Project.h>
#include <Core/Utils/BCFLib/Version.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <cstdio>

namespace {

enum ExitStatus { AllUsable = 0, SomeNotUsable = 1, WrongUse = 2 };

struct Options
{
    QStringList archives;
    bool json = false;
    bool save = false;
    QString saveTo;
};

void complain(const QString &text)
{
    std::fprintf(stderr, "bcf-inspect: %s\n", printableLine(text).toUtf8().constData());
}

/// Some texts name the archive already.
void complain(const QString &path, const QString &text)
{
    complain(text.contains(path) ? text : path + QStringLiteral(": ") + text);
}

QString sizeText(const QString &path)
{
    const QFileInfo file(path);
    return file.exists() ? countText(file.size()) + QStringLiteral(" bytes") : QStringLiteral("no such file");
}

QString versionText(const BCFLib::Version *version)
{
    return version ? QStringLiteral("%1 (%2)").arg(version->versionId(), version->detailedVersion())
                   : QString();
}

QString projectText(const BCFLib::Project *project)
{
    return project ? joined({project->name(), project->guid()}) : QString();
}

void printArchive(const Archive &archive, QTextStream &out)
{
    const BCFLib::BCFModel &model = *archive.model;
    Report report(out);
    report.heading(archive.path, QLatin1Char('='));
    report.field(QStringLiteral("Size"), sizeText(archive.path));
    report.field(QStringLiteral("Says version"), archive.file.version);
    report.field(QStringLiteral("Read as"), versionText(model.version()));
    report.field(QStringLiteral("Project"), projectText(model.project()));
    report.field(QStringLiteral("Load error"), model.errorString());
    for (const QString &warning : archive.warnings()) {
        report.field(QStringLiteral("Warning"), warning);
    }
    printVerdict(archive.problems(), report);
    report.field(QStringLiteral("Message"),
                 archive.message.isEmpty() ? QString()
                                           : archive.title + QStringLiteral(": ") + archive.message);
    TopicPrinter(model, report).printAll();
    out << '\n';
}

/// A save that fails leaves a broken file behind and the old one lost, so it goes to a file beside
/// the wanted one, which takes the name only when it is complete. After a load that was broken off there
/// is nothing complete to save.
bool save(BCFLib::BCFModel &model, const QString &path)
{
    const QString unfinished = path + QStringLiteral(".part");
    if (!model.version() || !model.errorString().isEmpty() || !model.serialize(unfinished)) {
        QFile::remove(unfinished);
        return false;
    }
    return std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(path).constData()) == 0;
}

bool isSameFile(const QString &path, const QString &other)
{
    return QFileInfo(path).canonicalFilePath() == QFileInfo(other).canonicalFilePath();
}

/// Why the archive is not to be saved to @p path although it is loaded; empty if nothing is against it.
QString objection(const Archive &archive, const QString &path)
{
    if (!archive.warnings().isEmpty() && isSameFile(archive.path, path)) {
        return QStringLiteral("read only in part, so it can be saved under another name only");
    }
    return QString();
}

bool inspect(const QString &path, const Options &options, QFile &out)
{
    ProgressBar bar(QFileInfo(path).fileName());
    const Archive archive = judged(loadInThread(path, bar), path);

    if (options.json) {
        writeJson(archive, out);
    } else {
        QTextStream text(&out);
        printArchive(archive, text);
    }
    for (const QString &warning : archive.warnings()) {
        complain(path, warning);
    }
    for (const QString &problem : archive.problems()) {
        complain(path, problem);
    }

    if (!options.save) {
        return archive.usable;
    }
    const QString reason = objection(archive, options.saveTo);
    if (!reason.isEmpty() || !save(*archive.model, options.saveTo)) {
        complain(options.saveTo + QStringLiteral(": ")
                 + (reason.isEmpty() ? QStringLiteral("can't be saved") : reason));
        return false;
    }
    return archive.usable;
}

/// Whatever the locale says: names on the command line are read and texts are written as UTF-8,
/// and the widths of characters are known. The application takes its locale from the environment.
void useUtf8()
{
    qputenv("LC_ALL", "C.UTF-8");
}

/// An error text if the program was called wrongly. Ends the program for --help and --version.
QString readCommandLine(QCommandLineParser &parser, Options &options)
{
    // Not the parser's own, which comes with one for the options that only programs with windows have.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                  QStringLiteral("Show the options and end."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    const QCommandLineOption json(QStringLiteral("json"),
                                  QStringLiteral("Print one JSON object for each archive, one on a line."));
    const QCommandLineOption saveTo(QStringLiteral("save"), QStringLiteral("Save what was loaded to <out>."),
                                    QStringLiteral("out"));
    parser.setApplicationDescription(
        QStringLiteral("Shows what stands in archives of the BIM Collaboration Format."));
    parser.addOption(json);
    parser.addOption(saveTo);
    parser.addPositionalArgument(QStringLiteral("archive"), QStringLiteral("The archives to show."),
                                 QStringLiteral("archive..."));

    if (!parser.parse(QCoreApplication::arguments())) {
        return parser.errorText();
    }
    if (parser.isSet(help)) {
        parser.showHelp();
    }
    if (parser.isSet(version)) {
        parser.showVersion();
    }

    options.archives = parser.positionalArguments();
    options.json = parser.isSet(json);
    options.save = parser.isSet(saveTo);
    options.saveTo = parser.value(saveTo);
    if (options.archives.isEmpty()) {
        return QStringLiteral("no archive given");
    }
    if (options.save && (options.archives.size() != 1 || options.saveTo.isEmpty())) {
        return QStringLiteral("--save takes a name and exactly one archive");
    }
    return QString();
}

} // namespace

int main(int argc, char *argv[])
{
    useUtf8();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("bcf-inspect"));
    QCoreApplication::setApplicationVersion(QStringLiteral(BCF_INSPECT_VERSION));

    QCommandLineParser parser;
    Options options;
    const QString error = readCommandLine(parser, options);
    if (!error.isEmpty()) {
        complain(error);
        std::fputs(qPrintable(parser.helpText()), stderr);
        return WrongUse;
    }

    QFile out;
    out.open(stdout, QIODevice::WriteOnly);
    ExitStatus status = AllUsable;
    for (const QString &path : options.archives) {
        if (!inspect(path, options, out)) {
            status = SomeNotUsable;
        }
    }
    if (!out.flush() || out.error() != QFileDevice::NoError) {
        complain(QStringLiteral("can't write the output: %1").arg(out.errorString()));
        status = SomeNotUsable;
    }
    return status;
}
