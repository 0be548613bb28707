#include "ArchiveDevice.h"

#include <QFileInfo>
#include <cstring>
#include <quazip/quazip.h>

namespace BCFLib {

namespace {

constexpr qint64 blockSize = 16LL * 1024;

} // namespace

ArchiveDevice::ArchiveDevice(const QString &path)
    // The host may go to another folder while the archive is read.
    : _file(QFileInfo(path).absoluteFilePath())
    , _bytes(new char[static_cast<size_t>(blockSize) * _blocks.size()])
{
    budget()->setArchiveSize(_file.size());
}

ArchiveDevice::~ArchiveDevice() = default;

ArchiveDevice *ArchiveDevice::of(const QuaZip *zip)
{
    return dynamic_cast<ArchiveDevice *>(zip->getIoDevice());
}

bool ArchiveDevice::open(OpenMode mode)
{
    // Without a buffer, as what is read goes through the blocks.
    if (mode != ReadOnly || !_file.open(mode | Unbuffered)) {
        return false;
    }
    _size = _file.size();
    const QFileInfo info(_file.fileName());
    _modified = info.lastModified();
    // A copy can bear the time of what it replaces, but not this one.
    _statusChanged = info.metadataChangeTime();
    return QIODevice::open(mode | Unbuffered);
}

void ArchiveDevice::close()
{
    QIODevice::close();
    _file.close();
}

bool ArchiveDevice::isSequential() const
{
    return _file.isSequential();
}

qint64 ArchiveDevice::size() const
{
    return _size;
}

Directory &ArchiveDevice::directory()
{
    return _directory;
}

bool ArchiveDevice::isSound() const
{
    const QFileInfo now(_file.fileName());
    const bool wasOpened = _modified.isValid();
    const bool hasChanged =
        now.size() != _size || now.lastModified() != _modified || now.metadataChangeTime() != _statusChanged;
    return _isSound && !(wasOpened && hasChanged);
}

qint64 ArchiveDevice::readData(char *data, qint64 maxSize)
{
    qint64 length = 0;
    while (length < maxSize && !budget()->isSpent()) {
        const qint64 position = pos() + length;
        const Block &block = this->block(position / blockSize);
        const qint64 offset = position % blockSize;
        const qint64 count = qMin(block.size - offset, maxSize - length);
        if (count <= 0) {
            break;
        }
        std::memcpy(data + length, block.bytes + offset, static_cast<size_t>(count));
        length += count;
    }
    budget()->read(length);
    return length;
}

qint64 ArchiveDevice::writeData(const char * /*data*/, qint64 /*maxSize*/)
{
    return -1;
}

const ArchiveDevice::Block &ArchiveDevice::block(qint64 number)
{
    const size_t index = static_cast<size_t>(number) % _blocks.size();
    Block &block = _blocks[index];
    if (block.number != number) {
        const qint64 start = number * blockSize;
        block.number = number;
        block.bytes = _bytes.get() + static_cast<size_t>(blockSize) * index;
        block.size = _file.seek(start) ? qMax<qint64>(0, _file.read(block.bytes, blockSize)) : 0;
        _isSound = _isSound && block.size >= qMin(blockSize, _size - start);
    }
    return block;
}

} // namespace BCFLib
