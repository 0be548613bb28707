#ifndef BCFLIB_IO_READBUDGET_H
#define BCFLIB_IO_READBUDGET_H

#include "Limits.h"

namespace BCFLib {

/// What the entries of one archive may still cost together, see Limits.
class ReadBudget
{
public:
    explicit ReadBudget(qint64 archiveSize)
        : _left(Limits::archiveBytes + Limits::archiveGrowth * archiveSize)
    {
    }

    void spend(qint64 bytes) { _left -= bytes; }
    bool isSpent() const { return _left <= 0; }

private:
    qint64 _left;
};

/// A device whose content is read at the cost of a budget.
class BudgetedDevice
{
public:
    virtual ~BudgetedDevice() = default;

    /// Null where nothing has to be spared.
    virtual ReadBudget *budget() const = 0;
};

} // namespace BCFLib

#endif // BCFLIB_IO_READBUDGET_H
