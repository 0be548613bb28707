#include "Printer.h"

#include <QDomDocument>
#include <QIODevice>

namespace BCFLib {

namespace {

/// What a text may hold before it is handed on.
constexpr int enoughToWrite = 32 * 1024;

/// So many elements of a list stay in the document: printing so few one by one saves no time.
constexpr int fewElements = 200;

/// The target of a node that holds printed text, which no name can be.
QString printedTarget()
{
    return QStringLiteral(" ");
}

bool isPrinted(const QDomNode &node)
{
    return node.isProcessingInstruction() && node.nodeName() == printedTarget();
}

/// Where a text stands in a document.
enum class Place { Content, Attribute };

/// What stands in a file for the character at @p i; null for the character itself.
const char *escapeAt(const QString &text, int i, Place place)
{
    const bool inAttribute = place == Place::Attribute;
    switch (text.at(i).unicode()) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return i >= 2 && text.at(i - 1) == QLatin1Char(']') && text.at(i - 2) == QLatin1Char(']') ? "&gt;"
                                                                                                  : nullptr;
    case '\r':
        return "&#xd;";
    case '\n':
        return inAttribute ? "&#xa;" : nullptr;
    case '\t':
        return inAttribute ? "&#x9;" : nullptr;
    case '"':
        return inAttribute ? "&quot;" : nullptr;
    default:
        return nullptr;
    }
}

/// Prints a document of elements and texts as QDomNode::save() does, byte for byte.
///
/// QDomNode::save() itself moves the rest of a text for each character that it escapes, which takes
/// hours for a text of some megabytes of "&", and hands each line to the device on its own.
class Printer
{
public:
    /// Without a device the text stays here.
    explicit Printer(QIODevice *device = nullptr)
        : _device(device)
    {
    }

    void print(const QDomDocument &document)
    {
        _text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        printChildren(document, 0);
        flush();
    }

    void printElement(const QDomElement &element, int depth)
    {
        const QString name = element.tagName();
        if (!element.previousSibling().isText()) {
            indent(depth);
        }
        _text += QLatin1Char('<') + name;
        printAttributes(element.attributes());
        if (!element.hasChildNodes()) {
            _text += QLatin1String("/>");
        } else {
            _text += QLatin1String(element.firstChild().isText() ? ">" : ">\n");
            printChildren(element, depth + 1);
            if (!element.lastChild().isText()) {
                indent(depth);
            }
            _text += QLatin1String("</") + name + QLatin1Char('>');
        }
        if (!element.nextSibling().isText()) {
            _text += QLatin1Char('\n');
        }
        flushIfLarge();
    }

    QString text() const { return _text; }

private:
    void printChildren(const QDomNode &parent, int depth)
    {
        for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
            if (node.isText()) {
                printEscaped(node.nodeValue(), Place::Content);
            } else if (node.isElement()) {
                printElement(node.toElement(), depth);
            } else if (isPrinted(node)) {
                _text += node.nodeValue();
                flushIfLarge();
            }
        }
    }

    void printAttributes(const QDomNamedNodeMap &attributes)
    {
        for (int i = 0; i < attributes.count(); ++i) {
            const QDomNode attribute = attributes.item(i);
            _text += QLatin1Char(' ') + attribute.nodeName() + QLatin1String("=\"");
            printEscaped(attribute.nodeValue(), Place::Attribute);
            _text += QLatin1Char('"');
        }
    }

    void printEscaped(const QString &text, Place place)
    {
        int printed = 0;
        for (int i = 0; i < text.size(); ++i) {
            if (const char *escape = escapeAt(text, i, place)) {
                _text.append(text.constData() + printed, i - printed);
                _text += QLatin1String(escape);
                printed = i + 1;
            }
        }
        _text.append(text.constData() + printed, text.size() - printed);
    }

    void indent(int depth) { _text += QString(4 * depth, QLatin1Char(' ')); }

    void flushIfLarge()
    {
        if (_device != nullptr && _text.size() > enoughToWrite) {
            flush();
        }
    }

    void flush()
    {
        _device->write(_text.toUtf8());
        _text.resize(0);
    }

    QIODevice *_device;
    QString _text;
};

int depthOf(const QDomNode &node)
{
    int depth = 0;
    for (QDomNode parent = node.parentNode(); parent.isElement(); parent = parent.parentNode()) {
        ++depth;
    }
    return depth;
}

} // namespace

void Xml::writeDocument(const QDomDocument &document, QIODevice *device)
{
    if (device == nullptr) {
        return;
    }
    device->setTextModeEnabled(true);
    Printer(device).print(document);
}

Xml::PrintedList::PrintedList(QDomDocument *document, const QDomElement &list)
    : _document(document)
    , _list(list)
    , _depth(depthOf(list) + 1)
{
}

void Xml::PrintedList::printLast()
{
    if (++_count <= fewElements) {
        return;
    }
    const QDomElement element = _list.lastChildElement();
    Printer printer;
    printer.printElement(element, _depth);
    _text += printer.text();
    _list.removeChild(element);
    if (_text.size() > enoughToWrite) {
        finish();
    }
}

void Xml::PrintedList::finish()
{
    if (_text.isEmpty()) {
        return;
    }
    _list.appendChild(_document->createProcessingInstruction(printedTarget(), _text));
    _text.resize(0);
}

} // namespace BCFLib
