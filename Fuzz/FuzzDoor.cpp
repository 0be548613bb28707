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

// The library reads XML by itself; QDomDocument is what it is held against. Where they may differ, one of the
// functions here says so, and why.

namespace {

using namespace BCFLib;

/// A document as a text; without contents only elements and texts tell what they hold, as in runs.
///
/// Texts of nothing but blanks count for nothing: the library keeps those that stand as numbers, as somebody
/// who writes "&#160;" means it. How many U+FFFD stand for bytes that are no text is the decoder's choice.
QString toText(const QDomNode &node, bool withContents = true)
{
    QString text;
    for (QDomNode child = node.firstChild(); !child.isNull(); child = child.nextSibling()) {
        QString value = child.nodeValue().replace(QRegularExpression("\uFFFD+"), "\uFFFD");
        if (child.isElement()) {
            QMap<QString, QString> attributes;
            for (int i = 0; i < child.attributes().count(); ++i) {
                const QDomNode attribute = child.attributes().item(i);
                // The standard has blanks in attributes become plain ones.
                attributes[attribute.nodeName()] = attribute.nodeValue()
                                                       .replace(QRegularExpression("[\t\n]"), " ")
                                                       .replace(QRegularExpression("\uFFFD+"), "\uFFFD");
            }
            text += '<' + child.nodeName();
            for (auto attribute = attributes.cbegin(); attribute != attributes.cend(); ++attribute) {
                text += ' ' + attribute.key() + '=' + attribute.value();
            }
            text += '>' + toText(child, withContents) + "</>";
        } else if ((withContents ? child.nodeType() == QDomNode::TextNode : child.isText())
                   && value.trimmed().isEmpty()) {
            continue;
        } else if (child.nodeType() != QDomNode::DocumentTypeNode && child.nodeName() != "xml") {
            const QString kind = QString("%1 %2").arg(child.nodeType()).arg(child.nodeName());
            text += '[' + (withContents ? kind : QString());
            text += (withContents || child.isText() ? value : QString()) + ']';
        }
    }
    return text;
}

/// Whether a reference of that number names a character that XML has.
bool isReadable(uint code)
{
    return (code >= 0x20 || QString("\t\n\r").contains(QChar(code))) && !QChar::isSurrogate(code)
        && code != 0xFFFE && code != 0xFFFF && code < 0x110000;
}

/// The file as QDomDocument has to get it to read what the library does.
QString mended(QString text)
{
    // What tools write into a declaration is odd at times, and nothing but the encoding counts.
    const QRegularExpression declaration("\\A\uFEFF?[ \t\r\n]*(<\\?xml[ \t\r\n].*?\\?>)?\uFEFF?",
                                         QRegularExpression::DotMatchesEverythingOption);
    text.remove(declaration);
    // The standard knows one end of a line.
    text.replace("\r\n", "\n").replace('\r', '\n');
    // A character that XML has no place for costs itself, not the file.
    text.replace(QRegularExpression("[\\x{1}-\\x{8}\\x{B}\\x{C}\\x{E}-\\x{1F}\\x{FFFE}\\x{FFFF}]"), "\uFFFD");
    text.replace(QChar(0), QChar::ReplacementCharacter);
    // The same goes for one that a number names; those beyond U+FFFF lose half of theirs in QDomDocument.
    const QRegularExpression reference(
        "<!--.*?-->|<!\\[CDATA\\[.*?\\]\\]>|<\\?.*?\\?>|\\]\\]>|&#(x?)([0-9a-fA-F]{1,28});",
        QRegularExpression::DotMatchesEverythingOption);
    QString result;
    int end = 0;
    for (auto matches = reference.globalMatch(text); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        bool isNumber = true;
        const int base = match.capturedLength(1) > 0 ? 16 : 10;
        const uint code = match.capturedLength(2) > 0 ? match.captured(2).toUInt(&isNumber, base) : 'x';
        result += text.mid(end, match.capturedStart() - end);
        if (match.captured() == "]]>") {
            // Malformed, but what it means is plain; QDomDocument takes it at some places.
            result += "]]&gt;";
        } else if (QChar::isSurrogate(code)) {
            result += QChar(code);
        } else if (!isReadable(code)) {
            result += QChar::ReplacementCharacter;
        } else {
            result += code > 0xFFFF ? QString::fromUcs4(&code, 1) : match.captured();
        }
        end = match.capturedEnd();
    }
    // Two surrogates make a character.
    return Xml::writableText(result + text.mid(end));
}

/// Whether bytes that are markup are ASCII, and the rest UTF-8, or not quite.
bool isUtf8(const QByteArray &file)
{
    const QByteArray declaration = file.left(qMin(1024, file.indexOf("?>"))).toLower();
    return !file.left(4).contains('\0') && !file.startsWith("\xFF\xFE") && !file.startsWith("\xFE\xFF")
        && (!declaration.contains("encoding")
            || (declaration.contains("utf-8") && declaration.count("encoding") == 1));
}

/// The text of a file, where it is not UTF-8 by the library's own decoder: QDomDocument knows fewer encodings
/// on some systems, and others by the same name.
QString textOf(const QByteArray &file)
{
    if (isUtf8(file)) {
        return QString::fromUtf8(file.constData(), file.size());
    }
    Xml::Decoder decoder;
    const std::string_view text =
        decoder.decode({file.constData(), static_cast<std::size_t>(file.size())}, true);
    return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
}

/// Elements that wait in runs have to hold what they hold as nodes.
void requireEqualRuns(const QByteArray &file, const QDomDocument &document)
{
    if (!file.startsWith('<' + document.documentElement().tagName().toUtf8()) || !isUtf8(file)) {
        return;
    }
    QBuffer device;
    device.setData("<r>" + ("<Comment>" + file + "</Comment>").repeated(Xml::ElementRun::fewElements + 2)
                   + "</r>");
    QDomDocument others;
    // Deeper by two, and larger, it may pass a bound.
    if (Xml::readDocument(&device, &others, Xml::NodeCount::Runs::OfNumerousElements)) {
        const QString text = toText(document, false);
        Xml::takeChildren(others.documentElement(), "Comment", [&text](const QDomElement &element) {
            Exercise::require(toText(element, false) == text);
        });
    }
}

/// What a strict parser says of a file that the library does not take.
class Verdict
{
public:
    explicit Verdict(const QByteArray &file)
    {
        const QByteArray declaration = file.left(file.indexOf("?>"));
        _isDeclarationCut = declaration.count('"') % 2 != 0 || declaration.count('\'') % 2 != 0;
        Xml::Decoder decoder;
        _text = decoder.decode({file.constData(), static_cast<std::size_t>(file.size())}, true);
        XML_Parser parser = XML_ParserCreate("UTF-8");
        XML_SetUserData(parser, this);
        XML_UseForeignDTD(parser, XML_TRUE);
        XML_SetElementHandler(parser, beginElement, endElement);
        XML_SetEntityDeclHandler(parser, declareEntity);
        XML_SetAttlistDeclHandler(parser, declareAttribute);
        XML_Parse(parser, _text.data(), static_cast<int>(_text.size()), 1);
        _error = XML_GetErrorCode(parser);
        _place = static_cast<std::size_t>(XML_GetErrorByteIndex(parser));
        XML_ParserFree(parser);
    }

