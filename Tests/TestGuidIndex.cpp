#include "TestArchive.h"

#include <QRandomGenerator>
#include <QSignalBlocker>
#include <QTimer>

using namespace BCFLib;

namespace {

/// A topic of a host that keeps to itself what its base class does not hear of otherwise.
class QuietTopic : public Topic
{
    void childEvent(QChildEvent *) override {}

public:
    using Topic::Topic;
};

/// A topic of a host that sees the events of its children first, as a filter of events does, and passes on
/// all of them or none. It looks for comments meanwhile, and as some die, when they have no class yet or any
/// more.
class HostTopic : public QuietTopic
{
public:
    HostTopic(bool passesOn, QObject *parent)
        : QuietTopic(QVariant(), parent)
        , _passesOn(passesOn)
    {
    }

    void look()
    {
        hasFoundOthers |=
            comment("7") != findChild<Comment *>("7") || comments() != findChildren<Comment *>();
    }

    bool hasFoundOthers = false;

protected:
    bool event(QEvent *event) override
    {
        if (++_events % 40 == 0) {
            look();
        }
        const bool result = _passesOn ? Topic::event(event) : QObject::event(event);
        // Stands behind one that is still being made.
        if (event->type() == QEvent::ChildAdded && _events % 5 == 0 && children().size() < 200) {
            new Comment("7", this);
        }
        look();
        return result;
    }

private:
    bool _passesOn;
    int _events = 0;
};

/// Looks for a comment whenever children come.
class Filter : public QObject
{
    bool eventFilter(QObject *object, QEvent *event) override
    {
        return event->type() == QEvent::ChildAdded && static_cast<Topic *>(object)->comment("7") == object;
    }
};

int asked = 0;

/// Counts how often a search looks at one.
template<class Base>
class Counted : public Base
{
public:
    using Base::Base;
    const QMetaObject *metaObject() const override
    {
        ++asked;
        return Base::metaObject();
    }
};

} // namespace

class TestGuidIndex : public QObject
{
    Q_OBJECT

private slots:
    void asFindChild_data();
    void asFindChild();
    void slotsChangeAndLook();
    void searchesAskFewChildren();
};

void TestGuidIndex::asFindChild_data()
{
    QTest::addColumn<uint>("seed");
    QTest::addColumn<bool>("passesOn");

    // A million steps in rows of which none takes long, also where memory is checked.
    const bool isThorough = qEnvironmentVariableIsSet("BCF_THOROUGH");
    for (uint seed = isThorough ? 1 : 49; seed <= (isThorough ? 168 : 51); ++seed) {
        const bool passesOn = seed % 3 != 0;
        QTest::addRow("%s, seed %u", passesOn ? "passed on" : "kept by the host", seed) << seed << passesOn;
    }
}

/// Random changes to a tree, each followed by look-ups that have to give what QObject gives.
void TestGuidIndex::asFindChild()
{
    QFETCH(uint, seed);
    QFETCH(bool, passesOn);

    QRandomGenerator random(seed);
    const auto below = [&random](int bound) { return static_cast<int>(random.bounded(bound)); };
    const auto guid = [&below] { return QString::number(below(80)); };
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    HostTopic *host = new HostTopic(passesOn, model.data());
    for (int i = 0; i < 40; ++i) {
        model->addTopic("", "", QDateTime(), guid());
    }
    for (int step = 0; step < 6000; ++step) {
        const QList<QObject *> all = model->findChildren<QObject *>();
        const QList<Topic *> topics = model->findChildren<Topic *>();
        QObject *any = all.at(below(all.size()));
        Topic *topic = below(3) == 0 ? topics.at(below(topics.size())) : host;
        const auto isAbove = [](const QObject *object, const QObject *other) {
            while (other != nullptr && other != object) {
                other = other->parent();
            }
            return other == object;
        };
        switch (any == host || all.size() < 150 ? below(3) : below(10)) {
        case 0:
            connect(new Comment(guid(), below(4) == 0 ? any : topic), &QObject::destroyed, host, [host] {
                // Qt 6's own search can't bear children that are going.
                QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? host->look() : void();
            });
            break;
        case 1:
            topic->addViewpoint(guid())->addLine();
            break;
        case 2:
            if (below(2) == 0) {
                topic->addComment(guid());
            } else {
                QObject *plain = new QObject(below(5) == 0 ? any : topic);
                if (below(4) == 0) {
                    new Comment(guid(), plain);
                }
            }
            break;
        case 3:
            if (below(4) == 0) {
                model->addTopic("", "", QDateTime(), guid());
            } else if (!isAbove(any, host)) {
                delete any;
            }
            break;
        case 4:
            topic->removeComment(guid());
            break;
        case 5:
        case 6: {
            QObject *place = below(2) == 0 ? all.at(below(all.size())) : topic;
            if (!isAbove(any, place)) {
                any->setParent(nullptr);
                any->setParent(place);
            }
            break;
        }
        default: {
            const QSignalBlocker blocker(below(2) == 0 ? any : nullptr);
            if (below(3) == 0) {
                any->disconnect();
            }
            if (Comment *comment = qobject_cast<Comment *>(any)) {
                comment->setGuid(guid());
            } else if (Viewpoint *viewpoint = qobject_cast<Viewpoint *>(any)) {
                viewpoint->setGuid(guid());
            } else if (Topic *other = qobject_cast<Topic *>(any)) {
                other->setGuid(guid());
            }
        }
        }
        if (below(3) == 0) {
            continue;
        }
        const QString wanted = guid();
        QVERIFY(!host->hasFoundOthers);
        QCOMPARE(host->comment(wanted), host->findChild<Comment *>(wanted));
        QCOMPARE(host->viewpoint(wanted), host->findChild<Viewpoint *>(wanted));
        QCOMPARE(model->topic(wanted), model->findChild<Topic *>(wanted));
    }
}

