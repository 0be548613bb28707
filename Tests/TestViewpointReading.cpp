#include "TestArchive.h"

#include <Components.h>
#include <Topic.h>
#include <Viewpoint.h>

#include <QBuffer>
#include <QTest>

using BCFLib::Viewpoint;
using Model = QSharedPointer<BCFLib::BCFModel>;

namespace {

QByteArray xml(const char *name, const QByteArray &inside)
{
    return '<' + QByteArray(name) + '>' + inside + "</" + name + '>';
}

QByteArray point(const char *name, const QByteArray &y = "<Y>2</Y>")
{
    return xml(name, "<Z>3.0000000000000000e+00</Z><X>1.5</X>" + y);
}

QByteArray camera(const char *name, const char *number, const QByteArray &value,
                  const QByteArray &y = "<Y>2</Y>")
{
    return xml(name,
               xml(number, value) + point("CameraViewPoint") + point("CameraUpVector")
                   + point("CameraDirection", y));
}

QByteArray perspective(const QByteArray &value)
{
    return camera("PerspectiveCamera", "FieldOfView", value);
}

QByteArray bitmap(const char *format, const char *reference)
{
    return xml("Bitmaps",
               xml("Reference", reference) + xml("Bitmap", format) + point("Location") + point("Normal")
                   + point("Up") + "<Height>4</Height>");
}

Model load(const QString &version, const QByteArray &file)
{
    return TestArchive(version)
        .addTopic("", "<Viewpoints Guid='v'><Viewpoint>v.bcfv</Viewpoint></Viewpoints>")
        .add("t/v.bcfv", file)
        .load();
}

} // namespace

class TestViewpointReading : public QObject
{
    Q_OBJECT

private slots:
    void geometry_data();
    void geometry();
    void anIncompleteCameraKeepsWhatWasRead();
    void readingAgainAddsGeometryAndReplacesSets();
    void snapshots();
};

void TestViewpointReading::geometry_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("className");
    QTest::addColumn<QString>("properties");
    QTest::addColumn<QStringList>("expected");

    QByteArray className = "BCFLib::Viewpoint";
    QString properties = "_whichCameraIsSet";
    const auto row = [&className, &properties](const char *name, const QByteArray &inside,
                                               const QStringList &expected) {
        QTest::newRow(name) << xml("VisualizationInfo", inside) << className << properties << expected;
    };
    row("both cameras may count",
        perspective("0") + camera("OrthogonalCamera", "ViewToWorldScale", "-5") + perspective(""), {"3"});
    row("a scale of 0 is no camera",
        camera("OrthogonalCamera", "ViewToWorldScale", "0e5") + perspective("-1"), {"1"});
    row("an empty number is missing", perspective(""), {"0"});
    row("a number can't follow a comment", perspective("<!-- -->1"), {"0"});
    row("a number can't be nested", perspective("<b>1</b>"), {"0"});
    row("a number may be CDATA", perspective("<![CDATA[1]]>x"), {"1"});
    row("a comma makes no number", perspective("1,5"), {"0"});
    className = "BCFLib::Line";
    properties = "_startPoint _endPoint";
    const QByteArray line = xml("Line", point("StartPoint") + point("EndPoint", "<Y>-4</Y>"));
    row("a broken line is passed by, a second list not read",
        xml("Lines", line + xml("Line", point("StartPoint")) + line) + xml("Lines", line),
        {"1.5 2 3|1.5 -4 3", "1.5 2 3|1.5 -4 3"});
    for (const QByteArray broken : {"", "<!-- -->", "<VisualizationInfo>%1</VisualizationInfo",
                                    "<x><VisualizationInfo>%1</VisualizationInfo></x>"}) {
        QTest::addRow("nothing comes of '%s'", broken.data())
            << QByteArray(broken).replace("%1", xml("Lines", line)) << className << properties
            << QStringList();
    }
    className = "BCFLib::ClippingPlane";
    properties = "_location _direction";
    row("a broken plane is passed by",
        xml("ClippingPlanes",
            xml("ClippingPlane", point("Location") + point("Direction", "<Y/>"))
                + xml("ClippingPlane", point("Location") + point("Direction"))),
        {"1.5 2 3|1.5 2 3"});
    className = "BCFLib::Bitmap";
    properties = "_bitmapFormat _reference _up _height";
    row("every list of bitmaps is one bitmap",
        bitmap("PNG", "a") + bitmap("png", "b") + bitmap("BMP", "c") + bitmap("PNG", "") + bitmap("JPG", "d"),
        {"0|a|1.5 2 3|4", "1|d|1.5 2 3|4"});

    const QByteArray a = "<Component IfcGuid='a'/>";
    const QByteArray b = "<Component IfcGuid='b'><OriginatingSystem>s</OriginatingSystem>"
                         "<AuthoringToolId><!-- -->x</AuthoringToolId></Component>";
    const QByteArray selection = xml("Selection", b + "<Component/><Component IfcGuid=''/>" + a + b);
    const QByteArray exceptions = xml("Visibility", xml("Exceptions", a) + xml("Exceptions", b));
    className = "BCFLib::Component";
    properties = "objectName _originatingSystem _authoringToolId";
    row("sets keep order and repeats, nobody without a guid",
        xml("Components", a + exceptions + selection) + xml("Components", selection),
        {"b|s|", "a||", "b|s|", "a||"});
    row("a group needs a colour and members, the last of a colour stays, whatever its alpha",
        xml("Components",
            xml("Coloring",
                "<Color Color='#FF00FF00'>" + b + "</Color><Color>" + b + "</Color><Color Color='00ff00'>" + a
                    + a + "</Color><Color Color='8000FF00'/>")),
        {"a||", "a||"});
}

