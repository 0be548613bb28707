#include "TestArchive.h"

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

const QByteArray point = "<Z>3.0000000000000000e+00</Z><X>1.5</X><Y>2</Y>";
/// What every camera holds.
const QByteArray camera = "<CameraViewPoint>" + point + "</CameraViewPoint><CameraUpVector>" + point
    + "</CameraUpVector><CameraDirection>" + point + "</CameraDirection>";

} // namespace

class TestArchiveLoading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "Asia/Kolkata"); }
    void objects_data() { addRows("Reading/objects.json"); }
    void objects();
    void anIncompleteCameraKeepsWhatWasRead();
    void readingAgainAddsGeometryAndReplacesSets();
    void snapshots();
    void versions_data() { addRows("Loading/versions.json"); }
    void versions();
    void loadsThatEndEarly();
    void projects_data() { addRows("Loading/projects.json"); }
    void projects();
    void folders_data() { addRows("Loading/folders.json"); }
    void folders();
    void attachments_data() { addRows("Loading/attachments.json"); }
    void attachments();
    void aFolderOfVersion1HoldsAViewpointThatNobodyLists();
};

void TestArchiveLoading::versions()
{
    QFETCH(QVariantMap, row);

    TestArchive archive{QString()};
    if (row["file"].userType() == QMetaType::QString) {
        archive.add("bcf.version", row["file"].toByteArray());
    }
    const int ofList = row["isListForm"].toBool() ? 1 : 0;
    const Model model = archive.addTopic("", "<Comment/><Viewpoints Guid='v'/>").load();
    QCOMPARE(tellAll(model.data(), "BCFLib::Version", "_versionId _detailedVersion"),
             QStringList(row["record"].toString()));
    QCOMPARE(tellAll(model.data(), "BCFLib::Viewpoint", "objectName").size(), 1);
    QCOMPARE(tellAll(model.data(), "BCF_2_0_Lib::Viewpoint", "objectName").size(), ofList);
    QCOMPARE(tellAll(model.data(), "BCF_2_0_Lib::Comment", "objectName").size(), ofList);
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
    QFETCH(QVariantMap, row);

    const Model model = TestArchive().add("project.bcfp", row["file"].toByteArray()).addTopic("").load();
    QCOMPARE(tellAll(model.data(), "BCFLib::Project", "objectName _name _extensionSchema"),
             row["projects"].toStringList());
    QCOMPARE(model->topics().size(), 1);
}

void TestArchiveLoading::folders()
{
    QFETCH(QVariantMap, row);

    const QStringList names = row["entries"].toStringList();
    TestArchive archive;
    for (int i = 0; i < names.size(); ++i) {
        archive.add(names.at(i), markup(QString::number(i)));
    }
    const int folderCount = row["folders"].toInt();
    Model model;
    const QStringList calls = progressOf(archive.write(), &model);
    QCOMPARE(titles(model), row["titles"].toStringList());
    QCOMPARE(calls.mid(0, 2), QStringList({"+1", '+' + QString::number(folderCount)}));
    QVERIFY(calls.size() == folderCount + 3 && calls.count("1") == folderCount + 1);
}

