#include "EntryReader.h"

#include "Io/Limits.h"

#include <new>
#include <quazip/quazip.h>
#include <quazip/unzip.h>

namespace BCFLib {

namespace {

/// The method of an entry whose bytes stand in the archive as they are.
constexpr int stored = 0;

} // namespace

ReadBudget::ReadBudget(qint64 archiveSize)
    : _bytesLeft(Limits::archiveBytes + Limits::archiveGrowth * archiveSize)
{
}

ReadBudget::~ReadBudget() = default;

void ReadBudget::spend(qint64 bytes)
{
    _bytesLeft -= bytes;
}

bool ReadBudget::isSpent() const
{
    return _bytesLeft <= 0;
}

ArchiveEntry::ArchiveEntry(QuaZip *zip)
    : QuaZipFile(zip)
    , _budget(dynamic_cast<ReadBudget *>(zip->getIoDevice()))
{
}

bool ArchiveEntry::open(OpenMode mode)
{
    if (_budget != nullptr && _budget->isSpent()) {
        return false;
    }
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

qint64 ArchiveEntry::readData(char *data, qint64 maxSize)
{
    const bool isSpent = _budget != nullptr && _budget->isSpent();
    const qint64 count = isSpent ? -1 : QuaZipFile::readData(data, maxSize);
    throwIfOutOfMemory();
    if (_budget != nullptr) {
        _budget->spend(qMax<qint64>(0, count));
    }
    return count;
}

void ArchiveEntry::throwIfOutOfMemory() const
{
    if (getZipError() == UNZ_INTERNALERROR || getZipError() == Z_MEM_ERROR) {
        throw std::bad_alloc();
    }
}

} // namespace BCFLib
