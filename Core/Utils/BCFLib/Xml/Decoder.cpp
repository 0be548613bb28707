#include "Decoder.h"

#include "Encodings.h"

#include <QByteArray>
#include <QChar>
#include <algorithm>
#include <array>
#include <cerrno>
#include <new>
#include <utility>

namespace BCFLib {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// An encoding counts only if it is declared within so many bytes.
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

/// The length of the longest beginning that is UTF-8, U+FFFE and U+FFFF aside, which are no text.
std::size_t lengthOfUtf8(std::string_view text)
{
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    std::size_t at = 0;
    while (at < text.size()) {
        const unsigned first = byte(at);
        if (first < 0x80) {
            ++at;
            continue;
        }
        const std::size_t length = first < 0xC2 || first > 0xF4 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
        if (length == 0 || at + length > text.size()) {
            return at;
        }
        unsigned code = first & (0x7FU >> length);
        for (std::size_t i = 1; i < length; ++i) {
            if ((byte(at + i) & 0xC0U) != 0x80) {
                return at;
            }
            code = code << 6 | (byte(at + i) & 0x3FU);
        }
        const bool isOverlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
        if (isOverlong || QChar::isSurrogate(code) || code == 0xFFFE || code == 0xFFFF || code > 0x10FFFF) {
            return at;
        }
        at += length;
    }
    return at;
}

/// A reference to a character at the beginning of a text.
struct Reference
{
    uint code = 0;
    /// 0 if there is none.
    std::size_t length = 0;

    explicit Reference(std::string_view text)
    {
        if (!startsWith(text, "&#")) {
            return;
        }
        const std::size_t end = text.substr(0, longestReference).find(';');
        const bool isHexadecimal = startsWith(text, "&#x");
        const std::size_t begin = isHexadecimal ? 3 : 2;
        if (end == std::string_view::npos || end == begin) {
            return;
        }
        const QByteArray digits(text.data() + begin, static_cast<int>(end - begin));
        const auto isDigit = [=](unsigned char c) { return (isHexadecimal ? isxdigit(c) : isdigit(c)) != 0; };
        if (std::all_of(digits.begin(), digits.end(), isDigit)) {
            bool isNumber = false;
            const qulonglong value = digits.toULongLong(&isNumber, isHexadecimal ? 16 : 10);
            // More digits than a number holds name no character either.
            code = isNumber ? static_cast<uint>(std::min<qulonglong>(value, 0x110000)) : 0x110000;
            length = end + 1;
        }
    }

    bool isReadable() const
    {
        const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
        return !isControl && !QChar::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF && code < 0x110000;
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

/// Whether nothing has to be done to these bytes, as with nearly all.
bool Xml::Decoder::isPlain(std::string_view bytes) const
{
    if (!_isUtf8 || !_bytes.empty() || !_text.empty() || !_sectionEnd.empty()) {
        return false;
    }
    const unsigned char kinds = kindsIn(bytes);
    return (kinds & Control) == 0 && !mayHoldMarkup(bytes, kinds)
        && (kinds == Plain || lengthOfUtf8(bytes) == bytes.size());
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
    if (_converter == reinterpret_cast<iconv_t>(-1)) {
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

/// Appends UTF-8, with what is no text of XML replaced, and gives the number of bytes that were used: fewer
/// only if it is not complete and its last bytes could be the beginning of a character.
std::size_t Xml::Decoder::appendText(std::string_view utf8, bool isComplete)
{
    std::size_t done = 0;
    for (;;) {
        const std::string_view rest = utf8.substr(done);
        const std::size_t length = lengthOfUtf8(rest);
        appendWithoutControls(rest.substr(0, length));
        done += length;
        if (done == utf8.size() || (utf8.size() - done < 4 && !isComplete)) {
            return done;
        }
        _text += replacement;
        // A whole noncharacter (U+FFFE, U+FFFF) is replaced once.
        const std::string_view bad = rest.substr(length);
        const bool isNoText = startsWith(bad, "\xEF\xBF\xBE") || startsWith(bad, "\xEF\xBF\xBF");
        done += isNoText ? 3 : 1;
    }
}

void Xml::Decoder::appendWithoutControls(std::string_view text)
{
    if ((kindsIn(text) & Control) == 0) {
        _text += text;
        return;
    }
    for (const char c : text) {
        const bool isControl = (kindsIn({&c, 1}) & Control) != 0;
        isControl ? _text += replacement : _text += c;
    }
}

/// Appends the bytes that were held back and these to the text, as far as they are whole characters. Half a
/// character at the end of a file is never used: no text can stand there.
void Xml::Decoder::appendUtf8(std::string_view bytes)
{
    _bytes += bytes;
    std::size_t done = _isUtf8 ? appendText(_bytes, false) : 0;
    while (!_isUtf8 && done < _bytes.size()) {
        std::array<char, 4096> piece;
        char *in = &_bytes[done];
        char *out = piece.data();
        std::size_t left = _bytes.size() - done;
        std::size_t room = piece.size();
        const std::size_t result = iconv(_converter, &in, &left, &out, &room);
        const int error = result == static_cast<std::size_t>(-1) ? errno : 0;
        // Some converters let numbers through that are no characters.
        appendText({piece.data(), piece.size() - room}, true);
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
    const std::string_view all = _text;
    std::size_t at = 0;
    while (at < all.size()) {
        if (!_sectionEnd.empty()) {
            const std::size_t end = all.find(_sectionEnd, at);
            if (end == std::string_view::npos) {
                const std::size_t kept = isLast ? 0 : std::min(all.size() - at, _sectionEnd.size() - 1);
                _output += all.substr(at, all.size() - at - kept);
                at = all.size() - kept;
                break;
            }
            _output += all.substr(at, end + _sectionEnd.size() - at);
            at = end + _sectionEnd.size();
            _sectionEnd = {};
            continue;
        }
        std::size_t markup = at;
        while (markup < all.size() && all[markup] != '<' && all[markup] != '&' && all[markup] != ']') {
            ++markup;
        }
        _output += all.substr(at, markup - at);
        at = markup;
        if (at == all.size()) {
            break;
        }
        const std::string_view rest = all.substr(at);
        const bool mayBeMore =
            rest.size() == 1 || rest[1] == '!' || rest[1] == '?' || rest[1] == '#' || rest == "]]";
        if (rest.size() < 2 * longestReference && mayBeMore && !isLast) {
            break;
        }
        if (startsWith(rest, sectionEnd)) {
            // Malformed, but unambiguous.
            _output += "]]&gt;";
            at += sectionEnd.size();
            continue;
        }
        const Reference reference(rest);
        if (reference.length == 0 || reference.isReadable()) {
            _sectionEnd = sectionEndAt(rest);
            _output += all[at];
            ++at;
            continue;
        }
        at += reference.length;
        const Reference second(all.substr(at));
        if (QChar::isHighSurrogate(reference.code) && QChar::isLowSurrogate(second.code)) {
            // Some tools write a character beyond U+FFFF as its two surrogates.
            _output += "&#"
                + std::to_string(QChar::surrogateToUcs4(static_cast<ushort>(reference.code),
                                                        static_cast<ushort>(second.code)))
                + ';';
            at += second.length;
        } else {
            _output += replacement;
        }
    }
    _text.erase(0, at);
}

} // namespace BCFLib