void TestArchiveLoading::attachments()
{
    QFETCH(QVariantMap, row);

    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    const QString member = row["member"].toString();
    const QString error = row["error"].toString().replace("%1", cache.path());
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
    archive.add("a/markup.bcf", markup("a", row["filename"].toByteArray())).add("b/markup.bcf", markup("b"));
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

void TestArchiveLoading::objects()
{
    QFETCH(QVariantMap, row);

    const bool isMarkup = row.contains("markup");
    const QVariant text = row[isMarkup ? "markup" : "viewpoint"];
    QByteArray file = text.toStringList().join(QString()).toUtf8();
    file.replace("{camera}", camera).replace("{point}", point);
    TestArchive archive(row["version"].toString());
    isMarkup ? archive.add("t/markup.bcf", file) : archive.addViewpoint(file);
    const Model model = archive.load();
    const QByteArray className = "BCFLib::" + row["class"].toByteArray();
    QStringList lines = tellAll(model.data(), className, row["properties"].toString());
    for (QString &line : lines) {
        line.replace(QRegularExpression("^[-0-9a-f{}]{36,38}"), "new");
        const QString date = line.section('|', -1);
        const QDateTime time = QDateTime::fromString(date, Qt::ISODateWithMs);
        if (time.isValid() && qAbs(time.secsTo(QDateTime::currentDateTime())) < 60) {
            line.replace(date, "now");
        }
    }
    QCOMPARE(lines, row["expected"].toStringList());
}

void TestArchiveLoading::anIncompleteCameraKeepsWhatWasRead()
{
    QByteArray broken = camera;
    broken.replace("<Y>2</Y></CameraDirection>", "<Y>abc</Y></CameraDirection>");
    BCFLib::Viewpoint viewpoint("v", nullptr);
    readViewpoint(&viewpoint,
                  "<PerspectiveCamera><FieldOfView>1</FieldOfView>" + broken
                      + "</PerspectiveCamera><OrthogonalCamera><ViewToWorldScale>0</ViewToWorldScale>"
                      + camera + "</OrthogonalCamera>");
    QCOMPARE(viewpoint.whichCameraIsSet(), 0);
    const BCFLib::PerspectiveCamera read = viewpoint.perspectiveCamera();
    QVERIFY(read.cameraViewPoint == osg::Vec3d(1.5, 2, 3) && read.cameraDirection == osg::Vec3d(1.5, 0, 0));
    QVERIFY(read.cameraUpVector == osg::Vec3d() && read.fieldOfView == -1.0);
    QVERIFY(viewpoint.orthogonalCamera().cameraUpVector == osg::Vec3d(1.5, 2, 3));
}

void TestArchiveLoading::readingAgainAddsGeometryAndReplacesSets()
{
    const QByteArray line = "<Lines><Line><StartPoint>" + point + "</StartPoint><EndPoint>" + point
        + "</EndPoint></Line></Lines>";
    BCFLib::Viewpoint viewpoint("v", nullptr);
    readViewpoint(&viewpoint,
                  line + "<PerspectiveCamera><FieldOfView>1</FieldOfView>" + camera
                      + "</PerspectiveCamera><Components><Selection><Component IfcGuid='a'/></Selection>"
                        "<Visibility DefaultVisibility='false'/></Components>");
    viewpoint.deserialize(nullptr);
    readViewpoint(&viewpoint, "<malformed>");
    QVERIFY(viewpoint.whichCameraIsSet() == 1 && viewpoint.components()->children().size() == 1);
    readViewpoint(&viewpoint, line);
    QVERIFY(viewpoint.whichCameraIsSet() == 0 && viewpoint.components()->children().isEmpty()
            && viewpoint.components()->getDefaultVisibility());
    QCOMPARE(viewpoint.lines().size(), 2);
    // Of several with one guid the last counts, and replaces what an earlier file brought.
    BCF_2_0_Lib::Viewpoint list("w", nullptr);
    const QPointer<BCFLib::Component> earlier = list.addComponent("a");
    readViewpoint(&list,
                  "<Components><Component IfcGuid='a' Color='1'/><Component IfcGuid='a'/></Components>");
    QVERIFY(earlier == nullptr && list.getComponent("a")->color().isEmpty() && list.children().size() == 2);
}

void TestArchiveLoading::snapshots()
{
    TestArchive archive;
    archive
        .addTopic("",
                  "<Viewpoints Guid='a'><Snapshot>gone.png</Snapshot></Viewpoints>"
                  "<Viewpoints Guid='b'><Snapshot>b.png</Snapshot></Viewpoints>"
                  "<Viewpoints Guid='c'><Snapshot>c.png</Snapshot></Viewpoints><Viewpoints Guid='d'/>"
                  "<Viewpoints Guid='e'><Snapshot>large.png</Snapshot></Viewpoints>")
        .add("t/large.png", QByteArray((256 << 20) + 1, '\0'))
        .add("t/c.png", "c")
        .add("t/b.png", TestArchive::png())
        .add("t/snapshot.png", "d");
    const Model model = archive.load();
    // The first image of a topic has a fixed name, whatever the archive calls it.
    QCOMPARE(tellAll(model.data(), "BCFLib::Viewpoint", "_snapshotFilename"),
             QStringList({"gone.png", "snapshot.png", "c.png", "", "large.png"}));
    const BCFLib::Topic *topic = model->topic("t");
    for (const char *guid : {"a", "d", "e"}) {
        QVERIFY(topic->snapshot(guid) == nullptr);
    }
    QVERIFY(*topic->snapshot("b") == TestArchive::png() && *topic->snapshot("c") == "c");
}

QTEST_GUILESS_MAIN(TestArchiveLoading)

#include "TestArchiveLoading.moc"
