#include "TestArchive.h"

#include <log4cplus/appender.h>
#include <log4cplus/spi/loggingevent.h>

using BCFLib::BCFModel;
using BCFLib::Comment;
using BCFLib::Topic;
using BCFLib::Viewpoint;

namespace {

QStringList guids(const QObject *root, const char *className)
{
    return tellAll(root, className, "objectName");
}

/// Keeps what is logged.
struct Journal : log4cplus::Appender
{
    ~Journal() override { destructorImpl(); }
    void close() override { closed = true; }
    void append(const log4cplus::spi::InternalLoggingEvent &event) override
    {
        lines.append(QString::number(event.getLogLevel()) + ' ' + QString::fromStdString(event.getMessage()));
    }
    QStringList lines;
};

} // namespace

class TestTree : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void newObjectsFollowTheVersionOfTheirModel();
    void guidsMayRepeatWhereNothingForbidsIt();
    void onlyTheFirstViewpointAndImageAreNamed();
    void imagesOutliveTheirViewpoints();
    void linksGoNullWithTheirTargets();
    void componentsLeaveEveryListThatHeldThem();
    void aListHoldsAGuidOnce();

private:
    QSharedPointer<BCFModel> _model;
    Topic *_topic = nullptr;
};

void TestTree::init()
{
    _model = BCFModel::Create(nullptr);
    _topic = _model->addTopic("a", "b", {}, "t");
}

void TestTree::newObjectsFollowTheVersionOfTheirModel()
{
    for (const char *asked : {"2.0", "2.1", "1.0", "2.0 RC", ""}) {
        const QSharedPointer<BCFModel> model = BCFModel::Create(asked, nullptr);
        const bool isListForm = qstrcmp(asked, "2.0") == 0;
        QCOMPARE(tell(model->version(), "_versionId _detailedVersion"),
                 QString(isListForm ? "2.0|2.0 RC" : "2.1|2.1"));
        // A second record stays behind the first.
        model->createVersion(isListForm ? "2.1" : "2.0");
        Topic *topic = model->addTopic("", "", {}, "");
        QCOMPARE(topic->addViewpoint("")->inherits("BCF_2_0_Lib::Viewpoint"), isListForm);
        QCOMPARE(topic->addComment("")->inherits("BCF_2_0_Lib::Comment"), isListForm);
        QCOMPARE(BCFModel::getVersion(topic->viewpoints().at(0)->components()),
                 model->version()->versionId());
        QVERIFY(topic->guid().size() > 30 && topic->comments().at(0)->guid().size() > 30);
        topic->setParent(nullptr);
        QCOMPARE(BCFModel::getVersion(topic), QString());
        delete topic;
    }
}

void TestTree::guidsMayRepeatWhereNothingForbidsIt()
{
    Topic *second = _model->addTopic("", "", {}, "t");
    QVERIFY(_model->topic("t") == _topic && _model->topic("T") == nullptr);
    _model->removeTopic("T");
    _model->removeTopic("t");
    QCOMPARE(_model->topics(), QList<Topic *>{second});
    for (const char *guid : {"d", "e", "d", ""}) {
        second->addDocumentReference(guid);
        second->addRelatedTopic(guid);
        Comment *comment = second->addComment(guid);
        comment->setComment(comment->comment() + 'x');
        second->addViewpoint(guid)->addLine();
    }
    QCOMPARE(guids(second, "BCFLib::DocumentReference"), QStringList({"d", "e", "d", ""}));
    const QStringList related = tellAll(second, "BCFLib::RelatedTopic", "_guid");
    QVERIFY(related.mid(0, 3) == QStringList({"d", "e", "d"}) && related.at(3).size() > 30);
    // These replace the one of the same guid, and the new one comes last.
    QCOMPARE(tellAll(second, "BCFLib::Comment", "objectName _comment").mid(0, 2),
             QStringList({"e|x", "d|x"}));
    QVERIFY(second->viewpoint("d")->lines().size() == 1 && second->viewpoints().size() == 3);
    BCFLib::BimSnippet *first = second->addBimSnippet();
    BCFLib::BimSnippet *other = second->addBimSnippet();
    QCOMPARE(second->bimSnippet(), first);
    second->removeBimSnippet();
    QCOMPARE(second->bimSnippet(), other);
    for (const char *guid : {"p", "q", "q"}) {
        _model->addProject(guid);
    }
    QVERIFY(guids(_model.data(), "BCFLib::Project") == QStringList({"p", "q"})
            && _model->project()->guid() == "p");
}

