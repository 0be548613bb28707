#pragma once

#include <ctime>

namespace Benchmarks {

/// The seconds that @p work takes by one of the system's clocks.
///
/// The default counts only what this thread computes, so that a busy machine changes little.
template<class Work>
double seconds(const Work &work, clockid_t clock = CLOCK_THREAD_CPUTIME_ID)
{
    timespec start;
    timespec end;
    clock_gettime(clock, &start);
    work();
    clock_gettime(clock, &end);
    return double(end.tv_sec - start.tv_sec) + 1e-9 * double(end.tv_nsec - start.tv_nsec);
}

} // namespace Benchmarks
