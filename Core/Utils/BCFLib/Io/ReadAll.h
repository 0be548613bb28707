#pragma once

#include <QByteArray>
#include <QtGlobal>

class QIODevice;

namespace BCFLib {

/// How reading a device to its end went.
enum class ReadOutcome {
    Complete, ///< The device came to its end.
    Broken, ///< The device failed on the way; what came before is there.
    TooLarge ///< The device holds more than it may; nothing is there.
};

/// Reads an open device to its end, without trusting what it says of its size.
ReadOutcome readToEnd(QIODevice *device, qint64 limit, QByteArray *bytes);

} // namespace BCFLib