    /// QDomDocument lacks some characters of names.
    bool isWellFormed() const { return _error == XML_ERROR_NONE; }

    bool isRightToRefuse() const
    {
        // Bounds, declarations that can make a small file grow, and an XML declaration that "?>" in a value
        // ends.
        if (_passesBounds || _declares || _isDeclarationCut) {
            return true;
        }
        const std::string_view place = std::string_view(_text).substr(_place);
        switch (_error) {
        case XML_ERROR_DUPLICATE_ATTRIBUTE:
            // Which of the two counts would be a guess.
            return true;
        case XML_ERROR_INVALID_TOKEN: {
            const char before = _place > 0 ? _text[_place - 1] : '\0';
            // No blank between two attributes; a character that is none behind the root, where no text may
            // be; and letters in names that came with the fifth edition of the standard.
            return before == '"' || before == '\'' || (!place.empty() && (place[0] & 0x80) != 0);
        }
        case XML_ERROR_SYNTAX:
            // A second document type.
            return place.substr(0, 9) == "<!DOCTYPE";
        default:
            return false;
        }
    }

private:
    static Verdict *self(void *data) { return static_cast<Verdict *>(data); }

    static void beginElement(void *data, const char *, const char **attributes)
    {
        int texts = 0;
        while (attributes[texts] != nullptr) {
            ++texts;
        }
        self(data)->_passesBounds |=
            ++self(data)->_depth > Limits::xmlDepth || texts > 2 * Limits::xmlAttributes;
    }

    static void endElement(void *data, const char *) { --self(data)->_depth; }

    static void declareEntity(void *data, const char *, int, const char *, int, const char *, const char *,
                              const char *, const char *)
    {
        self(data)->_declares = true;
    }

    static void declareAttribute(void *data, const char *, const char *, const char *, const char *value, int)
    {
        self(data)->_declares |= value != nullptr;
    }

    std::string _text;
    XML_Error _error;
    std::size_t _place;
    int _depth = 0;
    bool _passesBounds = false;
    bool _declares = false;
    bool _isDeclarationCut = false;
};

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
        Exercise::require(!other.setContent(file) || Verdict(file).isRightToRefuse());
    } else if (!other.setContent(mended(textOf(file)))) {
        Exercise::require(Verdict(file).isWellFormed());
    } else {
        Exercise::require(toText(document) == toText(other));
        requireEqualRuns(file, document);
    }
    return 0;
}
