#include "Exercise.h"

#include "Io/Limits.h"
#include "Xml/Decoder.h"
#include "Xml/Elements.h"
#include "Xml/Reader.h"
#include "Xml/Text.h"

#include <QBuffer>
#include <QDomDocument>
#include <QRegularExpression>
#include <expat.h>

// The library reads XML by itself; QDomDocument is what it is held against. This is all that they may differ
// in.
//
// What QDomDocument gets otherwise than it stands in the file, see textFor():
// - An encoding other than UTF-8 is decoded by the library: QDomDocument knows others by the same names.
// - The XML declaration goes: what tools write into it is odd at times, and only the encoding counts.
// - Ends of lines become one, as the standard has it.
// - Characters that XML has no place for become U+FFFD, plain or as numbers: they cost themselves, not the
// file.
// - Numbers of characters beyond U+FFFF become these, of which QDomDocument loses half.
// - "]]>" in a text is escaped: malformed, but unambiguous. QDomDocument takes it at some places.
// - What follows an unreadable character behind the root goes: the document has ended.
// - Characters beyond ASCII are spelled out: QDomDocument allows other letters in names than the standard.
//
// What is compared of neither document, see toText():
// - Texts of blanks: the library keeps those that stand as numbers, as somebody who writes "&#160;" means it.
// - How many U+FFFD stand for bytes that are no text, which is the decoder's choice.
// - Tabs and ends of lines in attributes, which the standard turns into blanks.
// - Document types and the XML declaration, which nothing reads.
// - In runs, what comments and the like hold, and whether a text was a section: the readers don't ask.
//
// What the library alone refuses, see isRightToRefuse():
// - Bounds and declarations of entities and of defaults of attributes, which can make a small file grow.
// - An XML declaration that "?>" in a value ends: where it ends would be a guess.
// - An attribute twice: which of the two counts would be a guess.
// - No blank between two attributes or behind the name of an instruction, and a second document type:
// malformed, and no tool writes them.
// - Letters in names that came with the fifth edition of the standard: libexpat follows the fourth.

namespace {

using namespace BCFLib;

/// All characters that a name may hold in letters that every parser knows.
QString spelledOut(const QString &text)
{
    QString result;
    for (const QChar c : text) {
        const bool isPlain = c.unicode() < 0x80 || c.isSpace() || c == QChar::ReplacementCharacter;
        result += isPlain ? QString(c) : QString("u%1_").arg(c.unicode(), 0, 16);
    }
    return result;
}

QString valueOf(const QDomNode &node)
{
    return spelledOut(node.nodeValue().replace(QRegularExpression("\uFFFD+"), "\uFFFD"));
}

/// What a node holds as a text.
QString toText(const QDomNode &node, bool isInRun = false)
{
    static const QRegularExpression tabs("[\t\n]");
    QString text;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        const bool isText = isInRun ? child.isText() : child.nodeType() == QDomNode::TextNode;
        const QString value = isText || !isInRun ? valueOf(child) : QString();
        if (child.isElement()) {
            QStringList attributes;
            for (int i = 0; i < child.attributes().count(); ++i) {
                const QDomNode attribute = child.attributes().item(i);
                attributes += spelledOut(attribute.nodeName()) + '=' + valueOf(attribute);
            }
            attributes.sort();
            text += '<' + spelledOut(child.nodeName()) + ' ' + attributes.join(' ').replace(tabs, " ") + '>';
            text += toText(child, isInRun) + "</>";
        } else if (isText) {
            text += value.trimmed().isEmpty() ? QString() : "[" + value + ']';
        } else if (child.nodeType() != QDomNode::DocumentTypeNode && child.nodeName() != "xml") {
            text += "[?"
                + (isInRun ? QString()
                           : QString::number(child.nodeType()) + spelledOut(child.nodeName()) + '=' + value)
                + ']';
        }
    }
    return text;
}

/// Whether bytes that are markup are ASCII, and the rest UTF-8, or not quite.
bool isUtf8(const QByteArray &file)
{
    const QByteArray declaration = file.left(qMin(1024, file.indexOf("?>"))).toLower();
    return !file.left(4).contains('\0') && !file.startsWith("\xFF\xFE") && !file.startsWith("\xFE\xFF")
        && (!declaration.contains("encoding")
            || QRegularExpression("\\A(?!.*encoding.*encoding).*encoding[^\"']*[\"']utf-8[\"']")
                   .match(declaration)
                   .hasMatch());
}

std::string decoded(const QByteArray &file)
{
    Xml::Decoder decoder;
    return std::string(decoder.decode({file.constData(), static_cast<std::size_t>(file.size())}, true));
}

/// The text of a file with what is unreadable replaced.
QString mended(const QByteArray &file)
{
    const auto all = QRegularExpression::DotMatchesEverythingOption;
    QString text = isUtf8(file) ? QString::fromUtf8(file.constData(), file.size())
                                : QString::fromStdString(decoded(file));
    text.remove(QRegularExpression("\\A\uFEFF?[ \t\r\n]*(<\\?xml[ \t\r\n].*?\\?>)?\uFEFF?", all));
    const QRegularExpression reference(
        "<!--.*?-->|<!\\[CDATA\\[.*?\\]\\]>|<\\?.*?\\?>|\\]\\]>|&#(x?)([0-9a-fA-F]{1,28});", all);
    QString result;
    int end = 0;
    for (auto matches = reference.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        result += text.mid(end, match.capturedStart() - end);
        end = match.capturedEnd();
        const uint number = match.captured(2).toUInt(nullptr, match.capturedLength(1) > 0 ? 16 : 10);
        const uint code = number < 0x110000 ? number : 0;
        const QString character = code > 0xFFFF ? QString::fromUcs4(&code, 1) : QString(QChar(code));
        if (match.capturedLength(2) == 0) {
            result += match.captured() == "]]>" ? "]]&gt;" : match.captured();
        } else {
            const bool isKept = code < 0x10000 && Xml::writableText(character) == character;
            result += isKept ? match.captured() : character;
        }
    }
    return Xml::writableText(result + text.mid(end));
}

