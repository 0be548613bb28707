#include "TestArchive.h"

#include <limits>

using namespace BCFLib;

namespace {

using Deed = std::function<void(BCFModel *)>;

/// A model with one of everything, in the classes of that version.
QSharedPointer<BCFModel> fullModel(const QString &version)
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(version, nullptr);
    model->addProject("p");
    Topic *topic = model->addTopic("title", "author", QDateTime::currentDateTime(), "t");
    topic->addFile();
    topic->addBimSnippet();
    topic->addDocumentReference("d");
    topic->addRelatedTopic("r");
    Viewpoint *viewpoint = topic->addViewpoint("v");
    viewpoint->addLine();
    viewpoint->addClippingPlane();
    viewpoint->addBitmap();
    if (auto *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        list->addComponent("a");
        list->addComponent("b");
    } else {
        viewpoint->components()->setSelectionComponents({"a", "b"});
        viewpoint->components()->setVisibilityExceptionComponents({"c"});
        viewpoint->components()->addColoringComponents(Qt::red, {"d"});
    }
    Comment *comment = topic->addComment("c");
    comment->setViewpoint(viewpoint);
    topic->addComment("reply")->setReplyToComment(comment);
    return model;
}

/// Everything that a host does with a model; touches an object that is gone if anything does.
void useAll(BCFModel *model)
{
    model->isValid();
    TestArchive scratch;
    model->serialize(scratch.path());
    TestArchive::load(scratch.path());
    for (Topic *topic : model->topics()) {
        const QVariant form = topic->toQVariant();
        for (Viewpoint *viewpoint : topic->viewpoints()) {
            viewpoint->components()->setSelectionComponents({"x"});
            viewpoint->components()->removeColoringComponents();
            viewpoint->componentsFromQVariant(viewpoint->componentsToQVariant());
        }
        topic->fromQVariant(form);
        topic->removeFiles();
        topic->removeBimSnippet();
        topic->removeViewpoints();
        topic->removeComments();
    }
    model->removeTopic("t");
}

template<class T>
T *first(BCFModel *model)
{
    return model->findChild<T *>();
}

/// Gives all texts of all objects that one, but for guids that keep apart what stands side by side.
void setAllTexts(QObject *object, const QString &text)
{
    for (int i = 0; i < object->metaObject()->propertyCount(); ++i) {
        const QMetaProperty property = object->metaObject()->property(i);
        const QString name = property.name();
        const bool isGuid = name == "objectName" || name == "_guid";
        // The version says how to read the archive, and names of files have to be true.
        if (property.userType() == QMetaType::QString && !name.contains("ersion") && !name.endsWith("ilename")
            && name != "_errorString" && (!isGuid || !object->objectName().isEmpty())) {
            property.write(object, isGuid ? text + object->objectName().right(1) : text);
        }
    }
    for (QObject *child : object->children()) {
        setAllTexts(child, text);
    }
}

} // namespace

Q_DECLARE_METATYPE(Deed)

class TestCarelessHosts : public QObject
{
    Q_OBJECT

private slots:
    void anyObjectGoesAnywhere();
    void treesEndure_data();
    void treesEndure();
    void setsThatChangeWhileOneChanges();
    void nullPointersAreRefused();
    void anyVariantIsTaken_data();
    void anyVariantIsTaken();
    void anyTextComesBack_data() { addRows("Saving/texts.json"); }
    void anyTextComesBack();
    void workersMayGoDuringTheLoad();
};

void TestCarelessHosts::anyObjectGoesAnywhere()
{
    for (const char *version : {"2.1", "2.0"}) {
        const int count = fullModel(version)->findChildren<QObject *>().size();
        for (int i = 0; i < count * count; ++i) {
            const QSharedPointer<BCFModel> model = fullModel(version);
            new QObject(first<Topic>(model.data()));
            const QList<QObject *> all = model->findChildren<QObject *>();
            QObject *object = all.at(i / count);
            QObject *place = all.at(i % count);
            if (place == object) {
                delete object;
            } else if (!object->findChildren<QObject *>().contains(place)) {
                object->setParent(place);
            }
            QCOMPARE(model->topics(), model->findChildren<Topic *>());
            for (const Topic *topic : model->topics()) {
                QCOMPARE(topic->comments(), topic->findChildren<Comment *>());
                QCOMPARE(topic->viewpoints(), topic->findChildren<Viewpoint *>());
            }
            useAll(model.data());
        }
    }
}

