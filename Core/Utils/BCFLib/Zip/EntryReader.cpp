#include "EntryReader.h"

#include <new>
#include <quazip/quazip.h>
#include <quazip/unzip.h>

namespace BCFLib {

namespace {

/// The method of an entry whose bytes stand in the archive as they are.
constexpr int stored = 0;

} // namespace

EntryReader::EntryReader(QuaZip *zip)
    : QuaZipFile(zip)
    , BudgetedDevice(budgetOf(zip->getIoDevice()))
{
}

EntryReader::~EntryReader()
{
    try {
        if (isOpen()) {
            close();
        }
    } catch (const std::bad_alloc &) {
        // QuaZipFile's own destructor would throw this. An entry that failed stays open for it.
    }
    setOpenMode(NotOpen);
}

bool EntryReader::open(OpenMode mode)
{
    if (budget()->isSpent()) {
        return false;
    }
    budget()->openEntry();
    int method = 0;
    int level = 0;
    if (!QuaZipFile::open(mode, &method, &level, false)) {
        throwIfOutOfMemory();
        return false;
    }
    if (method != stored && method != Z_DEFLATED) {
        close();
        return false;
    }
    return true;
}

qint64 EntryReader::readData(char *data, qint64 maxSize)
{
    const qint64 count = budget()->isSpent() ? -1 : QuaZipFile::readData(data, maxSize);
    throwIfOutOfMemory();
    budget()->spend(qMax<qint64>(0, count));
    return count;
}

void EntryReader::throwIfOutOfMemory() const
{
    if (getZipError() == UNZ_INTERNALERROR || getZipError() == Z_MEM_ERROR) {
        throw std::bad_alloc();
    }
}

} // namespace BCFLib
