#pragma once

#include <QByteArray>
#include <QString>
#include <string>
#include <string_view>
#include <unicode/ucnv.h>

namespace BCFLib::Xml {

/// Turns the bytes of an XML file into UTF-8 that a strict parser takes.
///
/// What the bytes are is settled here: by a byte order mark or the form of the first bytes, else by the
/// declaration, else UTF-8. Mark and declaration are left out. Sloppy tools write bytes that are not in the
/// encoding that they declare, and characters that XML has no place for, plain or as references; each of
/// these becomes U+FFFD, so that it costs itself alone.
class Decoder
{
public:
    /// The next piece of text, good until the next call; some of it may be held back until then.
    std::string_view decode(std::string_view bytes, bool isLast);

private:
    void begin();
    bool isPlain(std::string_view bytes) const;
    void skipDeclaration();
    void openConverter(const QByteArray &encoding);
    QString convert(std::string_view bytes);
    void append(std::string_view bytes);
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
    /// None for UTF-8.
    icu::LocalUConverterPointer _converter;
    /// What ends the comment, instruction or CDATA section that the text stands in; empty outside.
    std::string_view _sectionEnd;
};

} // namespace BCFLib::Xml
