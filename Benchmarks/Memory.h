#pragma once

#include <QString>

namespace Benchmarks {

/// What a load costs beyond what the process held before it, in bytes.
struct Memory
{
    double peak; ///< of physical memory, at the highest point of the load
    double kept; ///< of physical memory, when all that can has gone back to the system
    double tree; ///< what is allocated afterwards: the finished tree itself
};

/// Loads the archive at @p path in a process of its own, which no earlier work has marked.
Memory memoryOfLoad(const QString &path);

/// The work of that process: loads the archive and prints the three numbers.
int printMemoryOfLoad(const QString &path);

} // namespace Benchmarks
