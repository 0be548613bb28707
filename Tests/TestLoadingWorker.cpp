#include "TestArchive.h"

#include <QScopedPointer>
#include <QThread>
#include <atomic>

using BCFLib::BCFLoadingWorker;

namespace {

/// Everything that a worker says, in order: "+n" for a maximum, "n" for steps, "end".
void listen(const BCFLoadingWorker *worker, QStringList *said)
{
    const auto note = [said](const QString &text) { said->append(text); };
    QObject::connect(worker, &BCFLoadingWorker::addMaxSig, [note](qint64 n) { note(QString("+%1").arg(n)); });
    QObject::connect(worker, &BCFLoadingWorker::addStepsSig, [note](qint64 n) { note(QString::number(n)); });
    QObject::connect(worker, &BCFLoadingWorker::loadingFinished, [note] { note("end"); });
}

TestArchive &addTopics(TestArchive &archive, int count, const QByteArray &header)
{
    for (int i = 0; i < count; ++i) {
        const QByteArray folder = QByteArray::number(i) + '/';
        archive.add(folder + "markup.bcf",
                    "<M>" + header
                        + "<Topic/><Viewpoints Guid='v'><Viewpoint>v.bcfv</Viewpoint>"
                          "<Snapshot>s.png</Snapshot></Viewpoints></M>");
        archive.add(folder + "v.bcfv", "<VisualizationInfo/>").add(folder + "s.png", TestArchive::png());
    }
    return archive.add("x.ifc", "shared");
}

const QByteArray header = "<Header><File isExternal='false'><Filename>../x.ifc</Filename></File></Header>";

} // namespace

class TestLoadingWorker : public QObject
{
    Q_OBJECT

private slots:
    void progress_data() { addRows("Loading/progress.json"); }
    void progress();
    void twoThreads();
};

void TestLoadingWorker::progress()
{
    QFETCH(QVariantMap, row);

    const bool isThere = row["header"].userType() == QMetaType::QString;
    TestArchive archive;
    const QString path =
        isThere ? addTopics(archive, 2, row["header"].toByteArray()).write() : archive.path();
    BCFLoadingWorker worker(path);
    QStringList heard;
    listen(&worker, &heard);
    QCOMPARE(worker.filename(), path);
    QVERIFY(worker.model().isNull());
    for (int run = 0; run < 2; ++run) {
        const QSharedPointer<BCFLib::BCFModel> before = worker.model();
        heard.clear();
        worker.doLoad();
        QCOMPARE(heard.join(' '), row["said"].toString());
        QVERIFY(!worker.model().isNull() && worker.model() != before);
        QCOMPARE(worker.model()->version() == nullptr, !isThere);
    }
}

void TestLoadingWorker::twoThreads()
{
    TestArchive archive;
    const QString path = addTopics(archive, 40, header).write();
    for (int round = 0; round < 5; ++round) {
        QThread threads[2];
        QStringList heard[2];
        QScopedPointer<BCFLoadingWorker> workers[2];
        // QThread::wait() orders what the threads do too, but out of sight of the thread sanitizer.
        std::atomic<int> finished{0};
        for (int i = 0; i < 2; ++i) {
            workers[i].reset(new BCFLoadingWorker(path));
            workers[i]->moveToThread(&threads[i]);
            listen(workers[i].data(), &heard[i]);
            connect(&threads[i], &QThread::started, workers[i].data(), &BCFLoadingWorker::doLoad);
            connect(workers[i].data(), &BCFLoadingWorker::loadingFinished, &threads[i], &QThread::quit,
                    Qt::DirectConnection);
            connect(&threads[i], &QThread::finished, [&finished] { ++finished; });
        }
        threads[0].start();
        threads[1].start();
        QVERIFY(threads[0].wait() && threads[1].wait());
        QCOMPARE(finished.load(), 2);
        // One model goes with its worker, the other outlives it.
        const QSharedPointer<BCFLib::BCFModel> model = workers[1]->model();
        workers[0].reset();
        workers[1].reset();
        QCOMPARE(model->errorString(), QString());
        QCOMPARE(model->topics().size(), 40);
        QVERIFY(model->topics().last()->snapshot("v") != nullptr);
        QCOMPARE(heard[0].size(), 46);
        QCOMPARE(heard[0], heard[1]);
    }
}

QTEST_GUILESS_MAIN(TestLoadingWorker)

#include "TestLoadingWorker.moc"
