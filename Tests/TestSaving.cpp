#include "TestArchive.h"

#include <QDomDocument>
#include <QJsonDocument>
#include <QRandomGenerator>
#include <QXmlStreamReader>
#include <quazip/quazip.h>
#include <quazip/quazipfileinfo.h>
#include <unistd.h>

using namespace BCFLib;

namespace {

using ModelPointer = QSharedPointer<BCFModel>;

const QDateTime someDate(QDate(2024, 3, 14), QTime(9, 30), Qt::UTC);

/// The tags and texts of a document; or the parser's error.
QString tags(const QByteArray &xml)
{
    QString result;
    QXmlStreamReader reader(xml);
    while (!xml.isEmpty() && !reader.atEnd()) {
        reader.readNext();
        result +=
            '\n' + reader.name().toString() + (reader.isWhitespace() ? QString() : reader.text().toString());
        QStringList attributes;
        for (const QXmlStreamAttribute &attribute : reader.attributes()) {
            attributes.append(QStringLiteral(" %1=\"%2\"").arg(attribute.name(), attribute.value()));
        }
        result += attributes.join(QString());
    }
    return result.simplified() + reader.errorString();
}

/// Two topics, the first with two viewpoints and their images, and a file that both topics share.
ModelPointer makeModel(const TestArchive &folder)
{
    ModelPointer model = BCFModel::Create(nullptr);
    model->addProject("p")->setName("Zoë & <Co>");
    QByteArray noise(40000, '\0');
    QRandomGenerator(7).generate(noise.begin(), noise.end());
    QFile local(folder.path("storey.ifc"));
    local.open(QIODevice::WriteOnly);
    local.write(noise);
    for (const char *guid : {"zz", "aa"}) {
        File *file = model->addTopic("T", "A", someDate, guid)->addFile();
        file->setIsExternal(false);
        file->setFilename(local.fileName());
    }
    for (const char *name : {"viewpoint", "other"}) {
        Viewpoint *viewpoint = model->topic("zz")->addViewpoint(name);
        viewpoint->setSnapshot(TestArchive::png());
        viewpoint->setViewpointFilename(QString(name) + ".bcfv");
        viewpoint->setSnapshotFilename(QString(name) + ".png");
    }
    return model;
}

} // namespace

Q_DECLARE_METATYPE(QDir)

class TestSaving : public QObject
{
    Q_OBJECT

private slots:
    void xml_data();
    void xml();
    void entries();
    void theFormIsThatOfQDomDocument();
    void anyNamesSurvive();
    void nextLoadDropsWhatTheFormatCannotHold();
    void faults_data() { addRows("Saving/faults.json"); }
    void faults();
};

void TestSaving::xml_data()
{
    QTest::addColumn<QDir>("folder");

    for (const char *version : {"2.0", "2.1"}) {
        const QDir folder(QStringLiteral(TESTS_FOLDER "/Saving/") + version);
        for (const QString &name : folder.entryList({"*.xml"}).filter(QRegularExpression("^[^.]*\\.xml$"))) {
            QTest::newRow(qPrintable(name.chopped(4))) << folder;
        }
    }
}

/// A file comes out like this, of the one beside it if that was read, else of itself.
void TestSaving::xml()
{
    QFETCH(QDir, folder);

    const QString name = QTest::currentDataTag();
    const QByteArray written = TestArchive::file(folder.filePath(name + ".xml"));
    const QString other = folder.filePath(name + ".read.xml");
    const QByteArray file = QFile::exists(other) ? TestArchive::file(other) : written;
    const bool isViewpoint = file.startsWith("<Vis");
    const bool isVersion = file.startsWith("<Ver");
    const QString entry = isVersion ? "bcf.version" : isViewpoint ? "t/v.bcfv" : "t/markup.bcf";
    TestArchive archive(isVersion ? QString() : folder.dirName());
    isViewpoint ? archive.addViewpoint(file) : archive.add(entry, file);
    QVERIFY(archive.load()->serialize(archive.path("saved.bcf")));
    QCOMPARE(tags(TestArchive::entry(archive.path("saved.bcf"), entry)), tags(written));
}