void TestViewpointReading::geometry()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, className);
    QFETCH(QString, properties);

    QTEST(tellAll(load("2.1", file).data(), className, properties), "expected");
}

void TestViewpointReading::anIncompleteCameraKeepsWhatWasRead()
{
    const Model model = load("2.1",
                             xml("VisualizationInfo",
                                 camera("PerspectiveCamera", "FieldOfView", "1", "<Y>abc</Y>")
                                     + camera("OrthogonalCamera", "ViewToWorldScale", "0")));
    const Viewpoint *viewpoint = model->topic("t")->viewpoint("v");
    QCOMPARE(viewpoint->whichCameraIsSet(), 0);
    const BCFLib::PerspectiveCamera camera = viewpoint->perspectiveCamera();
    QVERIFY(camera.cameraViewPoint == osg::Vec3d(1.5, 2, 3)
            && camera.cameraDirection == osg::Vec3d(1.5, 0, 0));
    QVERIFY(camera.cameraUpVector == osg::Vec3d() && camera.fieldOfView == -1.0);
    QVERIFY(viewpoint->orthogonalCamera().cameraUpVector == osg::Vec3d(1.5, 2, 3));
}

void TestViewpointReading::readingAgainAddsGeometryAndReplacesSets()
{
    const QByteArray line = xml("Lines", xml("Line", point("StartPoint") + point("EndPoint")));
    const QByteArray selection = xml("Components", xml("Selection", "<Component IfcGuid='a'/>"));
    const Model model = load("2.1", xml("VisualizationInfo", line + perspective("1") + selection));
    Viewpoint *viewpoint = model->topic("t")->viewpoint("v");
    viewpoint->deserialize(nullptr);
    QByteArray malformed = "<VisualizationInfo>";
    QBuffer broken(&malformed);
    viewpoint->deserialize(&broken);
    QVERIFY(viewpoint->whichCameraIsSet() == 1 && viewpoint->components()->children().size() == 1);

    QByteArray bytes = xml("VisualizationInfo", line);
    QBuffer device(&bytes);
    viewpoint->deserialize(&device);
    QVERIFY(viewpoint->whichCameraIsSet() == 0 && viewpoint->components()->children().isEmpty());
    QCOMPARE(viewpoint->lines().size(), 2);
}

void TestViewpointReading::snapshots()
{
    const auto viewpoint = [](const QByteArray &guid, const QByteArray &snapshot) {
        return "<Viewpoints Guid='" + guid + "'>" + xml("Snapshot", snapshot) + "</Viewpoints>";
    };
    const QByteArray viewpoints =
        viewpoint("a", "gone.png") + viewpoint("b", "b.png") + viewpoint("c", "c.png") + viewpoint("d", "");
    TestArchive archive;
    archive.addTopic("", viewpoints)
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

QTEST_GUILESS_MAIN(TestViewpointReading)

#include "TestViewpointReading.moc"
