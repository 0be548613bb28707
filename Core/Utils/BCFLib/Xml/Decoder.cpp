#include "Decoder.h"

#include <QChar>
#include <QString>
#include <cerrno>
#include <cstring>
#include <new>

namespace BCFLib {

namespace {

const char replacement[] = "\xEF\xBF\xBD";

/// An encoding counts only if it is declared within so many bytes.
constexpr int longestDeclaration = 1024;

/// The longest reference to a character that is looked at, with some zeros to spare. Two can make a pair.
constexpr int longestReference = 32;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// The encoding that the first bytes have by their form; null if it is one that extends ASCII.
const char *encodingByForm(const QByteArray &bytes)
{
    const auto isAt = [&bytes](const char *begin, int size) {
        return bytes.size() >= size && std::memcmp(bytes.constData(), begin, static_cast<size_t>(size)) == 0;
    };
    if (isAt("\xFF\xFE\0\0", 4) || isAt("\0\0\xFE\xFF", 4)) {
        return "UTF-32";
    }
    if (isAt("\xFF\xFE", 2) || isAt("\xFE\xFF", 2)) {
        return "UTF-16";
    }
    if (isAt("\xEF\xBB\xBF", 3)) {
        return "UTF-8";
    }
    if (bytes.size() < 4 || (bytes.at(0) == 0) == (bytes.at(1) == 0)) {
        return isAt("\0\0\0", 3) ? "UTF-32BE" : nullptr;
    }
    if (bytes.at(1) == 0) {
        return bytes.at(2) == 0 && bytes.at(3) == 0 ? "UTF-32LE" : "UTF-16LE";
    }
    return "UTF-16BE";
}

/// The encoding that the declaration at the beginning of some bytes names; empty without.
QByteArray declaredEncoding(const QByteArray &bytes)
{
    const QByteArray beginning = bytes.left(longestDeclaration).trimmed();
    if (!beginning.startsWith("<?xml")) {
        return QByteArray();
    }
    const QByteArray declaration = beginning.left(beginning.indexOf("?>"));
    const int at = declaration.indexOf("encoding");
    QByteArray value = at < 0 ? QByteArray() : declaration.mid(at + 8).trimmed();
    value = value.startsWith('=') ? value.mid(1).trimmed() : QByteArray();
    const QByteArray name = value.mid(1, qMax(0, value.indexOf(value.left(1), 1) - 1)).toUpper();
    // Bytes of these would not begin with a readable declaration.
    const bool isWide = name.startsWith("UTF-16") || name.startsWith("UTF-32") || name.startsWith("UCS")
        || name.startsWith("ISO-10646");
    return isWide ? QByteArray() : name;
}

/// The number of the character that a reference at the beginning of a text names.
struct Reference
{
    uint code = 0;
    /// The length of the reference; 0 if there is none.
    int length = 0;

    Reference(const char *text, int size)
    {
        if (size < 4 || text[0] != '&' || text[1] != '#') {
            return;
        }
        const QByteArray inside = QByteArray::fromRawData(text + 2, qMin(size, longestReference) - 2);
        const int end = inside.indexOf(';');
        const bool isHexadecimal = inside.startsWith('x');
        const QByteArray digits = inside.mid(isHexadecimal ? 1 : 0, end - (isHexadecimal ? 1 : 0));
        bool isNumber = end > 0 && digits.at(0) != '+' && digits.at(0) != '-' && digits.at(0) != ' ';
        const qulonglong value = isNumber ? digits.toULongLong(&isNumber, isHexadecimal ? 16 : 10) : 0;
        if (isNumber) {
            code = static_cast<uint>(qMin<qulonglong>(value, 0x110000));
            length = end + 3;
        }
    }

