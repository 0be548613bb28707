#pragma once

#include "QtCoreToolsExport.h"

#include <QObject>

namespace Tavrin {

/// Reports how far a long job has come.
///
/// The job calls addMax() when it learns of more work and addSteps() when some of it is done; each
/// call is passed on at once as the signal of the same number. No count is kept. The operations
/// are const, so that a job can take its progress object by const reference.
class QTCORETOOLS_EXPORT ProgressionSignals : public QObject
{
    Q_OBJECT

public:
    /// Ready to use; receivers connect to the two signals.
    explicit ProgressionSignals(QObject *parent = nullptr);
    ~ProgressionSignals() override;

    /// Emits addMaxSig().
    void addMax(qint64 steps) const;
    /// Emits addStepsSig().
    void addSteps(qint64 steps) const;

signals:
    /// The job grows by this number of steps.
    void addMaxSig(qint64 steps) const;
    /// This number of steps is done.
    void addStepsSig(qint64 steps) const;
};

}
