#include "ArchiveLoader.h"

using BCFLib::BCFLoadingWorker;

ArchiveLoader::ArchiveLoader(QObject *parent)
    : QObject(parent)
{
    connect(&_thread, &QThread::finished, this, &ArchiveLoader::finish);
}

ArchiveLoader::~ArchiveLoader()
{
    // The thread ends by itself with its load; by then the worker is back and can go with us.
    _thread.wait();
}

void ArchiveLoader::load(const QString &path)
{
    Q_ASSERT(!isLoading());
    _total = 0;
    _done = 0;
    _percent = 0;

    _worker = std::make_unique<BCFLoadingWorker>(path);
    BCFLoadingWorker *const worker = _worker.get();
    QThread *const home = thread();
    worker->moveToThread(&_thread);

    // These come queued, as the receiver lives here and the signals are emitted over there.
    connect(worker, &BCFLoadingWorker::addMaxSig, this, [this](qint64 steps) {
        _total += steps;
        tellProgress();
    });
    connect(worker, &BCFLoadingWorker::addStepsSig, this, [this](qint64 steps) {
        _done += steps;
        tellProgress();
    });

    // A direct connection runs in the loading thread, and only the thread that an object belongs to
    // can give it away. The worker goes home too, so that it and its share of the model die there.
    const auto handOver = [this, worker, home] {
        worker->model()->moveToThread(home);
        worker->moveToThread(home);
        _thread.quit();
    };
    connect(worker, &BCFLoadingWorker::loadingFinished, worker, handOver, Qt::DirectConnection);

    connect(&_thread, &QThread::started, worker, &BCFLoadingWorker::doLoad);
    _thread.start();
}

void ArchiveLoader::tellProgress()
{
    const int percent = static_cast<int>(_done * 100 / qMax<qint64>(_total, 1));
    if (percent != _percent) {
        _percent = percent;
        emit progressed(percent);
    }
}

void ArchiveLoader::finish()
{
    // The signal comes shortly before the thread's end, up to which it may still use the worker.
    _thread.wait();
    const QSharedPointer<BCFLib::BCFModel> model = _worker->model();
    const QString path = _worker->filename();
    _worker.reset();
    emit loaded(model, path);
}
