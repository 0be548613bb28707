#include "Decoder.h"

#include "Text.h"

#include <QChar>
#include <algorithm>
#include <array>
#include <charconv>
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
    return QByteArray(name.data(), static_cast<int>(name.size()));
}

/// The encoding that files of tools have under a name: East Asian ones with the characters that Windows adds
/// to the standard.
const char *usualEncoding(const QByteArray &name)
{
    static constexpr std::array<const char *, 2> usual[] = {
        {"GB2312", "GB18030"}, {"EUC-CN", "GB18030"}, {"EUC-KR", "windows-949"}, {"CP949", "windows-949"}};
    for (const auto &[standard, windows] : usual) {
        if (ucnv_compareNames(name.constData(), standard) == 0) {
            return windows;
        }
    }
    return name.constData();
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
    append(bytes);
    replaceUnreadable(isLast);
    return _output;
}

/// Whether nothing has to be done to these bytes, as with most.
bool Xml::Decoder::isPlain(std::string_view bytes) const
{
    const unsigned char kinds = kindsIn(bytes);
    return _converter.isNull() && _bytes.empty() && _text.empty() && _sectionEnd.empty() && kinds == Plain
        && !mayHoldMarkup(bytes, kinds);
}

void Xml::Decoder::begin()
{
    _hasBegun = true;
    const char *form = encodingByForm(_bytes);
    openConverter(form != nullptr ? QByteArray(form) : declaredEncoding(_bytes));
    if (form == nullptr && !_converter.isNull() && convert("<?xml") != QLatin1String("<?xml")) {
        // The declaration was read as ASCII, which the encoding doesn't extend.
        _converter.adoptInstead(nullptr);
    }
    append({});
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

/// None if the encoding is UTF-8 or unknown.
void Xml::Decoder::openConverter(const QByteArray &encoding)
{
    const char *name = usualEncoding(encoding);
    UErrorCode error = U_ZERO_ERROR;
    // Of other names some would be looked for as files.
    if (ucnv_countAliases(name, &error) > 0 && ucnv_compareNames(name, "UTF-8") != 0) {
        _converter.adoptInstead(ucnv_open(name, &error));
    }
    if (error == U_MEMORY_ALLOCATION_ERROR) {
        throw std::bad_alloc();
    }
}

/// The text of some bytes. The converter holds half a character at their end back.
QString Xml::Decoder::convert(std::string_view bytes)
{
    QString text;
    const char *in = bytes.data();
    const char *end = in + bytes.size();
    UErrorCode error = U_BUFFER_OVERFLOW_ERROR;
    while (error == U_BUFFER_OVERFLOW_ERROR) {
        std::array<UChar, 4096> piece;
        UChar *out = piece.data();
        error = U_ZERO_ERROR;
        ucnv_toUnicode(_converter.getAlias(), &out, piece.data() + piece.size(), &in, end, nullptr, false,
                       &error);
        text.append(reinterpret_cast<const QChar *>(piece.data()), static_cast<int>(out - piece.data()));
    }
    return text;
}

/// Appends the bytes that were held back and these to the text, as far as they are whole characters, with
/// what is no text of XML replaced. Half a character at the end of a file is never used: no text can stand
/// there.
void Xml::Decoder::append(std::string_view bytes)
{
    _bytes += bytes;
    const std::size_t length = _converter.isNull() ? lengthOfWhole(_bytes) : _bytes.size();
    const std::string_view whole(_bytes.data(), length);
    if (!_converter.isNull()) {
        _text += writableText(convert(whole)).toStdString();
    } else if ((kindsIn(whole) & (NotAscii | Control)) == 0) {
        _text += whole;
    } else {
        _text += writableText(fromUtf8(whole)).toStdString();
    }
    _bytes.erase(0, length);
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
