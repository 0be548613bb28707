#ifndef BCFLIB_XML_GUARDEDSOURCE_H
#define BCFLIB_XML_GUARDEDSOURCE_H

#include "XmlGuard.h"

#include <QByteArray>
#include <QXmlInputSource>

class QIODevice;

namespace BCFLib {

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/// An open device as the source of a parser, which comes to an end where the file turns out harmful.
///
/// A stream that breaks off may have brought a whole document all the same.
class GuardedSource : public QXmlInputSource
{
public:
    explicit GuardedSource(QIODevice *device);

    /// Whether all that was read so far was harmless.
    bool isHarmless() const;

    void fetchData() override;

private:
    QByteArray nextBlock();

    QIODevice *_device;
    bool _isAtEnd = false;
    XmlGuard _guard;
    qint64 _bytes = 0;
    bool _isHarmless = true;
};

QT_WARNING_POP

} // namespace BCFLib

#endif // BCFLIB_XML_GUARDEDSOURCE_H
