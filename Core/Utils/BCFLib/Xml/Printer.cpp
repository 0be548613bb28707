#include "Printer.h"

#include "Io/Limits.h"
#include "Io/ReadBudget.h"

#include <QDomDocument>
#include <QIODevice>
#include <QVarLengthArray>
#include <algorithm>

namespace BCFLib {

namespace {

/// What a text may hold before it is handed on.
constexpr int enoughToWrite = 32 * 1024;

/// So many elements are printed in one go, because every call walks down from the root.
constexpr int enoughToPrint = 50;

} // namespace

Xml::Printer::Printer(QIODevice *device)
    : _device(device)
    , _text(QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"))
    , _count(NodeCount::Runs::OfNumerousElements, BudgetedDevice::budgetOf(device))
{
    if (_device != nullptr) {
        _device->setTextModeEnabled(true);
    }
}

void Xml::Printer::printFinished(const QDomDocument &document)
{
    if (++_calls % enoughToPrint == 0) {
        printChildren(document, 0, false);
    }
}

void Xml::Printer::finish(const QDomDocument &document)
{
    printChildren(document, 0, true);
    flush();
    if (_device != nullptr && (_bytes > Limits::xmlBytes || _count.isTooMuch())) {
        _device->close();
    }
}

/// If the parent is finished, its children stay in it; the caller removes the parent.
void Xml::Printer::printChildren(QDomNode parent, int depth, bool isFinished)
{
    QDomNode next;
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = next) {
        next = node.nextSibling();
        const bool isNodeFinished = isFinished || !next.isNull();
        if (node.isElement()) {
            printElement(node.toElement(), depth, isNodeFinished);
        } else if (isNodeFinished) {
            _isAfterText = node.isText();
            const QString text = node.nodeValue();
            if (_isAfterText && !text.isEmpty()) {
                _count.addText();
                printEscaped(text, Place::Content);
            }
        }
        if (isNodeFinished && !isFinished) {
            parent.removeChild(node);
        }
    }
}

void Xml::Printer::printElement(const QDomElement &element, int depth, bool isFinished)
{
    const bool hasChildren = element.hasChildNodes();
    if (_openElements == depth) {
        if (!hasChildren && !isFinished) {
            return;
        }
        printStartTag(element, depth);
    }
    if (hasChildren) {
        printChildren(element, depth + 1, isFinished);
    }
    if (!isFinished) {
        return;
    }
    --_openElements;
    _count.endElement();
    if (hasChildren) {
        if (!element.lastChild().isText()) {
            indent(depth);
        }
        _text += QLatin1String("</");
        _text += element.tagName();
        _text += QLatin1Char('>');
    }
    if (!element.nextSibling().isText()) {
        _text += QLatin1Char('\n');
    }
    _isAfterText = false;
    flushIfLarge();
}

void Xml::Printer::printStartTag(const QDomElement &element, int depth)
{
    if (!_isAfterText) {
        indent(depth);
    }
    _text += QLatin1Char('<');
    _text += element.tagName();
    const QDomNamedNodeMap attributes = element.attributes();
    printAttributes(attributes);
    const QDomNode first = element.firstChild();
    _text += QLatin1String(first.isNull() ? "/>" : first.isText() ? ">" : ">\n");
    _isAfterText = false;
    ++_openElements;
    const QByteArray name = _count.isInRun() ? QByteArray() : element.tagName().toUtf8();
    _count.beginElement({name.constData(), static_cast<std::size_t>(name.size())}, attributes.count());
}

void Xml::Printer::printAttributes(const QDomNamedNodeMap &attributes)
{
    QVarLengthArray<QDomNode, 8> sorted;
    for (int i = 0; i < attributes.count(); ++i) {
        sorted.append(attributes.item(i));
    }
    // The map's own order changes from one process to the next.
    std::sort(sorted.begin(), sorted.end(),
              [](const QDomNode &one, const QDomNode &other) { return one.nodeName() < other.nodeName(); });
    for (const QDomNode &attribute : sorted) {
        _text += QLatin1Char(' ');
        _text += attribute.nodeName();
        _text += QLatin1String("=\"");
        printEscaped(attribute.nodeValue(), Place::Attribute);
        _text += QLatin1Char('"');
    }
}

/// What stands in a file for the character at @p i; null for the character itself.
const char *Xml::Printer::escapeAt(const QString &text, int i, Place place)
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

void Xml::Printer::printEscaped(const QString &text, Place place)
{
    int printed = 0;
    const auto isBlank = [](QChar c) { return c.isSpace(); };
    if (place == Place::Content && std::all_of(text.begin(), text.end(), isBlank)) {
        // Blanks alone count only where one of them is a reference.
        _text += QStringLiteral("&#x%1;").arg(text.at(0).unicode(), 0, 16);
        printed = 1;
    }
    for (int i = printed; i < text.size(); ++i) {
        if (const char *escape = escapeAt(text, i, place)) {
            _text.append(text.constData() + printed, i - printed);
            _text += QLatin1String(escape);
            printed = i + 1;
            flushIfLarge();
        }
    }
    _text.append(text.constData() + printed, text.size() - printed);
}

void Xml::Printer::indent(int depth)
{
    const int start = _text.size();
    _text.resize(start + 4 * depth);
    std::fill(_text.begin() + start, _text.end(), QLatin1Char(' '));
}

void Xml::Printer::flushIfLarge()
{
    if (_text.size() > enoughToWrite) {
        flush();
    }
}

void Xml::Printer::flush()
{
    const QByteArray bytes = _text.toUtf8();
    _text.resize(0);
    _bytes += bytes.size();
    // Nothing could read a file beyond this size.
    if (_device != nullptr && _bytes <= Limits::xmlBytes) {
        _device->write(bytes);
    }
}

} // namespace BCFLib
