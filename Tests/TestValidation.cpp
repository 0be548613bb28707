#include "TestArchive.h"

using M = BCFLib::BCFModel *;
using T = BCFLib::Topic *;
/// What a row does to a model with one good topic.
using Change = void (*)(M, T);

Q_DECLARE_METATYPE(Change)

namespace {

void addImage(T topic, const char *guid, const char *name)
{
    topic->addViewpoint(guid)->setSnapshot(TestArchive::png());
    topic->viewpoint(guid)->setSnapshotFilename(name);
}

} // namespace

class TestValidation : public QObject
{
    Q_OBJECT

private slots:
    void verdict_data();
    void verdict();
};

void TestValidation::verdict_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("message");

    // A message tells a fault, but for that of the model without topics.
    const auto row = [](const char *name, const char *message, Change change) {
        QTest::newRow(name) << change << QString(message);
    };
    const char *const badVersion = "Invalid bcf version for \"%2.bcf\" file";
    const char *const badTopic = "Invalid file \"%2.bcf\" because of topic \"A leak\"";

    row("a topic without viewpoints is good", "", [](M, T) {});
    row("version 1.0 is none to go on with", badVersion, [](M m, T) { m->version()->setVersionId("1.0"); });
    row("2.1 and a blank is another version", badVersion, [](M m, T) { m->version()->setVersionId("2.1 "); });
    row("a version is needed, and comes before the error text", badVersion, [](M m, T) {
        delete m->version();
        m->setErrorString("disk full");
    });
    row("the error text comes before the lack of topics", "disk full", [](M m, T t) {
        delete t;
        m->setErrorString("disk full");
    });
    row("the error text comes before a bad topic", "disk full", [](M m, T t) {
        t->setTitle("");
        m->setErrorString("disk full");
    });
    row("no topics are a warning", "\"%2.bcf\" file have no topics in it", [](M, T t) { delete t; });
    row("a topic needs a guid", badTopic, [](M, T t) { t->setGuid(""); });
    row("a topic needs a title, else its guid names it", "Invalid file \"%2.bcf\" because of topic \"t\"",
        [](M, T t) { t->setTitle(""); });
    row("a topic needs an author", badTopic, [](M, T t) { t->setCreationAuthor(""); });
    row("a topic needs a valid date", badTopic, [](M, T t) { t->setCreationDate(QDateTime()); });
    row("a good topic does not hide a bad one, the first bad one is named",
        "Invalid file \"%2.bcf\" because of topic \"%1\"", [](M m, T) {
            m->addTopic("%1", "", QDateTime(), "");
            m->addTopic("", "", QDateTime(), "");
        });
    row("a viewpoint needs a guid", badTopic, [](M, T t) { t->addViewpoint("v")->setGuid(""); });
    row("some viewpoint is to be named viewpoint.bcfv", badTopic, [](M, T t) {
        t->addViewpoint("v")->setViewpointFilename("v.bcfv");
        t->addViewpoint("w")->setViewpointFilename("viewpoint.bcfV");
    });
    row("any of them may be, in any folder", "", [](M, T t) {
        t->addViewpoint("v")->setViewpointFilename("v.bcfv");
        t->addViewpoint("w")->setViewpointFilename("some/viewpoint.bcfv");
    });
    row("a named image has to be there", badTopic,
        [](M, T t) { t->addViewpoint("v")->setSnapshotFilename("snapshot.png"); });
    row("an image of another viewpoint does not count", badTopic, [](M, T t) {
        addImage(t, "v", "snapshot.png");
        t->addViewpoint("w")->setSnapshotFilename("w.png");
    });
    row("some image is to be named snapshot.png", badTopic, [](M, T t) { addImage(t, "v", "v.png"); });
    row("any of them may be, in any folder too", "", [](M, T t) {
        addImage(t, "v", "v.png");
        addImage(t, "w", "some/snapshot.png");
    });
    row("an image without a name asks for the name too", badTopic, [](M, T t) { addImage(t, "v", ""); });
    row("so does the image of a viewpoint that is gone", badTopic, [](M, T t) {
        addImage(t, "v", "");
        t->removeViewpoint("v");
        t->addViewpoint("w");
    });
    row("but without viewpoints nobody asks", "", [](M, T t) {
        addImage(t, "v", "");
        t->removeViewpoint("v");
    });
    row("a camera of scale 0 does not count, so it does no harm", "",
        [](M, T t) { t->addViewpoint("v")->setOrthogonalCamera(BCFLib::OrthogonalCamera()); });
}

void TestValidation::verdict()
{
    QFETCH(Change, change);
    QFETCH(QString, message);

    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(nullptr);
    change(model.data(), model->addTopic("A leak", "Aino", QDateTime::currentDateTime(), "t"));
    const bool isWarning = message.contains("no topics");
    QString saidMessage;
    QString saidTitle;
    QCOMPARE(model->isValid("%2.bcf", saidMessage, saidTitle), message.isEmpty() || isWarning);
    QCOMPARE(saidMessage, message);
    QCOMPARE(saidTitle, QString(isWarning ? "Warning" : "Error"));
    QCOMPARE(model->isValid(), message.isEmpty() || isWarning);
}

QTEST_GUILESS_MAIN(TestValidation)

#include "TestValidation.moc"