    bool isReadable() const
    {
        const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
        return !isControl && !QChar::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF && code < 0x110000;
    }
};

/// What begins at a "<", as far as references mean nothing in it: what ends it, or null.
const char *sectionEndAt(const char *text, int size)
{
    struct Section
    {
        const char *begin;
        const char *end;
    };
    for (const Section &section : {Section{"<![CDATA[", "]]>"}, {"<!--", "-->"}, {"<?", "?>"}}) {
        const size_t length = std::strlen(section.begin);
        if (static_cast<size_t>(size) >= length && std::memcmp(text, section.begin, length) == 0) {
            return section.end;
        }
    }
    return nullptr;
}

/// Replaces plain characters that XML has no place for.
void replaceControls(QByteArray *text)
{
    const auto isControl = [](char c) { return static_cast<uchar>(c) < 0x20 && !isBlank(c); };
    bool isClean = true;
    for (const char c : qAsConst(*text)) {
        isClean &= !isControl(c);
    }
    if (!isClean) {
        QByteArray result;
        for (const char c : qAsConst(*text)) {
            isControl(c) ? result += replacement : result += c;
        }
        *text = result;
    }
}

} // namespace

Xml::Decoder::~Decoder()
{
    if (_converter != invalidConverter()) {
        iconv_close(_converter);
    }
}

QByteArray Xml::Decoder::decode(const QByteArray &bytes, bool isLast)
{
    _bytes += bytes;
    if (!_hasBegun) {
        if (!isLast && _bytes.size() < longestDeclaration) {
            return QByteArray();
        }
        begin();
    }
    QByteArray text = toUtf8(std::exchange(_bytes, {}), isLast);
    replaceControls(&text);
    if (_isInProlog) {
        _isInProlog = false;
        if (text.startsWith("\xEF\xBB\xBF")) {
            text.remove(0, 3);
        }
        int at = 0;
        while (at < text.size() && isBlank(text.at(at))) {
            ++at;
        }
        text.remove(0, at);
        const int end = text.indexOf("?>");
        if (text.startsWith("<?xml") && end > 0 && isBlank(text.at(5))) {
            text.remove(0, end + 2);
        }
    }
    return replaceUnreadable(text, isLast);
}

void Xml::Decoder::begin()
{
    _hasBegun = true;
    const char *form = encodingByForm(_bytes);
    const QByteArray encoding = form != nullptr ? QByteArray(form) : declaredEncoding(_bytes);
    _isUtf8 = encoding.isEmpty() || encoding == "UTF-8";
    if (!_isUtf8) {
        _converter = iconv_open("UTF-8", encoding.constData());
    }
    if (_converter == invalidConverter()) {
        _isUtf8 = true;
        _converter = iconv_open("UTF-8", "UTF-8");
    }
    if (_converter == invalidConverter()) {
        throw std::bad_alloc();
    }
}

QByteArray Xml::Decoder::toUtf8(const QByteArray &bytes, bool isLast)
{
    const auto isAscii = [&bytes] {
        uchar all = 0;
        for (const char c : bytes) {
            all |= static_cast<uchar>(c);
        }
        return all < 0x80;
    };
    if (_isUtf8 && isAscii()) {
        return bytes;
    }
    QByteArray text(2 * bytes.size() + 16, Qt::Uninitialized);
    char *in = const_cast<char *>(bytes.constData());
    size_t left = static_cast<size_t>(bytes.size());
    int length = 0;
    while (left > 0) {
        char *out = text.data() + length;
        // Room for one replacement is always left.
        size_t room = static_cast<size_t>(text.size() - length - 3);
        const size_t result = iconv(_converter, &in, &left, &out, &room);
        length = static_cast<int>(out - text.constData());
        if (result != static_cast<size_t>(-1)) {
            break;
        }
        if (errno == E2BIG) {
            text.resize(2 * text.size());
            continue;
        }
        if (errno == EINVAL && !isLast) {
            _bytes = QByteArray(in, static_cast<int>(left));
            break;
        }
        std::memcpy(text.data() + length, replacement, 3);
        length += 3;
        ++in;
        --left;
        if (text.size() - length < 16) {
            text.resize(2 * text.size());
        }
    }
    text.resize(length);
    return text.replace("\xEF\xBF\xBE", replacement).replace("\xEF\xBF\xBF", replacement);
}

QByteArray Xml::Decoder::replaceUnreadable(const QByteArray &text, bool isLast)
{
    const QByteArray all = _text.isEmpty() ? text : std::exchange(_text, {}) + text;
    QByteArray result;
    result.reserve(all.size());
    int at = 0;
    while (at < all.size()) {
        const char *here = all.constData() + at;
        const int left = all.size() - at;
        if (_sectionEnd != nullptr) {
            const int end = all.indexOf(_sectionEnd, at);
            const int length = end < 0 ? left - (isLast ? 0 : qMin(left, 2))
                                       : end - at + static_cast<int>(std::strlen(_sectionEnd));
            result.append(here, length);
            at += length;
            if (end < 0) {
                break;
            }
            _sectionEnd = nullptr;
            continue;
        }
        const int markup = static_cast<int>(std::strcspn(here, "<&"));
        result.append(here, markup);
        at += markup;
        here += markup;
        const int rest = left - markup;
        if (rest == 0 || (rest < 2 * longestReference && !isLast)) {
            break;
        }
        const Reference reference(here, rest);
        if (reference.length > 0 && !reference.isReadable()) {
            const Reference second(here + reference.length, rest - reference.length);
            // Some tools write a character beyond U+FFFF as its two surrogates.
            const bool isPair = QChar::isHighSurrogate(reference.code) && QChar::isLowSurrogate(second.code);
            const uint code =
                QChar::surrogateToUcs4(static_cast<ushort>(reference.code), static_cast<ushort>(second.code));
            result += isPair ? "&#" + QByteArray::number(code) + ';' : QByteArray(replacement);
            at += reference.length + (isPair ? second.length : 0);
        } else {
            _sectionEnd = sectionEndAt(here, rest);
            result += *here;
            ++at;
        }
    }
    _text = all.mid(at);
    return result;
}

} // namespace BCFLib
