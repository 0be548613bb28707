// bcf-benchmarks [--quick] [OPTION OF GOOGLE BENCHMARK...]: how long the library takes, beside what
// nothing built on the same libraries gets around.

#include "Measurements.h"
#include "Memory.h"

#include <QCoreApplication>
#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>

int main(int argc, char *argv[])
{
    const QTemporaryDir folder;
    // Attachments of a load go to the cache folder, and that goes with the archives.
    qputenv("XDG_CACHE_HOME", QFile::encodeName(folder.path()));
    const QCoreApplication application(argc, argv);
    if (argc == 3 && std::strcmp(argv[1], "--memory-of") == 0) {
        return Benchmarks::printMemoryOfLoad(QFile::decodeName(argv[2]));
    }
    char **const end =
        std::remove_if(argv + 1, argv + argc, [](const char *arg) { return !std::strcmp(arg, "--quick"); });
    const bool quick = end != argv + argc;
    argc = static_cast<int>(end - argv);

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    Benchmarks::registerLoadSave(folder.path(), quick);
    Benchmarks::registerEditing(folder.path(), quick);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
