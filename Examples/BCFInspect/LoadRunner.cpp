#include "LoadRunner.h"

#include "ProgressBar.h"

#include <Core/Utils/BCFLib/BCFLoadingWorker.h>
#include <Core/Utils/BCFLib/BCFModel.h>

#include <QEventLoop>
#include <QThread>
#include <QTimer>

namespace {

constexpr int redrawMilliseconds = 50;

} // namespace

QSharedPointer<BCFLib::BCFModel> loadInThread(const QString &path, ProgressBar &bar)
{
    using BCFLib::BCFLoadingWorker;

    QThread thread;
    QThread *const home = QThread::currentThread();
    BCFLoadingWorker worker(path);
    worker.moveToThread(&thread);

    QEventLoop loop;
    QObject::connect(&thread, &QThread::started, &worker, &BCFLoadingWorker::doLoad);
    QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);

    // A connection without a receiver runs in the loading thread, and only that thread can give
    // away the objects that it made.
    QObject::connect(&worker, &BCFLoadingWorker::loadingFinished, [&worker, &thread, home] {
        worker.model()->moveToThread(home);
        worker.moveToThread(home);
        thread.quit();
    });

    // With the loop as receiver these come queued and run here.
    QObject::connect(&worker, &BCFLoadingWorker::addMaxSig, &loop, [&bar](qint64 n) { bar.addMax(n); });
    QObject::connect(&worker, &BCFLoadingWorker::addStepsSig, &loop, [&bar](qint64 n) { bar.addSteps(n); });

    // The bar moves at the pace of the eye, however many steps come.
    QTimer redraw;
    QObject::connect(&redraw, &QTimer::timeout, &loop, [&bar] { bar.draw(); });
    redraw.start(redrawMilliseconds);

    thread.start();
    loop.exec();
    thread.wait();
    bar.finish();
    return worker.model();
}