void TestSaving::entries()
{
    const TestArchive folder;
    const ModelPointer model = makeModel(folder);
    QVERIFY(model->serialize(folder.path()));
    QStringList found;
    QuaZip zip(folder.path());
    QVERIFY(zip.open(QuaZip::mdUnzip));
    for (const QuaZipFileInfo64 &info : zip.getFileInfoList64()) {
        found.append(QStringLiteral("%1 %2 %3")
                         .arg(info.name)
                         .arg(info.method)
                         .arg(info.externalAttr >> 16 & 0777, 0, 8));
    }
    QCOMPARE(found,
             QStringList({"bcf.version 8 444", "project.bcfp 8 0", "zz/markup.bcf 8 444",
                          "zz/viewpoint.bcfv 8 444", "zz/viewpoint.png 8 444", "zz/other.bcfv 8 444",
                          "zz/other.png 8 444", "aa/markup.bcf 8 444", "storey.ifc 8 444"}));
    QCOMPARE(TestArchive::entry(folder.path(), "zz/other.png"), TestArchive::png());
    QVERIFY(
        TestArchive::entry(folder.path(), "aa/markup.bcf").contains("<Filename>../storey.ifc</Filename>"));
    QVERIFY(
        TestArchive::entry(folder.path(), "project.bcfp").contains("<ExtensionSchema></ExtensionSchema>"));
}

