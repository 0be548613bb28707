#pragma once

#include "BCFLibExport.h"
#include "BCFModel.h"

#include <QObject>
#include <QSharedPointer>
#include <QString>

namespace BCFLib {

/// Loads one archive, in whatever thread doLoad() runs, and reports its progress by signals.
///
/// The host owns the worker, and arranges a thread for it with QObject::moveToThread(). The model
/// is made in the thread that runs doLoad() and belongs to it; a host that goes on with it in another
/// thread calls BCFModel::moveToThread() from that thread first. Nothing guards model(): read it
/// after loadingFinished().
class BCFLIB_EXPORT BCFLoadingWorker : public QObject
{
    Q_OBJECT

public:
    /// Takes the path of the archive; loads nothing yet.
    explicit BCFLoadingWorker(QString filename);
    ~BCFLoadingWorker() override;

    /// A share of the model; null until a load has ended, never null afterwards.
    QSharedPointer<BCFModel> model() const { return _model; }
    /// The path that the worker was made with.
    const QString &filename() const { return _filename; }

Q_SIGNALS:
    /// The load has ended, well or badly; the model shows which.
    void loadingFinished();
    /// The total number of steps grows by this.
    void addMaxSig(qint64);
    /// This many steps are done.
    void addStepsSig(qint64);

public Q_SLOTS:
    /// Runs the load. A model of an earlier run loses the worker's share.
    void doLoad();

private:
    QSharedPointer<BCFModel> _model;
    QString _filename;
};

} // namespace BCFLib
