#include "ReadAll.h"

#include <QIODevice>

namespace BCFLib {

namespace {

/// Small, since only the current piece is lost where a stream breaks off.
constexpr qint64 piece = 16LL * 1024;

} // namespace

ReadOutcome readToEnd(QIODevice *device, qint64 limit, QByteArray *bytes)
{
    for (;;) {
        const int length = static_cast<int>(bytes->size());
        // One byte more than may be, so that too much shows.
        const qint64 room = qMin(piece, limit + 1 - length);
        bytes->resize(length + static_cast<int>(room));
        const qint64 count = device->read(bytes->data() + length, room);
        bytes->resize(length + static_cast<int>(qMax<qint64>(0, count)));
        if (count <= 0) {
            bytes->squeeze();
            return count < 0 ? ReadOutcome::Broken : ReadOutcome::Complete;
        }
        if (bytes->size() > limit) {
            bytes->clear();
            return ReadOutcome::TooLarge;
        }
    }
}

} // namespace BCFLib
