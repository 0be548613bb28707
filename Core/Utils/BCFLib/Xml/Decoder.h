#ifndef BCFLIB_XML_DECODER_H
#define BCFLIB_XML_DECODER_H

#include <QByteArray>
#include <iconv.h>

namespace BCFLib {
namespace Xml {

/// Turns the bytes of an XML file into UTF-8 that a strict parser takes.
///
/// What the bytes are is settled here: by a byte order mark or the form of the first bytes, else by the
/// declaration, else UTF-8. Mark and declaration are left out. Sloppy tools write bytes that are not in the
/// encoding that they declare, and characters that XML has no place for, plain or as references; each of
/// these becomes U+FFFD, so that it costs itself alone.
class Decoder
{
public:
    Decoder() = default;
    ~Decoder();

    /// The next piece of text; some of it may be held back until the piece after it is there.
    QByteArray decode(const QByteArray &bytes, bool isLast);

private:
    Q_DISABLE_COPY(Decoder)

    void begin();
    QByteArray toUtf8(const QByteArray &bytes, bool isLast);
    QByteArray replaceUnreadable(const QByteArray &text, bool isLast);

    /// Bytes and text that were held back.
    QByteArray _bytes;
    QByteArray _text;
    bool _hasBegun = false;
    bool _isInProlog = true;
    bool _isUtf8 = true;
    iconv_t _converter = invalidConverter();
    /// What ends the comment, instruction or CDATA section that the text stands in; null outside.
    const char *_sectionEnd = nullptr;

    static iconv_t invalidConverter() { return reinterpret_cast<iconv_t>(-1); }
};

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_DECODER_H