/// What a strict parser says of a text without declaration.
class StrictParser
{
public:
    explicit StrictParser(const std::string &text)
        : _text(text)
    {
        XML_Parser parser = XML_ParserCreate("UTF-8");
        XML_SetUserData(parser, this);
        XML_UseForeignDTD(parser, XML_TRUE);
        const auto beginElement = [](void *data, const char *, const char **attributes) {
            int texts = 0;
            for (; attributes[texts] != nullptr; ++texts) {
            }
            self(data)->_isTooMuch |=
                texts > 2 * Limits::xmlAttributes || ++self(data)->_depth > Limits::xmlDepth;
        };
        XML_SetElementHandler(parser, beginElement, [](void *data, const char *) {
            self(data)->_isRootRead = --self(data)->_depth == 0;
        });
        XML_SetEntityDeclHandler(parser, [](void *data, auto...) { self(data)->_isTooMuch = true; });
        XML_SetAttlistDeclHandler(parser, [](void *data, auto, auto, auto, const char *value, int) {
            self(data)->_isTooMuch |= value != nullptr;
        });
        XML_Parse(parser, _text.data(), static_cast<int>(_text.size()), 1);
        _error = XML_GetErrorCode(parser);
        _place = static_cast<std::size_t>(XML_GetErrorByteIndex(parser));
        XML_ParserFree(parser);
    }

    bool isRightToRefuse() const
    {
        const QChar at = QString::fromStdString(_text.substr(_place, 4) + ' ').front();
        const bool isLetter = at.unicode() > 0x7F && (at.isLetterOrNumber() || at.isMark());
        return _isTooMuch || _error == XML_ERROR_DUPLICATE_ATTRIBUTE
            || (_error == XML_ERROR_SYNTAX && _text.compare(_place, 9, "<!DOCTYPE") == 0)
            || (_error == XML_ERROR_INVALID_TOKEN && (isBehind("\"'?") || isLetter));
    }

    /// The text up to where the document has ended.
    std::string document() const
    {
        const bool hasEnded = _error == XML_ERROR_INVALID_TOKEN && _isRootRead && isBehind("> \t\n\r")
            && _text.compare(_place, 3, "\xEF\xBF\xBD") == 0;
        return hasEnded ? _text.substr(0, _place) : _text;
    }

private:
    static StrictParser *self(void *data) { return static_cast<StrictParser *>(data); }

    bool isBehind(const QString &characters) const
    {
        return _place > 0 && characters.contains(QLatin1Char(_text[_place - 1]));
    }

    const std::string _text;
    XML_Error _error;
    std::size_t _place;
    int _depth = 0;
    bool _isRootRead = false;
    bool _isTooMuch = false;
};

/// The file as QDomDocument has to get it to read what the library does.
QString textFor(const QByteArray &file)
{
    const std::string text = mended(file).toStdString();
    const QString document = QString::fromStdString(StrictParser(text).document());
    return spelledOut(document).replace("\r\n", "\n").replace('\r', '\n');
}

/// Whether the library may refuse a file that QDomDocument takes.
bool isRightToRefuse(const QByteArray &file)
{
    const QByteArray declaration = file.left(file.indexOf("?>"));
    return declaration.count('"') % 2 != 0 || declaration.count('\'') % 2 != 0
        || StrictParser(decoded(file)).isRightToRefuse();
}

/// What the elements of a list hold.
QStringList contents(const QByteArray &file, Xml::NodeCount::Runs runs)
{
    QBuffer device;
    device.setData(file);
    QDomDocument document;
    QStringList result;
    if (Xml::readDocument(&device, &document, runs)) {
        Xml::takeChildren(document.documentElement(), "Comment",
                          [&result](const QDomElement &element) { result += toText(element, true); });
    }
    return result;
}

/// Elements that wait in runs have to hold what they hold as nodes.
bool isSameInRuns(const std::string &text)
{
    const QByteArray element = QByteArray::fromStdString("<Comment>" + text + "</Comment>");
    const QByteArray list = "<a>" + QByteArray("<Comment/>").repeated(Xml::ElementRun::fewElements)
        + element.repeated(3) + "</a>";
    return contents(list, Xml::NodeCount::Runs::OfNumerousElements)
        == contents(list, Xml::NodeCount::Runs::None);
}

} // namespace

/// The input is an XML file.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray file(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QBuffer device;
    device.setData(file);
    QDomDocument document;
    QDomDocument other;
    if (!Xml::readDocument(&device, &document)) {
        Exercise::require(!other.setContent(file) || isRightToRefuse(file));
    } else {
        Exercise::require(other.setContent(textFor(file)) && toText(document) == toText(other));
        Exercise::require(isSameInRuns(decoded(file)));
    }
    return 0;
}
