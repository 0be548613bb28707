#include "ReadAll.h"

#include <QIODevice>

namespace BCFLib {

namespace {

constexpr qint64 firstChunk = 64LL * 1024;

/// Small, since only the current piece is lost where a stream breaks off.
constexpr qint64 piece = 16LL * 1024;

/// What the device says of itself, as far as it may be believed: enough to spare a growing buffer
/// its copies, too little to let a lie claim much memory.
qint64 expectedSize(const QIODevice *device, qint64 limit)
{
    return qBound<qint64>(0, device->size(), qMin<qint64>(limit, 16LL * 1024 * 1024));
}

} // namespace

ReadOutcome readToEnd(QIODevice *device, qint64 limit, QByteArray *bytes)
{
    // One byte more than expected, so that the end shows without another round.
    qint64 capacity = expectedSize(device, limit) + 1;
    qint64 length = 0;
    for (;;) {
        bytes->resize(static_cast<int>(capacity));
        const qint64 count = device->read(bytes->data() + length, qMin(piece, capacity - length));
        if (count <= 0) {
            bytes->resize(static_cast<int>(length));
            bytes->squeeze();
            return count < 0 ? ReadOutcome::Broken : ReadOutcome::Complete;
        }
        length += count;
        if (length > limit) {
            bytes->clear();
            return ReadOutcome::TooLarge;
        }
        if (length == capacity) {
            capacity = qMin(limit + 1, qMax(2 * capacity, firstChunk));
        }
    }
}

} // namespace BCFLib
