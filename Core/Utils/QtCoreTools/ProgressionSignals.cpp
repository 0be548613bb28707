#include "ProgressionSignals.h"

namespace Tavrin {

ProgressionSignals::ProgressionSignals(QObject *parent)
    : QObject(parent)
{
}

ProgressionSignals::~ProgressionSignals() = default;

void ProgressionSignals::addMax(qint64 steps) const
{
    emit addMaxSig(steps);
}

void ProgressionSignals::addSteps(qint64 steps) const
{
    emit addStepsSig(steps);
}

}
