#include "XmlGuard.h"

#include "Limits.h"

#include <QBuffer>
#include <QByteArray>
#include <QList>
#include <QXmlInputSource>

#include <algorithm>
#include <cctype>
#include <cstring>

namespace BCFLib {

namespace {

/// Counts what the bounds are about.
class Tally
{
public:
    bool open() { return ++_depth <= Limits::xmlDepth && node(1); }
    void close() { --_depth; }
    bool node(qint64 count)
    {
        _nodes += count;
        return _nodes <= Limits::xmlNodes;
    }

private:
    int _depth = 0;
    qint64 _nodes = 0;
};

/// Walks over the markup of a file in which every byte below 128 is that ASCII character.
///
/// Faster than a parser by far, as it only looks for where markup begins and ends. Wherever it finds
/// no end the file is malformed.
class MarkupScanner
{
public:
    explicit MarkupScanner(const QByteArray &bytes)
        : _bytes(bytes)
        , _at(_bytes.constData())
        , _end(_at + _bytes.size())
    {
    }

    bool isHarmless()
    {
        while (_harmless && findMarkup()) {
            if (startsWith("</")) {
                _tally.close();
                skipPast(">");
            } else if (startsWith("<!--")) {
                skipConstruct("<!--", "-->");
            } else if (startsWith("<![CDATA[")) {
                skipConstruct("<![CDATA[", "]]>");
            } else if (startsWith("<?")) {
                skipConstruct("<?", "?>");
            } else if (startsWith("<!DOCTYPE")) {
                scanDocumentType();
            } else if (startsWith("<!")) {
                _harmless = false;
            } else {
                scanStartTag();
            }
        }
        return _harmless;
    }

private:
    bool find(char c)
    {
        const void *found = std::memchr(_at, c, static_cast<size_t>(_end - _at));
        _at = found != nullptr ? static_cast<const char *>(found) : _end;
        return _at != _end;
    }

    /// Finds the next markup. Each reference to an entity that nothing declares is a node of its own.
    bool findMarkup()
    {
        const char *text = _at;
        const bool found = find('<');
        _harmless = _tally.node(std::count(text, _at, '&'));
        return _harmless && found;
    }

    bool startsWith(const char *text) const
    {
        const size_t length = std::strlen(text);
        return static_cast<size_t>(_end - _at) >= length && std::memcmp(_at, text, length) == 0;
    }

    void skipPast(const char *text)
    {
        while (find(text[0])) {
            if (startsWith(text)) {
                _at += std::strlen(text);
                return;
            }
            ++_at;
        }
    }

    void skipConstruct(const char *opening, const char *closing)
    {
        _harmless = _tally.node(1);
        _at += std::strlen(opening);
        skipPast(closing);
    }

    void scanStartTag()
    {
        const char *tag = _at;
        qint64 attributes = 0;
        for (; _at != _end && *_at != '>'; ++_at) {
            if (*_at == '"' || *_at == '\'') {
                ++attributes;
                const char quote = *_at++;
                if (!find(quote)) {
                    return;
                }
            }
        }
        const bool isEmpty = _at != _end && _at - 1 != tag && _at[-1] == '/';
        _harmless = isEmpty ? _tally.node(1) : _tally.open();
        _harmless = _harmless && attributes <= Limits::xmlAttributes && _tally.node(attributes);
    }

    void scanDocumentType()
    {
        bool inSubset = false;
        for (++_at; _harmless && _at != _end; ++_at) {
            const char c = *_at;
            if (c == '"' || c == '\'') {
                ++_at;
                if (!find(c)) {
                    return;
                }
            } else if (startsWith("<!--")) {
                skipConstruct("<!--", "-->");
                --_at;
            } else if (startsWith("<?")) {
                skipConstruct("<?", "?>");
                --_at;
            } else if (startsWith("<!ENTITY") || startsWith("<!ATTLIST")) {
                _harmless = false;
            } else if (c == '<') {
                _harmless = _tally.node(1);
            } else if (c == '(') {
                // The parser calls itself for each group in the content of an element.
                _harmless = _tally.open();
            } else if (c == ')') {
                _tally.close();
            } else if (c == '[') {
                inSubset = true;
            } else if (c == ']') {
                inSubset = false;
            } else if (c == '>' && !inSubset) {
                return;
            }
        }
    }

    const QByteArray _bytes;
    const char *_at;
    const char *_end;
    Tally _tally;
    bool _harmless = true;
};

/// The text of a file in any encoding as the parser will see it, in UTF-8.
QByteArray decoded(const QByteArray &bytes)
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    QBuffer device;
    device.setData(bytes);
    // Character by character as the parser takes it: the source reads in blocks, and an encoding that is
    // declared behind the first of them doesn't count.
    QXmlInputSource source(&device);
    QString text;
    for (QChar c = source.next(); c != QXmlInputSource::EndOfDocument; c = source.next()) {
        if (c != QXmlInputSource::EndOfData) {
            text += c;
        }
    }
    QT_WARNING_POP
    return text.toUtf8();
}

/// Whether an encoding of that name leaves ASCII as it is.
bool extendsAscii(const QByteArray &encoding)
{
    const QByteArray name = encoding.toLower();
    return name == "utf-8" || name == "us-ascii" || name.startsWith("iso-8859-")
        || name.startsWith("windows-125");
}

/// Whether the bytes can be looked over as they are, without asking the parser how it decodes them.
///
/// Only what nearly every file begins with is recognised; a doubt costs no more than time.
bool isPlain(const QByteArray &bytes)
{
    const QByteArray byteOrderMark = QByteArrayLiteral("\xEF\xBB\xBF");
    const QByteArray head = bytes.mid(bytes.startsWith(byteOrderMark) ? byteOrderMark.size() : 0, 80);
    if (!head.startsWith("<?xml")) {
        return head.size() > 1 && head.at(0) == '<' && head.at(1) != '\0';
    }
    const int end = head.indexOf('>');
    if (end < 0) {
        return false;
    }
    const QByteArray declaration = head.left(end).replace('\'', '"');
    if (!declaration.contains("encoding")) {
        return declaration.endsWith('?');
    }
    // <?xml version="1.0" encoding="UTF-8" ...: the name is the second quoted text.
    const QList<QByteArray> parts = declaration.split('"');
    return parts.size() >= 5 && parts.at(0) == "<?xml version=" && parts.at(2).trimmed() == "encoding="
        && extendsAscii(parts.at(3));
}

} // namespace

bool XmlGuard::isHarmless(const QByteArray &bytes)
{
    return MarkupScanner(isPlain(bytes) ? bytes : decoded(bytes)).isHarmless();
}

} // namespace BCFLib