void TestGuidIndex::slotsChangeAndLook()
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    for (int i = 0; i < 50; ++i) {
        const Topic *added = model->addTopic("", "", QDateTime(), QString::number(i));
        QCOMPARE(model->topic(QString::number(i)), added);
    }
    Topic *topic = model->addTopic("", "", QDateTime(), "t");
    for (int i = 0; i < 100; ++i) {
        topic->addComment(QString::number(i));
    }
    Comment *comment = topic->comment("50");
    const Comment *found[2] = {};
    connect(comment, &QObject::objectNameChanged, [&] {
        found[0] = topic->comment("new");
        found[1] = topic->comment("50");
    });
    comment->setGuid("new");
    QCOMPARE(found[0], comment);
    QVERIFY(found[1] == nullptr);
    // A raw name is heard of by a signal, and one that is taken over goes to the first that bears it.
    comment->setObjectName("70");
    QCOMPARE(topic->comment("70"), comment);
    topic->comment("10")->setObjectName("70");
    QCOMPARE(topic->comment("70"), topic->comments().at(10));
    // What comes below an object of a host is not reported.
    topic->comment("20")->setParent(new QObject(topic));
    QVERIFY(topic->comment("20") != nullptr);
    Comment *deeper = new Comment("deeper", comment);
    QCOMPARE(topic->comment("deeper"), deeper);
    // One that is dying does not count.
    connect(topic->addViewpoint("v"), &QObject::destroyed, [topic] { topic->addViewpoint("w"); });
    topic->removeViewpoint("v");
    QCOMPARE(topic->viewpoint("w")->viewpointFilename(), QString("viewpoint.bcfv"));
    // Some are made while the one in front of them still is.
    HostTopic *host = new HostTopic(true, model.data());
    for (int i = 0; i < 100; ++i) {
        new Comment("7", host);
    }
    while (const Comment *first = host->findChild<Comment *>("7")) {
        delete first;
    }
    QVERIFY(!host->hasFoundOthers);
}

/// However it came to its place, and whatever happens in other models.
void TestGuidIndex::searchesAskFewChildren()
{
    const QSharedPointer<BCFModel> models[2] = {BCFModel::Create(nullptr), BCFModel::Create(nullptr)};
    Topic *topic = new QuietTopic(QVariant(), models[0].data());
    new QTimer(topic);
    new Counted<QTimer>(topic->addFile());
    Filter filter;
    for (int i = 0; i < 1000; ++i) {
        new Counted<Comment>(QString::number(i), topic);
        // Viewpoints, which have a child as soon as they are made, between any number of comments.
        if (i > 500 && i % 3 == 0) {
            topic->addViewpoint(QString());
        }
        if (i == 500) {
            topic->installEventFilter(&filter);
        }
    }
    Comment *other = models[1]->addTopic("", "", QDateTime(), "t")->addComment("o");
    const QSignalBlocker blocker(other);
    connect(topic->comment("5"), &QObject::destroyed, [topic] { topic->comment("5"); });
    asked = 0;
    topic->removeComment("5");
    for (int i = 0; i < 1000; ++i) {
        other->setGuid(QString::number(i % 2));
        QCOMPARE(topic->comment("999")->guid(), QString("999"));
        QVERIFY(topic->comment("nobody's") == nullptr);
        topic->addComment(QString::number(1000 + i));
        topic->addViewpoint(QString::number(i));
    }
    QVERIFY2(asked < 1000, qPrintable(QString::number(asked)));
}

QTEST_GUILESS_MAIN(TestGuidIndex)

#include "TestGuidIndex.moc"