void TestCarelessHosts::treesEndure_data()
{
    QTest::addColumn<Deed>("deed");

    QTest::newRow("a component is renamed and deleted") << Deed([](BCFModel *model) {
        first<Component>(model)->setGuid("elsewhere");
        delete first<Component>(model);
    });
    QTest::newRow("a component is taken away and deleted later") << Deed([](BCFModel *model) {
        const QPointer<QObject> component = first<Component>(model);
        component->setParent(nullptr);
        for (Viewpoint *viewpoint : model->findChildren<Viewpoint *>()) {
            viewpoint->components()->setSelectionComponents({});
        }
        delete component.data();
    });
    QTest::newRow("a component that goes takes the next along") << Deed([](BCFModel *model) {
        const QList<Component *> all = model->findChildren<Component *>();
        // From the same set and, in the sets form, from the two others.
        for (Component *other : all.mid(1)) {
            connect(all.first(), &QObject::destroyed, other, [other] { delete other; });
        }
        first<Components>(model)->setSelectionComponents({});
    });
    QTest::newRow("a comment that goes takes all others along") << Deed([](BCFModel *model) {
        Topic *topic = first<Topic>(model);
        connect(first<Comment>(model), &QObject::destroyed, topic, [topic] { topic->removeComments(); });
        topic->removeComments();
    });
    QTest::newRow("all guids are one") << Deed([](BCFModel *model) {
        for (QObject *object : model->findChildren<QObject *>()) {
            object->setObjectName("t");
        }
    });
}

void TestCarelessHosts::treesEndure()
{
    QFETCH(Deed, deed);

    for (const char *version : {"2.1", "2.0"}) {
        const QSharedPointer<BCFModel> model = fullModel(version);
        deed(model.data());
        useAll(model.data());
    }
}

void TestCarelessHosts::setsThatChangeWhileOneChanges()
{
    /// Does something whenever a component comes or goes, but not while it does so.
    struct Filter : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (isBusy || (event->type() != QEvent::ChildAdded && event->type() != QEvent::ChildRemoved)) {
                return false;
            }
            isBusy = true;
            meanwhile();
            isBusy = false;
            return false;
        }
        std::function<void()> meanwhile;
        bool isBusy = false;
    };
    const QVariantList forms{QVariantMap{{"ifc_guid", "a"}}, QVariantMap{{"ifc_guid", "b"}}};
    const QVariantMap map{{"selection", forms},
                          {"visibility", QVariantMap{{"exceptions", forms}}},
                          {"coloring", QVariantMap{{"#ff0000", forms}}}};
    const QByteArray two = "<Component IfcGuid='a'/><Component IfcGuid='b'/>";
    const QByteArray file = "<Components>" + two + "<Selection>" + two
        + "</Selection><Visibility><Exceptions>" + two
        + "</Exceptions></Visibility><Coloring><Color Color='#ff0000'>" + two
        + "</Color></Coloring></Components>";
    const QStringList guids{"a", "b"};
    using V = Viewpoint *;
    const QList<std::function<void(V)>> deeds{
        [guids](V v) { v->components()->setSelectionComponents(guids); },
        [guids](V v) { v->components()->setVisibilityExceptionComponents(guids); },
        [guids](V v) { v->components()->addColoringComponents(Qt::red, guids); },
        [](V v) { v->components()->removeColoringComponents(); },
        [map](V v) { v->componentsFromQVariant(map); },
        [file](V v) { readViewpoint(v, file); },
        [](V v) {
            if (auto *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(v)) {
                list->addComponent("a")->setColor("b");
            }
        },
        [](V v) {
            const QList<Component *> all = v->findChildren<Component *>();
            for (const QPointer<Component> &component : QList<QPointer<Component>>(all.begin(), all.end())) {
                delete component;
            }
        }};
    for (const auto &deed : deeds) {
        for (const auto &meanwhile : deeds) {
            BCFLib::Viewpoint inSets("v", nullptr);
            BCF_2_0_Lib::Viewpoint inList("v", nullptr);
            for (Viewpoint *viewpoint : {&inSets, static_cast<Viewpoint *>(&inList)}) {
                deeds.at(4)(viewpoint);
                Filter filter;
                filter.meanwhile = [viewpoint, meanwhile] { meanwhile(viewpoint); };
                viewpoint->installEventFilter(&filter);
                viewpoint->components()->installEventFilter(&filter);
                deed(viewpoint);
                // Whatever there is stands in one of the lists.
                Components *sets = viewpoint->components();
                int listed = sets->getSelectionComponents().size()
                    + sets->getVisibilityExceptionComponents().size() + inList.components().size();
                for (const QVariant &group : sets->toQVariant().toMap().value("coloring").toList()) {
                    listed += group.toMap().value("components").toList().size();
                }
                QCOMPARE(viewpoint->findChildren<Component *>().size(), listed);
            }
        }
    }
}

