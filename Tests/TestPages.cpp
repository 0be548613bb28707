// Runs the code that the README and Docs/ForHosts.md show, taken out of them as it stands.

#include "TestArchive.h"

#include <QThread>

using Model = QSharedPointer<BCFLib::BCFModel>;

// README.md
bool walk(const QString &path);
bool make(const QString &path, const BCFLib::PerspectiveCamera &camera, const QByteArray &png,
          const BCFLib::PerspectiveCamera &closeCamera, const QByteArray &closePng);

// Docs/ForHosts.md
BCFLib::Viewpoint *addView(BCFLib::Topic *topic, const QByteArray &png);
bool takeAttachments(const BCFLib::BCFModel &model, const QString &folder);
void load(const QString &path, QObject *receiver, std::function<void(int percent)> progress,
          std::function<void(Model)> done);
QString verdict(const BCFLib::BCFModel &model, const QString &path);
bool isReadInPart(const QString &path);
QStringList entriesNoSaveKeeps(const QString &path);
bool save(BCFLib::BCFModel &model, const QString &path);
void select(BCFLib::Viewpoint *viewpoint, const QStringList &guids);
QVariantMap wholeForm(const BCFLib::Topic &topic, bool forListForm);
BCFLib::Topic *copyTopic(const BCFLib::Topic &topic, BCFLib::BCFModel *model);
QByteArray topicToJson(const BCFLib::Topic &topic);
BCFLib::Topic *topicFromJson(const QByteArray &json, BCFLib::BCFModel *model);

namespace {

const QByteArray attachment = "<Header><File isExternal=\"false\"><Filename>a.ifc</Filename></File></Header>";

BCFLib::Topic *addTopic(const Model &model)
{
    return model->addTopic("Duct", "maria", QDateTime(QDate(2024, 3, 14), QTime(9, 0)), QString());
}

} // namespace

class TestPages : public QObject
{
    Q_OBJECT

private slots:
    void readme();
    void viewpointsAreSaved();
    void attachmentsStayApart();
    void thread();
    void unusable();
    void versions_data() { addRows("Pages/versions.json"); }
    void versions();
    void saving();
    void copies_data() { addRows("Pages/copies.json"); }
    void copies();

private:
    QTemporaryDir _folder;
    const QString _path = _folder.filePath("a.bcf");
};

void TestPages::readme()
{
    BCFLib::PerspectiveCamera camera;
    camera.fieldOfView = 60;
    QVERIFY(make(_path, camera, TestArchive::png(), camera, "another"));
    QVERIFY(walk(_path));
    const Model model = TestArchive::load(_path);
    const BCFLib::Topic *topic = model->topics().first();
    QCOMPARE(topic->viewpoints().size(), 2);
    QCOMPARE(*topic->snapshot(topic->comments().first()->viewpoint()->guid()), QByteArray("another"));
    QVERIFY(!walk(_folder.path()));
}

void TestPages::viewpointsAreSaved()
{
    const Model model = BCFLib::BCFModel::Create(nullptr);
    BCFLib::Topic *topic = addTopic(model);
    for (const char *image : {"0", "1", "2"}) {
        addView(topic, image);
    }
    const QString first = topic->viewpoints().first()->guid();
    topic->removeSnapshot(first);
    topic->removeViewpoint(first);
    addView(topic, "3");
    QVERIFY(topic->isValid());
    QVERIFY(save(*model, _path));
    const Model saved = TestArchive::load(_path);
    QString told;
    for (const BCFLib::Viewpoint *viewpoint : saved->topics().first()->viewpoints()) {
        told += viewpoint->viewpointFilename() + '=' + *saved->topics().first()->snapshot(viewpoint->guid())
            + ' ';
    }
    QCOMPARE(told, QString("viewpoint1.bcfv=1 viewpoint2.bcfv=2 viewpoint.bcfv=3 "));
    QVERIFY(saved->isValid());
}

void TestPages::attachmentsStayApart()
{
    const auto loaded = [this](const QByteArray &content, const QString &folder) {
        TestArchive archive;
        const Model model = archive.addTopic("", attachment).add("a.ifc", content).load();
        return takeAttachments(*model, _folder.filePath(folder)) ? model : Model();
    };
    const Model one = loaded("one", "1");
    const Model two = loaded("two", "2");
    QVERIFY(one && two && save(*one, _path));
    QCOMPARE(TestArchive::entry(_path, "a.ifc"), QByteArray("one"));
}

void TestPages::thread()
{
    TestArchive archive;
    QObject receiver;
    Model model;
    int percent = 0;
    load(
        archive.addTopic("<Title>T</Title>").write(), &receiver, [&](int now) { percent = now; },
        [&](const Model &loaded) { model = loaded; });
    QTRY_VERIFY(model);
    QCOMPARE(percent, 100);
    QVERIFY(addTopic(model));
    QCOMPARE(model->topics().size(), 2);

    // What happens to those who don't give the model away.
    Model stranger;
    QScopedPointer<QThread> thread(QThread::create([&] { stranger = BCFLib::BCFModel::Create(nullptr); }));
    thread->start();
    thread->wait();
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("Cannot create children for a parent"));
    QScopedPointer<BCFLib::Topic> lost(addTopic(stranger));
    QVERIFY(stranger->topics().isEmpty());
}

