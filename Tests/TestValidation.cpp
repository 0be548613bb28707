#include "TestArchive.h"

#include <Topic.h>
#include <Version.h>
#include <Viewpoint.h>

#include <QTest>

using namespace BCFLib;

namespace {

/// What a row does to a model with one good topic.
using Change = void (*)(BCFModel *, Topic *);

} // namespace

Q_DECLARE_METATYPE(Change)

class TestValidation : public QObject
{
    Q_OBJECT

private slots:
    void verdict_data();
    void verdict();
    void verdictOnLoad_data();
    void verdictOnLoad();
};

void TestValidation::verdict_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("title");

    const auto row = [](const char *name, bool isValid, const char *message, Change change,
                        const char *title = "Error") {
        QTest::newRow(name) << change << isValid << QString(message) << QString(title);
    };
    const char *const badVersion = "Invalid bcf version for \"%2.bcf\" file";
    const char *const badTopic = "Invalid file \"%2.bcf\" because of topic \"A leak\"";

    row("a topic without viewpoints is good", true, "", [](BCFModel *, Topic *) {});
    row("version 1.0 is none to go on with", false, badVersion,
        [](BCFModel *model, Topic *) { model->version()->setVersionId("1.0"); });
    row("2.1 with a blank behind it is another version", false, badVersion,
        [](BCFModel *model, Topic *) { model->version()->setVersionId("2.1 "); });
    row("a version record is needed, and comes before the error text", false, badVersion,
        [](BCFModel *model, Topic *) {
            delete model->version();
            model->setErrorString("disk full");
        });
    row("version 2.0 is good", true, "", [](BCFModel *model, Topic *) { model->version()->setVersionId("2.0"); });
    row("the error text is repeated, though all topics are good", false, "disk full",
        [](BCFModel *model, Topic *) { model->setErrorString("disk full"); });
    row("the error text comes before the lack of topics", false, "disk full", [](BCFModel *model, Topic *topic) {
        delete topic;
        model->setErrorString("disk full");
    });
    row("no topics are a warning", true, "\"%2.bcf\" file have no topics in it",
        [](BCFModel *, Topic *topic) { delete topic; }, "Warning");
    row("a topic needs a guid", false, badTopic, [](BCFModel *, Topic *topic) { topic->setGuid(""); });
    row("a topic needs a title, else its guid names it", false,
        "Invalid file \"%2.bcf\" because of topic \"t\"", [](BCFModel *, Topic *topic) { topic->setTitle(""); });
    row("a topic needs an author", false, badTopic,
        [](BCFModel *, Topic *topic) { topic->setCreationAuthor(""); });
    row("a topic needs a valid date", false, badTopic,
        [](BCFModel *, Topic *topic) { topic->setCreationDate(QDateTime(QDate(2024, 2, 30), QTime(1, 0))); });
    row("the first bad topic is named", false, badTopic, [](BCFModel *model, Topic *topic) {
        topic->setCreationAuthor("");
        model->addTopic("", "", QDateTime(), "u");
    });
    row("a good topic does not hide a bad one", false, "Invalid file \"%2.bcf\" because of topic \"%1\"",
        [](BCFModel *model, Topic *) { model->addTopic("%1", "", QDateTime(), ""); });

    row("a viewpoint needs a guid", false, badTopic,
        [](BCFModel *, Topic *topic) { topic->addViewpoint("v")->setGuid(""); });
    row("some viewpoint is to be named viewpoint.bcfv", false, badTopic, [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setViewpointFilename("v.bcfv");
        topic->addViewpoint("w")->setViewpointFilename("viewpoint.bcfV");
    });
    row("any of them may be, a folder does not matter", true, "", [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setViewpointFilename("v.bcfv");
        topic->addViewpoint("w")->setViewpointFilename("some/viewpoint.bcfv");
    });
    row("a named image has to be there", false, badTopic,
        [](BCFModel *, Topic *topic) { topic->addViewpoint("v")->setSnapshotFilename("snapshot.png"); });
    row("an image of another viewpoint does not count", false, badTopic, [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->addViewpoint("w")->setSnapshotFilename("w.png");
    });
    row("some image is to be named snapshot.png", false, badTopic, [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->viewpoint("v")->setSnapshotFilename("v.png");
    });
    row("an image is, in any folder", true, "", [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->viewpoint("v")->setSnapshotFilename("some/snapshot.png");
        topic->addViewpoint("w")->setSnapshot(TestArchive::png());
        topic->viewpoint("w")->setSnapshotFilename("w.png");
    });
    row("an image without a name asks for the name too", false, badTopic, [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->viewpoint("v")->setSnapshotFilename("");
    });
    row("so does the image of a viewpoint that is gone", false, badTopic, [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->removeViewpoint("v");
        topic->addViewpoint("w");
    });
    row("but without viewpoints nobody asks", true, "", [](BCFModel *, Topic *topic) {
        topic->addViewpoint("v")->setSnapshot(TestArchive::png());
        topic->removeViewpoint("v");
    });
    row("cameras of any number are good, for those that don't count have no bit", true, "",
        [](BCFModel *, Topic *topic) {
            topic->addViewpoint("v")->setOrthogonalCamera(OrthogonalCamera());
            topic->viewpoint("v")->setPerspectiveCamera(PerspectiveCamera());
        });
}

