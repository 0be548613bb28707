#pragma once

#include "Limits.h"

#include <QIODevice>
#include <QString>

#include <limits>

namespace BCFLib {

/// Counts what reading an archive costs, in memory and time, against what it may cost, see Limits.
///
/// A save counts the same, so that it writes no archive that a load refuses.
class ReadBudget
{
public:
    /// Nothing is too much before the size is known.
    void setArchiveSize(qint64 bytes)
    {
        _mayCost = Limits::archiveCost + Limits::archiveCostPerByte * bytes;
        _mayRead = Limits::archiveReads + Limits::archiveReadsPerByte * bytes;
    }

    void spend(qint64 cost) { _cost += cost; }
    /// A folder's name can be long, and be looked up again with each of its files.
    void lookUp(const QString &name) { _cost += name.size(); }
    void openEntry() { _cost += Limits::entryCost; }
    /// Counts bytes of the archive itself.
    void read(qint64 bytes) { _read += bytes; }

    bool isSpent() const { return _cost >= _mayCost || _read >= _mayRead; }

private:
    qint64 _mayCost = std::numeric_limits<qint64>::max();
    qint64 _mayRead = std::numeric_limits<qint64>::max();
    qint64 _cost = 0;
    qint64 _read = 0;
};

/// A device whose content is read, or can be read again, at the cost of a budget.
class BudgetedDevice
{
public:
    virtual ~BudgetedDevice() = default;

    ReadBudget *budget() const { return _budget; }

    /// The budget of any device; null if it has none.
    static ReadBudget *budgetOf(QIODevice *device)
    {
        const auto *budgeted = dynamic_cast<BudgetedDevice *>(device);
        return budgeted != nullptr ? budgeted->budget() : nullptr;
    }

protected:
    /// Without a budget to share it has one of its own.
    explicit BudgetedDevice(ReadBudget *shared = nullptr)
        : _budget(shared != nullptr ? shared : &_own)
    {
    }

private:
    ReadBudget _own;
    ReadBudget *_budget;
};

} // namespace BCFLib