void TestPages::unusable()
{
    TestArchive archive;
    const Model model = archive.addTopic("").load();
    QVERIFY(verdict(*model, "a").startsWith("Not usable. Invalid file \"a\""));
    model->topics().first()->setTitle("T");
    QVERIFY(save(*model, _path));
    QCOMPARE(TestArchive::load(_path)->topics().size(), 1);
}

void TestPages::versions()
{
    QFETCH(QVariantMap, row);
    TestArchive archive(QString{});
    if (row.contains("file")) {
        archive.add("bcf.version", row["file"].toByteArray());
    }
    archive.addTopic("",
                     attachment + "<Comment/><Viewpoints Guid='v'><Snapshot>s.png</Snapshot></Viewpoints>");
    for (const char *name : {"a.ifc", "t/s.png", "t/viewpoint.bcfv", "u/markup.bcf", "u/s.png", "t/a.ifc"}) {
        archive.add(name, "<");
    }
    const Model model = archive.load();

    // What the model is and has tells which versions the load knew.
    const BCFLib::Topic *topic = model->topics().first();
    const bool isKnown = model->version()->versionId() == "2.1"
        || qobject_cast<BCF_2_0_Lib::Comment *>(topic->comments().first()) != nullptr;
    QCOMPARE(isReadInPart(archive.path()), !isKnown);
    QStringList lost{"u/markup.bcf", "u/s.png", "t/a.ifc"};
    if (topic->viewpoints().size() == 1) {
        lost.prepend("t/viewpoint.bcfv");
    }
    QCOMPARE(entriesNoSaveKeeps(archive.path()), lost);
}

void TestPages::saving()
{
    TestArchive good, torso;
    QVERIFY(save(*good.addTopic("").load(), _path));
    const Model model = TestArchive::load(_path);
    model->topics().first()->addViewpoint(QString())->setSnapshotFilename("none.png");
    QVERIFY(!save(*model, _path));
    QVERIFY(!save(*torso.addTopic("", attachment).load(), _path));
    QCOMPARE(TestArchive::load(_path)->topics().size(), 1);
    QVERIFY(!QFile::exists(_path + ".part"));
}

void TestPages::copies()
{
    QFETCH(QVariantMap, row);
    const QString from = row["from"].toString(), to = row["to"].toString();
    const Model model = BCFLib::BCFModel::Create(from, nullptr);
    const Model other = BCFLib::BCFModel::Create(to, nullptr);
    BCFLib::Topic *topic = addTopic(model);
    addView(topic, QByteArray("\x89PNG\r\n\x1a\n\0\xff", 10));
    BCFLib::Viewpoint *viewpoint = addView(topic, QByteArray());
    viewpoint->addBitmap()->setReference("b.png");
    select(viewpoint, {"first", "second"});
    topic->addDocumentReference("d");
    BCFLib::Comment *answer = topic->addComment("answer");
    answer->setReplyToComment(topic->addComment("question"));
    if (const auto *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        list->getComponent("first")->setColor("ff0000");
        list->getComponent("first")->setVisible(Tavrin::BooleanTrue);
        select(viewpoint, {"third"});
        list->getComponent("third")->setVisible(Tavrin::BooleanFalse);
    } else {
        BCFLib::ViewSetupHints hints;
        hints.spacesVisible = Tavrin::BooleanFalse;
        viewpoint->components()->setViewSetupHints(hints);
        viewpoint->components()->setDefaultVisibility(false);
        viewpoint->components()->setSelectionComponents({"first", "second", "third"});
        viewpoint->components()->addColoringComponents(Qt::red, QStringList("first"));
    }

    const BCFLib::Topic *copy = copyTopic(*topic, other.data());
    if (from == to) {
        QCOMPARE(dump(copy), dump(topic));

        // The same through JSON, read in another part of the world.
        const QByteArray json = topicToJson(*topic);
        qputenv("TZ", "Asia/Kolkata");
        QScopedPointer<BCFLib::Topic> back(topicFromJson(json, other.data()));
        qunsetenv("TZ");
        QCOMPARE(back->creationDate(), topic->creationDate());
        back->setCreationDate(topic->creationDate());
        QVariantMap told = wholeForm(*back, to == "2.0"), expected = wholeForm(*topic, to == "2.0");
        for (const char *lost : {"document_references", "comments"}) {
            QVERIFY(told.take(lost) != expected.take(lost));
        }
        QCOMPARE(told, expected);
    } else {
        const QVariantMap form = copy->viewpoints().last()->componentsToQVariant();
        QCOMPARE(form.value("selection").toList().size(), 3);
        QCOMPARE(form.value("coloring").toList().first().toMap().value("color").toString(),
                 QString("#ff0000"));
        const QVariantMap visibility = form.value("visibility").toMap();
        QCOMPARE(visibility.value("exceptions").toList().size(), from == "2.0" ? 1 : 3);
    }
}

QTEST_GUILESS_MAIN(TestPages)
#include "TestPages.moc"
