#include "TestArchive.h"

#include <quazip/quazip.h>
#include <quazip/quazipdir.h>
#include <quazip/quazipfile.h>
#include <sys/stat.h>

using Model = QSharedPointer<BCFLib::BCFModel>;

namespace {

/// Loads an archive and tells the calls on its progress: "+n" is more to do, "n" is done.
QStringList progressOf(const QString &path, Model *model)
{
    using Tavrin::ProgressionSignals;
    const ProgressionSignals progression;
    QStringList calls;
    QObject::connect(&progression, &ProgressionSignals::addMaxSig,
                     [&calls](qint64 steps) { calls.append('+' + QString::number(steps)); });
    QObject::connect(&progression, &ProgressionSignals::addStepsSig,
                     [&calls](qint64 steps) { calls.append(QString::number(steps)); });
    *model = BCFLib::BCFModel::Deserialize(path, progression);
    return calls;
}

QByteArray markup(const QString &title, const QByteArray &attachment = QByteArray())
{
    return "<Markup><Topic><Title>" + title.toUtf8()
        + "</Title></Topic><Header><File isExternal='false'><Filename>" + attachment
        + "</Filename></File></Header></Markup>";
}

QStringList titles(const Model &model)
{
    return tellAll(model.data(), "BCFLib::Topic", "_title");
}

/// The titles that QuaZip's own walk over the folders comes by, step by step.
QStringList titlesOfPlainWalk(const QString &path, int *folderCount)
{
    QStringList result;
    QuaZip zip(path);
    zip.open(QuaZip::mdUnzip);
    QuaZipDir dir(&zip);
    zip.setCurrentFile("project.bcfp");
    zip.setCurrentFile("bcf.version");
    const QStringList folders = dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::NoSort);
    *folderCount = folders.size();
    for (const QString &folder : folders) {
        if (dir.cd(folder)) {
            QuaZipFile file(&zip);
            if (zip.setCurrentFile(dir.path() + "/markup.bcf") && file.open(QIODevice::ReadOnly)) {
                result.append(QString(file.readAll()).section("Title>", 1, 1).section('<', 0, 0));
            }
            dir.cd("..");
        }
    }
    return result;
}

} // namespace

class TestArchiveLoading : public QObject
{
    Q_OBJECT

private slots:
    void versions_data();
    void versions();
    void loadsThatEndEarly();
    void projects();
    void foldersAreThoseOfThePlainWalk_data();
    void foldersAreThoseOfThePlainWalk();
    void attachments_data();
    void attachments();
    void aFolderOfVersion1HoldsAViewpointThatNobodyLists();
};

void TestArchiveLoading::versions_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("record");
    QTest::addColumn<bool>("isListForm");

    const auto file = [](const QByteArray &id) {
        return "<Version VersionId='" + id + "'><DetailedVersion>d</DetailedVersion></Version>";
    };
    QTest::newRow("no version file means 1.0, held as 2.0") << QByteArray() << "2.0|2.0 RC" << true;
    QTest::newRow("1.0 is held as 2.0") << file("1.0") << "2.0|2.0 RC" << true;
    QTest::newRow("2.0 keeps its record") << file("2.0") << "2.0|d" << true;
    QTest::newRow("2.1 keeps its record") << file("2.1") << "2.1|d" << false;
    QTest::newRow("no detail is needed") << QByteArray("<Version VersionId='2.1'/>") << "2.1|" << false;
    QTest::newRow("3.0 is read like 2.1, held as 2.0") << file("3.0") << "2.0|2.0 RC" << false;
    QTest::newRow("a blank makes another version") << file("2.0 ") << "2.0|2.0 RC" << false;
    QTest::newRow("another root tells no version") << QByteArray("<x/>") << "2.0|2.0 RC" << false;
}

