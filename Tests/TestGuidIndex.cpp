#include "TestArchive.h"

#include <Comment.h>
#include <Line.h>
#include <Topic.h>
#include <Viewpoint.h>

#include <QRandomGenerator>
#include <QSignalBlocker>
#include <QTest>

using namespace BCFLib;

namespace {

/// A topic of a host that sees the events of its children first, and passes on most of them or none.
class HostTopic : public Topic
{
public:
    HostTopic(bool passesOn, QObject *parent)
        : Topic(QVariant(), parent)
        , _passesOn(passesOn)
    {
    }

protected:
    void childEvent(QChildEvent *event) override
    {
        if (_passesOn) {
            Topic::childEvent(event);
        }
    }

private:
    bool _passesOn;
};

} // namespace

class TestGuidIndex : public QObject
{
    Q_OBJECT

private slots:
    void asFindChild_data();
    void asFindChild();
    void slotsLookDuringARename();
    void renamesInOtherModelsCostNothing();
};

void TestGuidIndex::asFindChild_data()
{
    QTest::addColumn<uint>("seed");
    QTest::addColumn<bool>("passesOn");

    QTest::newRow("a few guids for many") << 1U << true;
    QTest::newRow("other numbers") << 2U << true;
    QTest::newRow("a host that keeps child events to itself") << 3U << false;
}

/// Random changes to a tree, each followed by look-ups that have to give what QObject gives.
void TestGuidIndex::asFindChild()
{
    QFETCH(uint, seed);
    QFETCH(bool, passesOn);

    const int steps = qEnvironmentVariableIsSet("BCF_THOROUGH") ? 1000000 : 6000;
    QRandomGenerator random(seed);
    const auto below = [&random](int bound) { return static_cast<int>(random.bounded(bound)); };
    const auto guid = [&below] { return QString::number(below(80)); };
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    HostTopic *host = new HostTopic(passesOn, model.data());
    for (int step = 0; step < steps; ++step) {
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
            new Comment(guid(), below(4) == 0 ? any : topic);
            break;
        case 1:
            topic->addViewpoint(guid())->addLine();
            break;
        case 2:
            below(2) == 0 ? static_cast<void>(topic->addComment(guid()))
                          : static_cast<void>(new QObject(below(5) == 0 ? any : topic));
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
        const QString wanted = guid();
        QCOMPARE(host->comment(wanted), host->findChild<Comment *>(wanted));
        QCOMPARE(host->viewpoint(wanted), host->findChild<Viewpoint *>(wanted));
        QCOMPARE(model->topic(wanted), model->findChild<Topic *>(wanted));
    }
}

void TestGuidIndex::slotsLookDuringARename()
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
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
}

void TestGuidIndex::renamesInOtherModelsCostNothing()
{
    const auto make = [] {
        const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
        Topic *topic = model->addTopic("", "", QDateTime(), "t");
        for (int i = 0; i < 5000; ++i) {
            new Comment(QString::number(i), topic);
        }
        return model;
    };
    const QSharedPointer<BCFModel> models[2] = {make(), make()};
    Topic *topic = models[0]->topic("t");
    Comment *other = models[1]->topic("t")->comment("7");
    const QSignalBlocker blocker(other);
    // A search of each of 5,000 comments would take minutes.
    for (int i = 0; i < 50000; ++i) {
        other->setGuid(QString::number(i % 2));
        QCOMPARE(topic->comment("4999")->guid(), QString("4999"));
        QVERIFY(topic->comment("nobody's") == nullptr);
    }
}

QTEST_GUILESS_MAIN(TestGuidIndex)

#include "TestGuidIndex.moc"
