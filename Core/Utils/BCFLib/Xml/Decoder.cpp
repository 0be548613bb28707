#include "Decoder.h"

#include "Encodings.h"
#include "Text.h"

#include <QByteArray>
#include <QChar>
#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <new>
#include <utility>

namespace BCFLib {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// How far into a file the end of a declaration is looked for.
constexpr std::size_t longestDeclaration = 1024;

/// The longest reference to a character that is looked at, with some zeros to spare.
constexpr std::size_t longestReference = 32;

/// What ends a CDATA section.
constexpr std::string_view sectionEnd = "]]>";

constexpr std::string_view blanks = " \t\n\r";

bool startsWith(std::string_view text, std::string_view beginning)
{
    return text.substr(0, beginning.size()) == beginning;
}

std::string_view withoutBlanksInFront(std::string_view text)
{
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

/// The encoding that the first bytes have by their form; null if it is one that extends ASCII.
const char *encodingByForm(std::string_view bytes)
{
    using namespace std::string_view_literals;
    struct Form
    {
        std::string_view bytes;
        const char *encoding;
    };
    for (const Form &form : {Form{"\xFF\xFE\0\0"sv, "UTF-32"},
                             {"\0\0\xFE\xFF"sv, "UTF-32"},
                             {"\xFF\xFE"sv, "UTF-16"},
                             {"\xFE\xFF"sv, "UTF-16"},
                             {byteOrderMark, "UTF-8"},
                             {"<\0\0\0"sv, "UTF-32LE"},
                             {"\0\0\0<"sv, "UTF-32BE"},
                             {"<\0"sv, "UTF-16LE"},
                             {"\0<"sv, "UTF-16BE"}}) {
        if (startsWith(bytes, form.bytes)) {
            return form.encoding;
        }
    }
    return nullptr;
}

/// The encoding that the declaration at the beginning of some bytes names; empty without.
QByteArray declaredEncoding(std::string_view bytes)
{
    const std::string_view beginning = withoutBlanksInFront(bytes.substr(0, longestDeclaration));
    if (!startsWith(beginning, "<?xml")) {
        return QByteArray();
    }
    const std::string_view declaration = beginning.substr(0, beginning.find("?>"));
    const std::size_t at = declaration.find("encoding");
    const std::size_t begin = at == std::string_view::npos ? at : declaration.find_first_of("\"'", at);
    if (begin == std::string_view::npos) {
        return QByteArray();
    }
    const std::string_view value = declaration.substr(begin + 1);
    const std::string_view name = value.substr(0, value.find(declaration[begin]));
    return Xml::iconvName(QByteArray(name.data(), static_cast<int>(name.size())));
}

/// Kinds of bytes that need processing.
enum Kind : unsigned char { Plain, NotAscii = 1, Control = 2, Markup = 4 };

unsigned char kindsIn(std::string_view text)
{
    static constexpr std::array<unsigned char, 256> kinds = [] {
        std::array<unsigned char, 256> result{};
        for (std::size_t c = 0; c < result.size(); ++c) {
            const bool isBlank = c == '\t' || c == '\n' || c == '\r';
            // Sections begin with "<!" or "<?", references to characters with "&#"; "]]>" ends a section.
            const bool isMarkup = c == '!' || c == '?' || c == '#' || c == ']';
            result[c] = c >= 0x80 ? NotAscii : c < 0x20 && !isBlank ? Control : isMarkup ? Markup : Plain;
        }
        return result;
    }();
    unsigned char all = Plain;
    for (const char c : text) {
        all |= kinds[static_cast<unsigned char>(c)];
    }
    return all;
}

/// Whether a text of these kinds may hold, or end in the beginning of, a section or a reference to a
/// character.
bool mayHoldMarkup(std::string_view text, unsigned char kinds)
{
    const bool endsInBeginning = !text.empty() && (text.back() == '<' || text.back() == '&');
    return endsInBeginning || (kinds & Markup) != 0;
}

/// The length of some UTF-8 without the beginning of a character at its end.
std::size_t lengthOfWhole(std::string_view utf8)
{
    const std::size_t size = utf8.size();
    for (std::size_t left = 1; left < 4 && left <= size; ++left) {
        const unsigned char byte = static_cast<unsigned char>(utf8[size - left]);
        const std::size_t length = byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
        if (length > 1 || byte < 0x80) {
            return left < length ? size - left : size;
        }
    }
    return size;
}

/// A reference to a character at the beginning of a text.
struct Reference
{
    /// 0 if there is none, and if its number is too large for one.
    uint code = 0;
    /// 0 if there is none.
    std::size_t length = 0;

    explicit Reference(std::string_view text)
    {
        const std::size_t end = text.substr(0, longestReference).find(';');
        if (!startsWith(text, "&#") || end == std::string_view::npos) {
            return;
        }
        const bool isHexadecimal = startsWith(text, "&#x");
        const char *digits = text.data() + (isHexadecimal ? 3 : 2);
        const auto result = std::from_chars(digits, text.data() + end, code, isHexadecimal ? 16 : 10);
        if (result.ec != std::errc::invalid_argument && result.ptr == text.data() + end) {
            length = end + 1;
        }
    }
};

/// What ends the section that begins at a "<" and in which references mean nothing; empty if there is none.
std::string_view sectionEndAt(std::string_view text)
{
    return startsWith(text, "<![CDATA[") ? sectionEnd
        : startsWith(text, "<!--")       ? "-->"
        : startsWith(text, "<?")         ? "?>"
                                         : "";
}

} // namespace

Xml::Decoder::~Decoder()
{
    if (_converter != nullptr) {
        iconv_close(_converter);
    }
}

std::string_view Xml::Decoder::decode(std::string_view bytes, bool isLast)
{
    if (!_hasBegun) {
        _bytes += bytes;
        if (_bytes.size() < longestDeclaration && !isLast) {
            return {};
        }
        begin();
        bytes = {};
    }
    if (isPlain(bytes)) {
        return bytes;
    }
    appendUtf8(bytes);
    replaceUnreadable(isLast);
    return _output;
}

/// Whether nothing has to be done to these bytes, as with most.
bool Xml::Decoder::isPlain(std::string_view bytes) const
{
    const unsigned char kinds = kindsIn(bytes);
    return _isUtf8 && _bytes.empty() && _text.empty() && _sectionEnd.empty() && kinds == Plain
        && !mayHoldMarkup(bytes, kinds);
}

void Xml::Decoder::begin()
{
    _hasBegun = true;
    const char *form = encodingByForm(_bytes);
    const QByteArray encoding = form != nullptr ? QByteArray(form) : declaredEncoding(_bytes);
    if (!encoding.isEmpty() && encoding != "UTF-8") {
        openConverter(encoding.constData());
        _isUtf8 = _converter == nullptr || (form == nullptr && !extendsAscii());
    }
    appendUtf8({});
    skipDeclaration();
}

/// Drops the XML declaration: the encoding is known, and some tools write invalid ones.
void Xml::Decoder::skipDeclaration()
{
    std::string_view text = _text;
    if (startsWith(text, byteOrderMark)) {
        text.remove_prefix(byteOrderMark.size());
    }
    text = withoutBlanksInFront(text);
    const std::size_t end = text.find("?>");
    if (startsWith(text, "<?xml") && end != std::string_view::npos
        && blanks.find(text[5]) != std::string_view::npos) {
        text.remove_prefix(end + 2);
    }
    _text.erase(0, _text.size() - text.size());
}

/// No converter if the encoding is unknown.
void Xml::Decoder::openConverter(const char *encoding)
{
    _converter = iconv_open("UTF-8", encoding);
    if (reinterpret_cast<std::intptr_t>(_converter) == -1) {
        _converter = nullptr;
        if (errno != EINVAL) {
            throw std::bad_alloc();
        }
    }
}

/// Whether the encoding extends ASCII. Else the declaration is wrong, since it was read as ASCII.
bool Xml::Decoder::extendsAscii() const
{
    std::string ascii = "<?xml";
    std::array<char, 8> text;
    char *in = ascii.data();
    char *out = text.data();
    std::size_t left = ascii.size();
    std::size_t room = text.size();
    iconv(_converter, &in, &left, &out, &room);
    iconv(_converter, nullptr, nullptr, nullptr, nullptr);
    return std::string_view(text.data(), text.size() - room) == ascii;
}

/// Appends UTF-8, with what is no text of XML replaced.
void Xml::Decoder::appendText(std::string_view utf8)
{
    if ((kindsIn(utf8) & (NotAscii | Control)) == 0) {
        _text += utf8;
    } else {
        _text += writableText(fromUtf8(utf8)).toStdString();
    }
}

/// Appends the bytes that were held back and these to the text, as far as they are whole characters. Half a
/// character at the end of a file is never used: no text can stand there.
void Xml::Decoder::appendUtf8(std::string_view bytes)
{
    _bytes += bytes;
    std::size_t done = 0;
    if (_isUtf8) {
        done = lengthOfWhole(_bytes);
        appendText({_bytes.data(), done});
    }
    while (!_isUtf8 && done < _bytes.size()) {
        std::array<char, 4096> piece;
        char *in = &_bytes[done];
        char *out = piece.data();
        std::size_t left = _bytes.size() - done;
        std::size_t room = piece.size();
        const std::size_t result = iconv(_converter, &in, &left, &out, &room);
        const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
        // Some converters let numbers through that are no characters.
        appendText({piece.data(), piece.size() - room});
        done = _bytes.size() - left;
        if (error == EINVAL) {
            break;
        }
        if (error == EILSEQ) {
            _text += replacement;
            ++done;
        }
    }
    _bytes.erase(0, done);
}

/// Moves the text to what is ready, but for its end if that could be the beginning of something.
void Xml::Decoder::replaceUnreadable(bool isLast)
{
    if (_sectionEnd.empty() && !mayHoldMarkup(_text, kindsIn(_text))) {
        _output = std::exchange(_text, {});
        return;
    }
    _output.clear();
    std::string_view rest = _text;
    for (std::size_t moved = 1; moved > 0; rest.remove_prefix(moved)) {
        const auto isMarkup = [](char c) { return c == '<' || c == '&' || c == ']'; };
        const bool isInSection = !_sectionEnd.empty();
        const bool isAtMarkup = !rest.empty() && isMarkup(rest.front());
        moved = isInSection ? moveSection(rest, isLast)
            : isAtMarkup    ? moveMarkup(rest, isLast)
                            : move(rest, std::find_if(rest.begin(), rest.end(), isMarkup) - rest.begin());
    }
    _text.erase(0, _text.size() - rest.size());
}

/// Moves so much from the front of a text.
std::size_t Xml::Decoder::move(std::string_view text, std::size_t length)
{
    _output += text.substr(0, length);
    return length;
}

/// Moves what is left of a section.
std::size_t Xml::Decoder::moveSection(std::string_view text, bool isLast)
{
    const std::size_t end = text.find(_sectionEnd);
    if (end == std::string_view::npos) {
        const std::size_t kept = isLast ? 0 : std::min(text.size(), _sectionEnd.size() - 1);
        return move(text, text.size() - kept);
    }
    return move(text, end + std::exchange(_sectionEnd, {}).size());
}

/// Moves one character of markup, or replaces what it begins. Nothing if more text is needed to decide.
std::size_t Xml::Decoder::moveMarkup(std::string_view text, bool isLast)
{
    const bool mayBeMore =
        text.size() == 1 || text[1] == '!' || text[1] == '?' || text[1] == '#' || text == "]]";
    if (text.size() < 2 * longestReference && mayBeMore && !isLast) {
        return 0;
    }
    if (startsWith(text, sectionEnd)) {
        // Malformed, but unambiguous.
        _output += "]]&gt;";
        return sectionEnd.size();
    }
    const Reference reference(text);
    if (reference.length == 0 || isCharacter(reference.code)) {
        _sectionEnd = sectionEndAt(text);
        return move(text, 1);
    }
    const Reference second(text.substr(reference.length));
    if (QChar::isHighSurrogate(reference.code) && QChar::isLowSurrogate(second.code)) {
        // Some tools write a character beyond U+FFFF as its two surrogates.
        const uint code =
            QChar::surrogateToUcs4(static_cast<ushort>(reference.code), static_cast<ushort>(second.code));
        _output += "&#" + std::to_string(code) + ';';
        return reference.length + second.length;
    }
    _output += replacement;
    return reference.length;
}

} // namespace BCFLib
