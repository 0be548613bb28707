#ifndef BCFLIB_IO_NODEBUDGET_H
#define BCFLIB_IO_NODEBUDGET_H

#include <QtGlobal>

namespace BCFLib {

/// What the XML files of one archive may hold together, beside the bounds of each. A device that has such a
/// budget derives from it, and the reader takes from it what it makes of the device.
struct NodeBudget
{
    virtual ~NodeBudget() = default;

    /// Elements, attributes and other nodes that may still come.
    qint64 nodesLeft = 0;
};

} // namespace BCFLib

#endif // BCFLIB_IO_NODEBUDGET_H
