#ifndef BCFLIB_XML_DECODER_H
#define BCFLIB_XML_DECODER_H

#include <iconv.h>
#include <string>
#include <string_view>

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
    Decoder(const Decoder &) = delete;
    Decoder &operator=(const Decoder &) = delete;

    /// The next piece of text, good until the next call; some of it may be held back until then.
    std::string_view decode(std::string_view bytes, bool isLast);

private:
    void begin();
    bool isPlain(std::string_view bytes) const;
    void skipDeclaration();
    void openConverter(const char *encoding);
    bool extendsAscii() const;
    void appendText(std::string_view utf8);
    void appendUtf8(std::string_view bytes);
    void replaceUnreadable(bool isLast);
    std::size_t move(std::string_view text, std::size_t length);
    std::size_t moveSection(std::string_view text, bool isLast);
    std::size_t moveMarkup(std::string_view text, bool isLast);

    /// Bytes and text that were held back.
    std::string _bytes;
    std::string _text;
    /// Text that is ready.
    std::string _output;
    bool _hasBegun = false;
    bool _isUtf8 = true;
    iconv_t _converter = nullptr;
    /// What ends the comment, instruction or CDATA section that the text stands in; empty outside.
    std::string_view _sectionEnd;
};

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_DECODER_H
