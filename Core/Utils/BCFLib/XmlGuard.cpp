#include "XmlGuard.h"

#include "Limits.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QString>
#include <QXmlInputSource>

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
        while (_harmless && find('<')) {
            if (startsWith("</")) {
                _tally.close();
                skipPast(">");
            } else if (startsWith("<!--")) {
                skipConstruct("<!--", "-->");
            } else if (startsWith("<![CDATA[")) {
                skipConstruct("<![CDATA[", "]]>");
            } else if (startsWith("<?")) {
                skipConstruct("<?", "?>");
            } else if (startsWith("<!")) {
                scanDocumentType();
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
        _harmless = _harmless && _tally.node(attributes);
    }

    void scanDocumentType()
    {
        bool inSubset = false;
        for (++_at; _at != _end; ++_at) {
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
                return;
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
    QXmlInputSource source;
    source.setData(bytes);
    QT_WARNING_POP
    return source.data().toUtf8();
}

/// Whether the bytes are in UTF-8 or in another encoding that leaves ASCII as it is.
bool extendsAscii(const QByteArray &bytes)
{
    const bool startsInAscii = bytes.size() < 2
        || ((bytes[0] == '<' || bytes[0] == '\xEF' || std::isspace(static_cast<unsigned char>(bytes[0])))
            && bytes[1] != '\0');
    if (!startsInAscii) {
        return false;
    }
    const int declaration = bytes.indexOf("<?xml");
    if (declaration < 0 || declaration > 3) {
        return true;
    }
    const QString text =
        QString::fromLatin1(bytes.mid(declaration, bytes.indexOf("?>", declaration) - declaration));
    if (!text.contains(QLatin1String("encoding"))) {
        return true;
    }
    static const QRegularExpression known(
        QStringLiteral("^[^e]*version\\s*=\\s*[\"'][0-9.]+[\"']\\s+encoding\\s*=\\s*[\"']"
                       "(utf-?8|us-ascii|iso-8859-\\d+|latin-?1|windows-125\\d)[\"']"),
        QRegularExpression::CaseInsensitiveOption);
    return known.match(text).hasMatch();
}

} // namespace

bool XmlGuard::isHarmless(const QByteArray &bytes)
{
    return MarkupScanner(extendsAscii(bytes) ? bytes : decoded(bytes)).isHarmless();
}

} // namespace BCFLib
