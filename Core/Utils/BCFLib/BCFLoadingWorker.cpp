#include "BCFLoadingWorker.h"

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <utility>

namespace BCFLib {

BCFLoadingWorker::BCFLoadingWorker(QString filename)
    : _filename(std::move(filename))
{
}

BCFLoadingWorker::~BCFLoadingWorker() = default;

QSharedPointer<BCFModel> BCFLoadingWorker::model() const
{
    return _model;
}

const QString &BCFLoadingWorker::filename() const
{
    return _filename;
}

void BCFLoadingWorker::doLoad()
{
    const Tavrin::ProgressionSignals progression(nullptr);
    connect(&progression, &Tavrin::ProgressionSignals::addMaxSig, this, &BCFLoadingWorker::addMaxSig);
    connect(&progression, &Tavrin::ProgressionSignals::addStepsSig, this, &BCFLoadingWorker::addStepsSig);
    _model = BCFModel::Deserialize(_filename, progression);
    emit loadingFinished();
}

} // namespace BCFLib
