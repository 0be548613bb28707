#include "ArchiveDevice.h"

#include <cstring>

namespace BCFLib {

namespace {

constexpr qint64 blockSize = 16LL * 1024;

} // namespace

ArchiveFile::ArchiveFile(const QString &path)
    : _file(path)
{
}

ArchiveFile::~ArchiveFile() = default;

bool ArchiveFile::open(OpenMode mode)
{
    // Without a buffer, as what is read goes through the blocks.
    return mode == ReadOnly && _file.open(mode | Unbuffered) && QIODevice::open(mode | Unbuffered);
}

void ArchiveFile::close()
{
    QIODevice::close();
    _file.close();
}

bool ArchiveFile::isSequential() const
{
    return _file.isSequential();
}

qint64 ArchiveFile::size() const
{
    return _file.size();
}

qint64 ArchiveFile::readData(char *data, qint64 maxSize)
{
    qint64 length = 0;
    while (length < maxSize) {
        const qint64 position = pos() + length;
        const QByteArray &bytes = block(position / blockSize);
        const qint64 offset = position % blockSize;
        const qint64 count = qMin(bytes.size() - offset, maxSize - length);
        if (count <= 0) {
            break;
        }
        std::memcpy(data + length, bytes.constData() + offset, static_cast<size_t>(count));
        length += count;
    }
    return length;
}

qint64 ArchiveFile::writeData(const char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

const QByteArray &ArchiveFile::block(qint64 number)
{
    Slot &slot = _slots[static_cast<size_t>(number) % _slots.size()];
    if (slot.block != number) {
        slot.block = number;
        slot.bytes = _file.seek(number * blockSize) ? _file.read(blockSize) : QByteArray();
    }
    return slot.bytes;
}

} // namespace BCFLib
