#include "XmlFile.h"

#include "GuardedSource.h"
#include "PackingReader.h"

#include <QDomDocument>
#include <QIODevice>
#include <QStringBuilder>

namespace BCFLib {

namespace {

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
        return i >= 2 && text.midRef(i - 2, 2) == QLatin1String("]]") ? "&gt;" : nullptr;
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
    explicit Printer(QIODevice *device)
        : _device(device)
    {
    }

    void print(const QDomDocument &document)
    {
        _text = QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n");
        printChildren(document, 0);
        flush();
    }

private:
    void printChildren(const QDomNode &parent, int depth)
    {
        for (QDomNode node = parent.firstChild(); !node.isNull(); node = node.nextSibling()) {
            if (node.isText()) {
                printEscaped(node.nodeValue(), Place::Content);
            } else {
                printElement(node.toElement(), depth);
            }
        }
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
        if (_text.size() > enoughToWrite) {
            flush();
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
                _text += text.midRef(printed, i - printed);
                _text += QLatin1String(escape);
                printed = i + 1;
            }
        }
        _text += text.midRef(printed);
    }

    void indent(int depth) { _text += QString(4 * depth, QLatin1Char(' ')); }

    void flush()
    {
        _device->write(_text.toUtf8());
        _text.resize(0);
    }

    static constexpr int enoughToWrite = 32 * 1024;

    QIODevice *_device;
    QString _text;
};

} // namespace

bool XmlFile::read(QIODevice *device, QDomDocument *document, const QStringList &packedElements)
{
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    GuardedSource source(device);
    // Where a host has documents refuse or change names and texts, only a whole document tells which.
    const bool acceptsAll = QDomImplementation::invalidDataPolicy() == QDomImplementation::AcceptInvalidChars;
    PackingReader reader(document, acceptsAll ? packedElements : QStringList());
    return document->setContent(&source, &reader) && source.isHarmless();
    QT_WARNING_POP
}

void XmlFile::write(const QDomDocument &document, QIODevice *device)
{
    if (device == nullptr) {
        return;
    }
    device->setTextModeEnabled(true);
    Printer(device).print(document);
}

} // namespace BCFLib