void TestSaving::theFormIsThatOfQDomDocument()
{
    const TestArchive folder;
    const ModelPointer model = makeModel(folder);
    model->topic("zz")->setDescription("<a b=\"c\">&amp; ]]> 'q'\nzweite Zeile \r\n \t");
    QVERIFY(model->serialize(folder.path()));
    for (const char *entry : {"zz/markup.bcf", "zz/viewpoint.bcfv"}) {
        const QByteArray written = TestArchive::entry(folder.path(), entry);
        QDomDocument document;
        QVERIFY(document.setContent(written));
        document.removeChild(document.firstChild());
        QCOMPARE(written, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n" + document.toByteArray(4));
    }
}

void TestSaving::anyNamesSurvive()
{
    QStringList names = QJsonDocument::fromJson(TestArchive::file(TESTS_FOLDER "/Saving/names.json"))
                            .toVariant()
                            .toStringList();
    names << QChar(0xD800) << QString(255, 'y') << QString(70000, 'z') << QString(200, QChar(0x20AC));
    QCOMPARE(names.size(), 40);
    const TestArchive folder;
    const ModelPointer model = makeModel(folder);
    for (const QString &one : names) {
        for (const QString &other : names) {
            const int number = model->topics().size();
            Topic *topic = model->addTopic(QString::number(number), "a", someDate, one);
            topic->setGuid(one);
            topic->setDescription(one);
            topic->addComment("c")->setViewpoint(topic->addViewpoint("1"));
            topic->addViewpoint("2");
            for (Viewpoint *viewpoint : topic->viewpoints()) {
                const bool isFirst = viewpoint->guid() == "1";
                viewpoint->addLine()->setStartPoint({double(number), isFirst ? 1. : 2., 0});
                viewpoint->setSnapshot(viewpoint->guid().toUtf8() + QByteArray::number(number));
                viewpoint->setViewpointFilename(isFirst ? one : other);
                viewpoint->setSnapshotFilename(isFirst ? other : one);
            }
        }
    }
    const auto told = [](const ModelPointer &model) {
        QStringList all = tellAll(model.data(), "BCFLib::Topic", "_title _description")
            + tellAll(model.data(), "BCFLib::Line", "_startPoint")
            + tellAll(model.data(), "BCFLib::Comment", "_topic _viewpoint");
        for (const Topic *topic : model->topics()) {
            for (const Viewpoint *viewpoint : topic->viewpoints()) {
                const QByteArray *image = topic->snapshot(viewpoint->guid());
                all += image != nullptr ? *image : QByteArray();
            }
        }
        return all;
    };
    const QString fields = "_viewpointFilename _snapshotFilename objectName";
    const QStringList before = tellAll(model.data(), "BCFLib::Viewpoint", fields);
    // Of a file that is attached, no name is too odd.
    const QString oddName = folder.path(QString("a\x01") + QChar(0xFFFE));
    QVERIFY(QFile::copy(folder.path("storey.ifc"), oddName));
    model->topic("zz")->files().constFirst()->setFilename(oddName);
    QVERIFY(model->serialize(folder.path()));
    QCOMPARE(tellAll(model.data(), "BCFLib::Viewpoint", fields), before);
    QCOMPARE(TestArchive::complaints(folder.path()), QString());

    const auto readable = [](QString text) {
        return text.replace(QChar(0), QChar(0xFFFD)).replace(QChar(0xD800), QChar(0xFFFD));
    };
    // Without a name there is no file.
    const ModelPointer loaded = TestArchive::load(folder.path());
    for (Viewpoint *viewpoint : model->findChildren<Viewpoint *>()) {
        Topic *topic = static_cast<Topic *>(viewpoint->parent());
        if (viewpoint->viewpointFilename().isEmpty()) {
            qDeleteAll(viewpoint->lines());
        }
        if (viewpoint->snapshotFilename().isEmpty()) {
            topic->removeSnapshot(viewpoint->guid());
        }
        topic->setGuid(readable(topic->guid()));
        topic->setDescription(readable(topic->description()));
    }
    QCOMPARE(told(loaded), told(model));
    QVERIFY(QFile::exists(loaded->topic("zz")->files().constFirst()->filename())
            && loaded->errorString().isEmpty());
    // What is free and harmless is taken.
    const QString entries = TestArchive::entryNames(folder.path()).join('|');
    for (const char *name : {"zz/viewpoint.png", "|a/markup.bcf|", u8"|\u00e9/a|", "/A/B/c|"}) {
        QVERIFY2(entries.contains(QString::fromUtf8(name)), name);
    }
}

void TestSaving::nextLoadDropsWhatTheFormatCannotHold()
{
    const TestArchive folder;
    const ModelPointer model = BCFModel::Create(nullptr);
    Topic *topic = model->addTopic("T", "a", someDate, "t");
    topic->addBimSnippet()->setReference("first");
    topic->addBimSnippet()->setReference("second");
    topic->addRelatedTopic("r")->setGuid(QString());
    new Comment("has no topic", topic);
    Viewpoint *viewpoint = topic->addViewpoint("v");
    viewpoint->addBitmap()->setBitmapFormat(PNG);
    viewpoint->addBitmap()->setReference("r.bmp");
    viewpoint->bitmaps().last()->setBitmapFormat(static_cast<BitmapFormat>(7));
    viewpoint->components()->addColoringComponents(QColor("#123456"), QStringList());
    topic->addViewpoint("unnamed")->setSnapshot(TestArchive::png());
    topic->viewpoint("unnamed")->setSnapshotFilename(QString());
    QVERIFY(model->serialize(folder.path()));
    const QByteArray file = TestArchive::entry(folder.path(), "t/viewpoint.bcfv");
    QVERIFY(file.contains("<Bitmap>BMP</Bitmap>") && file.contains("<Color Color=\"123456\"/>"));
    QCOMPARE(TestArchive::entryNames(folder.path()),
             QStringList({"bcf.version", "t/markup.bcf", "t/viewpoint.bcfv"}));

    const ModelPointer loaded = TestArchive::load(folder.path());
    const Topic *again = loaded->topic("t");
    QCOMPARE(again->findChildren<BimSnippet *>().size(), 1);
    QCOMPARE(again->bimSnippet()->reference(), QString("first"));
    QCOMPARE(again->comment("has no topic")->topic(), again);
    QVERIFY(again->relatedTopics().isEmpty() && again->viewpoint("v")->bitmaps().isEmpty());
    QVERIFY(again->viewpoint("v")->componentsToQVariant().isEmpty());
}

void TestSaving::faults()
{
    QFETCH(QVariantMap, row);

    QString path = row["path"].toString();
    const TestArchive folder;
    QFile folderItself(folder.path(QString()));
    const ModelPointer model = makeModel(folder);
    QVERIFY(model->serialize(folder.path("before")));
    File *shared = model->topic("zz")->files().constFirst();
    QVERIFY(QFile::link(shared->filename(), folder.path("link")));
    QVERIFY(link(QFile::encodeName(shared->filename()), QFile::encodeName(folder.path("twin"))) == 0);
    Viewpoint *viewpoint = model->topic("zz")->viewpoint("viewpoint");
    if (path.endsWith("no image")) {
        model->topic("zz")->removeSnapshot("viewpoint");
        viewpoint->setSnapshotFilename("viewpoint.png");
    } else if (path.endsWith("no file")) {
        QVERIFY(QFile::rename(folder.path("storey.ifc"), folder.path("away")));
    } else if (path.endsWith("own name")) {
        QVERIFY(QFile::copy(shared->filename(), folder.path("BCF.version")));
        shared->setFilename(folder.path("BCF.version"));
    } else if (path.endsWith("locked")) {
        folderItself.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        QVERIFY(geteuid() != 0 || seteuid(65534) == 0);
    }
    QDir::setSearchPaths("searched", {folder.path(QString())});
    const bool isSaved = model->serialize(path.replace("%1", folder.path(QString())));
    QVERIFY(seteuid(getuid()) == 0);
    folderItself.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    QVERIFY(!isSaved);
    QCOMPARE(TestArchive::entryNames(path), row["entries"].toStringList());
    QCOMPARE(model->errorString(), QString());

    // Nothing is lost in memory: once the fault is mended, a save brings what it brought before.
    viewpoint->setSnapshot(TestArchive::png());
    shared->setFilename(folder.path("storey.ifc"));
    QFile::rename(folder.path("away"), folder.path("storey.ifc"));
    QVERIFY(model->serialize(folder.path("after")));
    for (const QString &name : TestArchive::entryNames(folder.path("before"))) {
        QCOMPARE(TestArchive::entry(folder.path("after"), name),
                 TestArchive::entry(folder.path("before"), name));
    }
}

QTEST_GUILESS_MAIN(TestSaving)

#include "TestSaving.moc"