void TestArchiveLoading::versions()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, record);
    QFETCH(bool, isListForm);

    TestArchive archive{QString()};
    if (!file.isNull()) {
        archive.add("bcf.version", file);
    }
    const Model model = archive.addTopic("", "<Comment/><Viewpoints Guid='v'/>").load();
    QCOMPARE(tellAll(model.data(), "BCFLib::Version", "_versionId _detailedVersion"), QStringList(record));
    QCOMPARE(tellAll(model.data(), "BCFLib::Viewpoint", "objectName").size(), 1);
    QCOMPARE(tellAll(model.data(), "BCF_2_0_Lib::Viewpoint", "objectName").size(), int(isListForm));
    QCOMPARE(tellAll(model.data(), "BCF_2_0_Lib::Comment", "objectName").size(), int(isListForm));
}

void TestArchiveLoading::loadsThatEndEarly()
{
    for (const QByteArray file : {"", "<Version VersionId='2.1'", "<Version>"}) {
        TestArchive archive{QString()};
        archive.add("bcf.version", file).add("project.bcfp", "<ProjectExtension/>").addTopic("");
        Model model;
        QCOMPARE(progressOf(archive.write(), &model), QStringList("+1"));
        QVERIFY(model->version() == nullptr && model->project() != nullptr && model->topics().isEmpty());
        QCOMPARE(model->errorString(), QString());
    }
}

void TestArchiveLoading::projects()
{
    const QByteArray project = "<Project ProjectId='p'><Name>n</Name></Project>";
    const QMap<QByteArray, QStringList> expected{
        {"<ProjectExtension><ExtensionSchema>e</ExtensionSchema>" + project + "</ProjectExtension>",
         {"p|n|e"}},
        {"<ProjectExtension><ExtensionSchema>e</ExtensionSchema></ProjectExtension>", {"||e"}},
        {project, {"||"}},
        {"<ProjectExtension>" + project, {}}};
    for (const QByteArray &file : expected.keys()) {
        const Model model = TestArchive().add("project.bcfp", file).addTopic("").load();
        QCOMPARE(tellAll(model.data(), "BCFLib::Project", "objectName _name _extensionSchema"),
                 expected.value(file));
        QCOMPARE(model->topics().size(), 1);
    }
}

void TestArchiveLoading::foldersAreThoseOfThePlainWalk_data()
{
    QTest::addColumn<QStringList>("names");

    const QString m = "/markup.bcf";
    QTest::newRow("in any order, one without a markup") << QStringList{"z" + m, "b/viewpoint.bcfv", "a" + m};
    QTest::newRow("a folder that appears again later") << QStringList{"a/x", "b" + m, "a" + m, "b/x"};
    QTest::newRow("folder entries") << QStringList{"a/", "b/", "b" + m, "c/"};
    QTest::newRow("nested folders") << QStringList{"a/b" + m, "c/d" + m, "c" + m};
    QTest::newRow("names that begin with a slash") << QStringList{"a" + m, m, "/b" + m, "markup.bcf"};
    QTest::newRow("names below . and /") << QStringList{"." + m, "a" + m, "./b" + m, m};
    QTest::newRow("names below ..") << QStringList{".." + m, "a" + m, "../a" + m, "a/.." + m};
    QTest::newRow("doubled slashes") << QStringList{"a/" + m, "b" + m, "//c" + m};
    QTest::newRow("backslashes") << QStringList{"a\\markup.bcf", "b\\c" + m};
    QTest::newRow("blanks, dots and wildcards")
        << QStringList{" " + m, "a b " + m, "..." + m, ".a" + m, "*" + m};
    QTest::newRow("letters beyond ASCII") << QStringList{QString::fromUtf8("\xC3\xBC\xF0\x9F\x8F\xA0") + m};
    QTest::newRow("names that differ in case") << QStringList{"a" + m, "A" + m, "B/Markup.bcf"};
    QTest::newRow("a file and a folder of one name") << QStringList{"a", "a" + m};
    QTest::newRow("an entry that stands there twice") << QStringList{"a" + m, "b" + m, "a" + m};
    QTest::newRow("no folder") << QStringList{"a"};
    QTest::newRow("a line end") << QStringList{"a\n" + m};
}

