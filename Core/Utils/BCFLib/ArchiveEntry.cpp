#include "ArchiveEntry.h"

#include "Limits.h"

#include <quazip/quazip.h>

namespace BCFLib {

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
    return (_budget == nullptr || !_budget->isSpent()) && QuaZipFile::open(mode);
}

qint64 ArchiveEntry::readData(char *data, qint64 maxSize)
{
    if (_budget == nullptr) {
        return QuaZipFile::readData(data, maxSize);
    }
    const qint64 count = _budget->isSpent() ? -1 : QuaZipFile::readData(data, maxSize);
    _budget->spend(qMax<qint64>(0, count));
    return count;
}

} // namespace BCFLib
