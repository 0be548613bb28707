#include "GuardedSource.h"

#include "Io/Limits.h"

#include <QByteArray>
#include <QIODevice>
#include <QString>

namespace BCFLib {

namespace {

/// In blocks of this size a parser reads its files. An encoding counts only if it is declared within the
/// first of them.
constexpr int blockSize = 1024;

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
    const QByteArray block = nextBlock();
    _bytes += block.size();
    const QString text = fromRawData(block);
    _isHarmless = _isHarmless && _bytes <= Limits::xmlBytes && _guard.accepts(text);
    setData(_isHarmless ? text : QString());
}

QByteArray GuardedSource::nextBlock()
{
    QByteArray block(blockSize, Qt::Uninitialized);
    int length = 0;
    while (!_isAtEnd && length < blockSize) {
        const qint64 count = _device->read(block.data() + length, blockSize - length);
        // After a failed read nothing more counts, also if later ones would succeed.
        _isAtEnd = count <= 0;
        length += static_cast<int>(qMax<qint64>(0, count));
    }
    block.resize(length);
    return block;
}

} // namespace BCFLib
