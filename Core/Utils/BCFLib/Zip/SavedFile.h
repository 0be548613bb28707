#pragma once

#include "Io/ReadBudget.h"

#include <QFile>

namespace BCFLib {

/// An archive that is written and knows whether all of it was, and what reading it will cost.
///
/// A QFile forgets that it could not write as soon as it can again.
class SavedFile : public QFile, public BudgetedDevice
{
public:
    explicit SavedFile(const QString &path);

    bool seek(qint64 position) override;
    void close() override;

    /// Whether nothing has failed so far.
    bool isSound() const { return _isSound; }

protected:
    qint64 writeData(const char *data, qint64 size) override;

private:
    template<class Work>
    bool note(const Work &work);

    bool _isSound = true;
};

} // namespace BCFLib