void TestValidation::verdict()
{
    QFETCH(Change, change);
    QFETCH(bool, isValid);
    QFETCH(QString, message);
    QFETCH(QString, title);

    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    change(model.data(), model->addTopic("A leak", "Aino", QDateTime::currentDateTime(), "t"));
    QString saidMessage;
    QString saidTitle;
    QCOMPARE(model->isValid("%2.bcf", saidMessage, saidTitle), isValid);
    QCOMPARE(saidMessage, message);
    QCOMPARE(saidTitle, title);
    QCOMPARE(model->isValid(), isValid);
}

void TestValidation::verdictOnLoad_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isValid");
    QTest::addColumn<QString>("message");

    const QByteArray topic = "<Title>T</Title><CreationAuthor>A</CreationAuthor><CreationDate>2024-03-14T09:00:00Z"
                             "</CreationDate></Topic>";
    QTest::newRow("no topics") << "a" << QByteArray() << true << "\"a\" file have no topics in it";
    QTest::newRow("a broken version file") << "bcf.version" << QByteArray("<") << false
                                           << "Invalid bcf version for \"a\" file";
    QTest::newRow("a good topic") << "t/markup.bcf" << QByteArray("<M><Topic Guid='t'>" + topic + "</M>") << true
                                  << "";
    QTest::newRow("a viewpoint whose image is missing")
        << "t/markup.bcf"
        << QByteArray("<M><Topic Guid='t'>" + topic + "<Viewpoints Guid='v'><Viewpoint>viewpoint.bcfv</Viewpoint>"
                      "<Snapshot>snapshot.png</Snapshot></Viewpoints></M>")
        << false << "Invalid file \"a\" because of topic \"T\"";
    QTest::newRow("a file that the archive lacks")
        << "t/markup.bcf"
        << QByteArray("<M><Header><File isExternal='false'><Filename>../x.ifc</Filename></File></Header>"
                      "<Topic Guid='t'>" + topic + "</M>")
        << false << "File \"x.ifc\" doesn't exist in bcfzip";
}

void TestValidation::verdictOnLoad()
{
    QFETCH(QString, entry);
    QFETCH(QByteArray, content);
    QFETCH(bool, isValid);
    QFETCH(QString, message);

    TestArchive archive(entry == "bcf.version" ? QString() : QStringLiteral("2.1"));
    const QSharedPointer<BCFModel> model = archive.add(entry, content).load();
    QString saidMessage;
    QString title;
    QCOMPARE(model->isValid("a", saidMessage, title), isValid);
    QCOMPARE(saidMessage, message);
}

QTEST_GUILESS_MAIN(TestValidation)

#include "TestValidation.moc"
