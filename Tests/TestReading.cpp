#include "TestArchive.h"

using BCFLib::Viewpoint;
using Model = QSharedPointer<BCFLib::BCFModel>;

namespace {

const QByteArray point = "<Z>3.0000000000000000e+00</Z><X>1.5</X><Y>2</Y>";
/// What every camera holds.
const QByteArray camera = "<CameraViewPoint>" + point + "</CameraViewPoint><CameraUpVector>" + point
    + "</CameraUpVector><CameraDirection>" + point + "</CameraDirection>";

void read(Viewpoint *viewpoint, const QByteArray &inside)
{
    QBuffer device;
    device.setData("<VisualizationInfo>" + inside + "</VisualizationInfo>");
    viewpoint->deserialize(&device);
}

} // namespace

class TestReading : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qputenv("TZ", "Asia/Kolkata"); }
    void objects_data();
    void objects();
    void anIncompleteCameraKeepsWhatWasRead();
    void readingAgainAddsGeometryAndReplacesSets();
    void snapshots();
};

void TestReading::objects_data()
{
    addRows("Reading/objects.json");
}

void TestReading::objects()
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

void TestReading::anIncompleteCameraKeepsWhatWasRead()
{
    QByteArray broken = camera;
    broken.replace("<Y>2</Y></CameraDirection>", "<Y>abc</Y></CameraDirection>");
    Viewpoint viewpoint("v", nullptr);
    read(&viewpoint,
         "<PerspectiveCamera><FieldOfView>1</FieldOfView>" + broken
             + "</PerspectiveCamera><OrthogonalCamera><ViewToWorldScale>0</ViewToWorldScale>" + camera
             + "</OrthogonalCamera>");
    QCOMPARE(viewpoint.whichCameraIsSet(), 0);
    const BCFLib::PerspectiveCamera read = viewpoint.perspectiveCamera();
    QVERIFY(read.cameraViewPoint == osg::Vec3d(1.5, 2, 3) && read.cameraDirection == osg::Vec3d(1.5, 0, 0));
    QVERIFY(read.cameraUpVector == osg::Vec3d() && read.fieldOfView == -1.0);
    QVERIFY(viewpoint.orthogonalCamera().cameraUpVector == osg::Vec3d(1.5, 2, 3));
}

void TestReading::readingAgainAddsGeometryAndReplacesSets()
{
    const QByteArray line = "<Lines><Line><StartPoint>" + point + "</StartPoint><EndPoint>" + point
        + "</EndPoint></Line></Lines>";
    Viewpoint viewpoint("v", nullptr);
    read(
        &viewpoint,
        line + "<PerspectiveCamera><FieldOfView>1</FieldOfView>" + camera
            + "</PerspectiveCamera><Components><Selection><Component IfcGuid='a'/></Selection></Components>");
    viewpoint.deserialize(nullptr);
    read(&viewpoint, "<malformed>");
    QVERIFY(viewpoint.whichCameraIsSet() == 1 && viewpoint.components()->children().size() == 1);
    read(&viewpoint, line);
    QVERIFY(viewpoint.whichCameraIsSet() == 0 && viewpoint.components()->children().isEmpty());
    QCOMPARE(viewpoint.lines().size(), 2);
}

void TestReading::snapshots()
{
    TestArchive archive;
    archive
        .addTopic("",
                  "<Viewpoints Guid='a'><Snapshot>gone.png</Snapshot></Viewpoints>"
                  "<Viewpoints Guid='b'><Snapshot>b.png</Snapshot></Viewpoints>"
                  "<Viewpoints Guid='c'><Snapshot>c.png</Snapshot></Viewpoints><Viewpoints Guid='d'/>")
        .add("t/c.png", "c")
        .add("t/b.png", TestArchive::png())
        .add("t/snapshot.png", "d");
    const Model model = archive.load();
    // The first image of a topic has a fixed name, whatever the archive calls it.
    QCOMPARE(tellAll(model.data(), "BCFLib::Viewpoint", "_snapshotFilename"),
             QStringList({"gone.png", "snapshot.png", "c.png", ""}));
    const BCFLib::Topic *topic = model->topic("t");
    QVERIFY(topic->snapshot("a") == nullptr && topic->snapshot("d") == nullptr);
    QVERIFY(*topic->snapshot("b") == TestArchive::png() && *topic->snapshot("c") == "c");
}

QTEST_GUILESS_MAIN(TestReading)

#include "TestReading.moc"
