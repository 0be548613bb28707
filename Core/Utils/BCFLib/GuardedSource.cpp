#include "GuardedSource.h"

#include "Limits.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace BCFLib {

namespace {

/// In blocks of this size a parser reads its files. An encoding that is declared behind the first of them
/// counts from the block on in which it stands.
constexpr int blockSize = 1024;

QByteArray readBlock(QIODevice *device)
{
    QByteArray block(blockSize, Qt::Uninitialized);
    int length = 0;
    qint64 count = 0;
    do {
        count = device->read(block.data() + length, blockSize - length);
        length += static_cast<int>(qMax<qint64>(0, count));
    } while (count > 0 && length < blockSize);
    block.resize(length);
    return block;
}

} // namespace

GuardedSource::GuardedSource(QIODevice *device)
    : _device(device)
{
}

bool GuardedSource::isHarmless() const
{
    return _isHarmless;
}

void GuardedSource::fetchData()
{
    const QByteArray block = readBlock(_device);
    _bytes += block.size();
    const QString text = fromRawData(block);
    _isHarmless = _isHarmless && _bytes <= Limits::xmlBytes && _guard.accepts(text);
    setData(_isHarmless ? text : QString());
}

} // namespace BCFLib