void TestCarelessHosts::nullPointersAreRefused()
{
    const QSharedPointer<BCFModel> model = fullModel("2.1");
    Topic *topic = first<Topic>(model.data());
    QVERIFY(!topic->addSnapshot("v", static_cast<QByteArray *>(nullptr)));
    QVERIFY(!topic->addSnapshot("v", static_cast<QIODevice *>(nullptr)));
    Viewpoint alone("alone", nullptr);
    alone.setSnapshot("bytes");
    alone.deserialize(nullptr);
    alone.serialize(nullptr);
    alone.fromQVariant(QVariantMap{{"snapshot", QVariantMap{{"snapshot_data", "bytes"}}}});
    QCOMPARE(alone.viewpointFilename(), QString("viewpoint.bcfv"));
    useAll(model.data());
}

void TestCarelessHosts::anyVariantIsTaken_data()
{
    QTest::addColumn<QVariant>("value");

    QVariant deep;
    for (int i = 0; i < 1000; ++i) {
        deep = QVariantList{QVariantMap{{"components", deep}, {"viewpoints", deep}}};
    }
    QTest::newRow("nothing") << QVariant();
    QTest::newRow("a number that no int holds") << QVariant(std::numeric_limits<qlonglong>::min());
    QTest::newRow("no number") << QVariant(std::numeric_limits<double>::quiet_NaN());
    QTest::newRow("a map of maps") << QVariant(QVariantMap{{"", QVariantMap{{"x", QVariantMap()}}}});
    QTest::newRow("an object") << QVariant::fromValue(static_cast<QObject *>(this));
    QTest::newRow("lists in maps, a thousand deep") << deep;
}

void TestCarelessHosts::anyVariantIsTaken()
{
    QFETCH(QVariant, value);

    for (const char *version : {"2.1", "2.0"}) {
        const QSharedPointer<BCFModel> model = fullModel(version);
        Topic *topic = first<Topic>(model.data());
        const QVariantMap form = topic->toQVariant().toMap();
        // Under every key of the topic, and under every key of what hangs below it.
        for (const QString &key : form.keys() + QStringList{"labels", "index"}) {
            const QVariantMap inner = form.value(key).toList().value(0).toMap();
            for (const QString &innerKey : inner.keys() + QStringList{"snapshot", "orthogonal_camera"}) {
                QVariantMap wrong = inner;
                wrong[innerKey] = value;
                topic->fromQVariant(QVariantMap{{key, QVariantList{wrong}}});
            }
            topic->fromQVariant(QVariantMap{{key, value}});
        }
        topic->fromQVariant(value);
        QVERIFY(!topic->guid().isEmpty());
        useAll(model.data());
    }
}

void TestCarelessHosts::anyTextComesBack()
{
    QFETCH(QVariantMap, row);

    for (const char *version : {"2.1", "2.0"}) {
        const TestArchive scratch;
        const QSharedPointer<BCFModel> model = fullModel(version);
        setAllTexts(model.data(), row["text"].toString());
        QVERIFY(model->serialize(scratch.path()));
        setAllTexts(model.data(), row["readBack"].toString());
        QCOMPARE(dump(TestArchive::load(scratch.path()).data()), dump(model.data()));
    }
}

void TestCarelessHosts::workersMayGoDuringTheLoad()
{
    TestArchive archive;
    archive.addTopic("<Title>a</Title>");
    auto *worker = new BCFLoadingWorker(archive.write());
    connect(worker, &BCFLoadingWorker::addStepsSig, this,
            [&worker] { delete std::exchange(worker, nullptr); });
    worker->doLoad();
    QCOMPARE(worker, nullptr);
}

QTEST_GUILESS_MAIN(TestCarelessHosts)

#include "TestCarelessHosts.moc"
