#include "ArchiveDevice.h"

#include <QFileInfo>
#include <cstring>
#include <quazip/quazip.h>

namespace BCFLib {

ArchiveDevice::ArchiveDevice(const QString &path)
    // The host may go to another folder while the archive is read.
    : _file(QFileInfo(path).absoluteFilePath())
{
    budget()->setArchiveSize(_file.size());
}

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
        std::memcpy(data + length, block.bytes.data() + offset, static_cast<size_t>(count));
        length += count;
    }
    budget()->read(length);
    return length;
}

const ArchiveDevice::Block &ArchiveDevice::block(qint64 number)
{
    Block &block = _blocks[static_cast<size_t>(number) % _blocks.size()];
    if (block.number != number) {
        const qint64 start = number * blockSize;
        block.number = number;
        block.size = _file.seek(start) ? qMax<qint64>(0, _file.read(block.bytes.data(), blockSize)) : 0;
        _isSound = _isSound && block.size >= qMin(blockSize, _size - start);
    }
    return block;
}

} // namespace BCFLib