void TestArchiveLoading::foldersAreThoseOfThePlainWalk()
{
    QFETCH(QStringList, names);

    TestArchive archive;
    for (int i = 0; i < names.size(); ++i) {
        archive.add(names.at(i), markup(QString::number(i)));
    }
    int folderCount = 0;
    const QStringList expected = titlesOfPlainWalk(archive.write(), &folderCount);
    Model model;
    const QStringList calls = progressOf(archive.path(), &model);
    QCOMPARE(titles(model), expected);
    QCOMPARE(calls.mid(0, 2), QStringList({"+1", '+' + QString::number(folderCount)}));
    QVERIFY(calls.size() == folderCount + 3 && calls.count("1") == folderCount + 1);
}

void TestArchiveLoading::attachments_data()
{
    QTest::addColumn<QByteArray>("filename");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QString>("error");

    const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    const QString unwritable = "Can't write in cache path \"" + cache + '"';
    const auto row = [](const char *name, const char *filename, const char *member, const QString &error) {
        QTest::newRow(name) << QByteArray(filename) << QString(member) << error;
    };
    row("a leading ../ goes", "../a.ifc", "a.ifc", "");
    row("what has its name is not opened", "../pipe", "pipe", "");
    row("so does one inside", "../../a../b.ifc", "ab.ifc", "");
    row("a plain name is taken whole", "a b.ifc", "a b.ifc", "");
    row("it may be missing", "../no.ifc", "no.ifc", "File \"no.ifc\" doesn't exist in bcfzip");
    row("its folder is not made", "x/a.ifc", "x/a.ifc", unwritable);
    row("it can't leave the cache", "..././a.ifc", "../a.ifc", unwritable);
}

void TestArchiveLoading::attachments()
{
    QFETCH(QByteArray, filename);
    QFETCH(QString, member);
    QFETCH(QString, error);

    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    QFile copy(cache.path() + '/' + member);
    cache.mkpath(".");
    copy.remove();
    if (member == "pipe") {
        QVERIFY(mkfifo(QFile::encodeName(copy.fileName()), S_IRWXU) == 0);
    } else if (error.isEmpty()) {
        QVERIFY(copy.open(QIODevice::WriteOnly) && copy.write("longer, from an earlier load") > 0);
        copy.close();
    }
    TestArchive archive;
    archive.add("a/markup.bcf", markup("a", filename)).add("b/markup.bcf", markup("b"));
    if (!error.startsWith("File")) {
        archive.add(member, "ISO");
    }
    const Model model = archive.load();
    QCOMPARE(model->errorString(), error);
    QCOMPARE(titles(model), QStringList({"a", "b"}));
    QCOMPARE(tellAll(model->topics().at(0), "BCFLib::File", "_filename"), QStringList(copy.fileName()));
    QCOMPARE(copy.open(QIODevice::ReadOnly), error.isEmpty());
    QVERIFY(!copy.isOpen() || copy.readAll() == "ISO");
}

void TestArchiveLoading::aFolderOfVersion1HoldsAViewpointThatNobodyLists()
{
    TestArchive archive{QString()};
    archive.addTopic("", "<Viewpoints Guid='v'><Viewpoint>viewpoint.bcfv</Viewpoint></Viewpoints>")
        .add("t/viewpoint.bcfv",
             "<VisualizationInfo><Components><Component IfcGuid='list'/><Selection>"
             "<Component IfcGuid='set'/></Selection></Components></VisualizationInfo>");
    const Model model = archive.load();
    const QList<BCFLib::Viewpoint *> viewpoints = model->topics().constFirst()->viewpoints();
    QCOMPARE(viewpoints.size(), 2);
    QCOMPARE(tellAll(viewpoints.at(0), "BCF_2_0_Lib::Component", "objectName"), QStringList("list"));
    // In the sets form, though the other is in the list form.
    QCOMPARE(tellAll(viewpoints.at(1), "BCFLib::Component", "objectName"), QStringList("set"));
    QCOMPARE(tell(viewpoints.at(1), "_viewpointFilename _snapshotFilename"),
             QString("viewpoint.bcfv|snapshot.png"));
    QVERIFY(viewpoints.at(0)->guid() == "v" && viewpoints.at(1)->guid().size() > 30);
}

QTEST_GUILESS_MAIN(TestArchiveLoading)

#include "TestArchiveLoading.moc"
