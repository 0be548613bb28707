#include "BCFLoadingWorker.h"

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <QPointer>
#include <utility>

namespace BCFLib {

BCFLoadingWorker::BCFLoadingWorker(QString filename)
    : _filename(std::move(filename))
{
}

BCFLoadingWorker::~BCFLoadingWorker() = default;

void BCFLoadingWorker::doLoad()
{
    const Tavrin::ProgressionSignals progression(nullptr);
    connect(&progression, &Tavrin::ProgressionSignals::addMaxSig, this, &BCFLoadingWorker::addMaxSig);
    connect(&progression, &Tavrin::ProgressionSignals::addStepsSig, this, &BCFLoadingWorker::addStepsSig);
    const QPointer<BCFLoadingWorker> self(this);
    const QSharedPointer<BCFModel> model = BCFModel::Deserialize(_filename, progression);
    // A slot that follows the progress may have deleted the worker.
    if (self != nullptr) {
        _model = model;
        emit loadingFinished();
    }
}

} // namespace BCFLib
