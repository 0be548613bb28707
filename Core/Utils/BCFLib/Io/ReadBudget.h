#ifndef BCFLIB_IO_READBUDGET_H
#define BCFLIB_IO_READBUDGET_H

#include "Limits.h"

namespace BCFLib {

/// What the entries of one archive may still cost together, see Limits.
class ReadBudget
{
public:
    explicit ReadBudget(qint64 archiveSize)
        : _bytes(Limits::archiveBytes + Limits::archiveGrowth * archiveSize)
        , _nodes(Limits::archiveNodes + Limits::archiveNodeGrowth * archiveSize)
    {
    }

    void spendBytes(qint64 bytes) { _bytes -= bytes; }
    void spendNodes(qint64 nodes) { _nodes -= nodes; }
    bool isSpent() const { return _bytes <= 0 || _nodes <= 0; }

private:
    qint64 _bytes;
    qint64 _nodes;
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
