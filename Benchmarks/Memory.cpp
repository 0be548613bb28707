#include "Memory.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <cstdio>
#include <malloc.h>

namespace Benchmarks {

namespace {

/// One of the sizes that the kernel keeps of this process.
double bytesOf(const QByteArray &field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray &line : status.readAll().split('\n')) {
        if (line.startsWith(field + ':')) {
            return line.mid(field.size() + 1).trimmed().split(' ').first().toDouble() * 1024;
        }
    }
    return 0;
}

/// What this process has allocated and not freed.
double allocated()
{
    const struct mallinfo2 heap = mallinfo2();
    return double(heap.uordblks) + double(heap.hblkhd);
}

} // namespace

Memory memoryOfLoad(const QString &path)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"--memory-of", path});
    process.waitForFinished(-1);
    const QList<QByteArray> numbers = process.readAllStandardOutput().trimmed().split(' ');
    return {numbers.value(0).toDouble(), numbers.value(1).toDouble(), numbers.value(2).toDouble()};
}

int printMemoryOfLoad(const QString &path)
{
    const double before = bytesOf("VmRSS");
    const double allocatedBefore = allocated();
    const QSharedPointer<BCFLib::BCFModel> model =
        BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals());
    const double peak = bytesOf("VmHWM");
    malloc_trim(0);
    std::printf("%.0f %.0f %.0f\n", peak - before, bytesOf("VmRSS") - before, allocated() - allocatedBefore);
    return model->isValid() ? 0 : 1;
}

} // namespace Benchmarks