void TestTree::onlyTheFirstViewpointAndImageAreNamed()
{
    const auto names = [this] {
        return tellAll(_topic, "BCFLib::Viewpoint", "objectName _viewpointFilename _snapshotFilename");
    };
    _topic->addViewpoint("a");
    _topic->addViewpoint("a");
    _topic->addViewpoint("b")->setSnapshot("1");
    _topic->viewpoint("a")->setSnapshot("2");
    QCOMPARE(names(), QStringList({"a|viewpoint.bcfv|", "b||snapshot.png"}));
    // The name went with the viewpoint that had it.
    _topic->addViewpoint("a")->setSnapshotFilename("a.png");
    _topic->viewpoint("b")->setSnapshotFilename("b.png");
    _topic->removeSnapshot("a");
    QCOMPARE(names(), QStringList({"b||b.png", "a||"}));
    _topic->viewpoint("b")->setSnapshot("3");
    QCOMPARE(names(), QStringList({"b||snapshot.png", "a||"}));
}

void TestTree::imagesOutliveTheirViewpoints()
{
    QByteArray bytes = "1";
    QVERIFY(!_topic->addSnapshot("a", &bytes) && _topic->snapshot("a") == nullptr);
    Viewpoint *viewpoint = _topic->addViewpoint("a");
    QVERIFY(_topic->addSnapshot("a", &bytes));
    viewpoint->setSnapshot("");
    bytes[0] = '2';
    viewpoint->setGuid("b");
    QVERIFY(_topic->snapshot("b") == nullptr && _topic->viewpoint("a") == nullptr);
    _topic->removeViewpoint("b");
    _topic->removeSnapshot("a");
    QCOMPARE(*_topic->snapshot("a"), QByteArray("1"));
    // The image of a viewpoint that is gone still counts, so this one is not the first.
    _topic->addViewpoint("c")->setSnapshot("3");
    QVERIFY(_topic->snapshot("c") != nullptr && _topic->viewpoint("c")->snapshotFilename().isEmpty());
    Viewpoint("d", nullptr).setSnapshot("4");
}

void TestTree::linksGoNullWithTheirTargets()
{
    Comment *comment = _topic->addComment("c");
    const QList<std::function<void()>> removals{
        [this] { _topic->removeViewpoint("v"), _topic->removeComment("answered"); },
        [this] { _topic->removeViewpoints(), delete _topic->comment("answered"); },
        [this] { _topic->addViewpoint("v"), _topic->addComment("answered"); },
        [this, comment] { comment->setParent(nullptr), _model.reset(); }};
    for (const auto &remove : removals) {
        comment->setViewpoint(_topic->addViewpoint("v"));
        comment->setReplyToComment(_topic->addComment("answered"));
        remove();
        QVERIFY(comment->viewpoint() == nullptr && comment->replyToComment() == nullptr);
        QVERIFY(!comment->toQVariant().toMap().contains("viewpoint_guid"));
        QVERIFY(_model == nullptr || _model->serialize(TestArchive().path()));
    }
    QVERIFY(comment->topic() == nullptr);
    delete comment;
}

void TestTree::componentsLeaveEveryListThatHeldThem()
{
    BCFLib::Components *sets = _topic->addViewpoint("v")->components();
    sets->setSelectionComponents({"a", "", "a"});
    sets->setVisibilityExceptionComponents({"a", "b"});
    sets->addColoringComponents(QColor(0, 255, 0), {"c"});
    sets->addColoringComponents(Qt::blue, {});
    sets->addColoringComponents(QColor(0, 255, 0, 7), {"a", "d"});
    QCOMPARE(guids(sets, "BCFLib::Component"), QStringList({"a", "", "a", "a", "b", "a", "d"}));
    for (QObject *component : sets->findChildren<QObject *>("a")) {
        delete component;
    }
    QVERIFY(sets->getSelectionComponents().size() == 1
            && sets->getVisibilityExceptionComponents().size() == 1);
    QVERIFY(_model->serialize(TestArchive().path()));
    sets->setSelectionComponents({});
    QCOMPARE(guids(sets, "BCFLib::Component"), QStringList({"b", "d"}));
    sets->removeColoringComponents();
    QCOMPARE(guids(sets, "BCFLib::Component"), QStringList("b"));
}

void TestTree::aListHoldsAGuidOnce()
{
    log4cplus::SharedAppenderPtr appender(new Journal);
    log4cplus::Logger logger = log4cplus::Logger::getInstance("Tavrin.Core.Utils.BCF_2_1.Viewpoint");
    logger.addAppender(appender);
    BCF_2_0_Lib::Viewpoint list("v", nullptr);
    for (const char *guid : {"b", "", "a", "b"}) {
        QCOMPARE(list.addComponent(guid)->selected(), Tavrin::BooleanUnset);
        list.getComponent(guid)->setSelected(Tavrin::BooleanTrue);
    }
    logger.removeAppender(appender);
    const QStringList line("40000 To add component with empty guid is not allowed");
    QCOMPARE(static_cast<Journal &>(*appender).lines, line);
    QVERIFY(list.getComponent("c") == nullptr && list.components().size() == 3);
    QVERIFY(list.components().at(0)->guid().isEmpty() && list.components().at(1)->guid() == "a");
    list.getComponent("a")->setGuid("b");
    delete list.getComponent("a");
    delete list.getComponent("b");
    QCOMPARE(list.components().size(), 1);
}

QTEST_GUILESS_MAIN(TestTree)

#include "TestTree.moc"
