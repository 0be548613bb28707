#include "PackedElements.h"

#include <QUuid>
#include <QXmlAttributes>

#include <algorithm>
#include <cstring>

namespace BCFLib {
namespace PackedElements {

namespace {

/// What comes next in a run.
enum Part : uint { ElementEnd, ElementBegin, Text, OtherNode };

/// What each run begins with, in this process.
const QString &mark()
{
    static const QString text = QUuid::createUuid().toString();
    return text;
}

/// Texts of the first 256 characters of Unicode, which nearly all are, take a byte for each.
bool isNarrow(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 256; });
}

} // namespace

bool isRun(const QDomNode &node, const QString &name)
{
    return node.isProcessingInstruction() && node.nodeName() == name && node.nodeValue().startsWith(mark());
}

void Packer::beginElement(const QString &name, const QXmlAttributes &attributes)
{
    if (_name.isEmpty()) {
        _name = name;
    }
    addNumber(ElementBegin);
    addName(name);
    addNumber(static_cast<uint>(attributes.count()));
    for (int i = 0; i < attributes.count(); ++i) {
        addName(attributes.qName(i));
        addString(attributes.value(i));
    }
}

void Packer::addText(const QString &text)
{
    addNumber(Text);
    addString(text);
}

void Packer::addOtherNode()
{
    addNumber(OtherNode);
}

void Packer::endElement()
{
    addNumber(ElementEnd);
}

QString Packer::name() const
{
    return _name;
}

int Packer::size() const
{
    return _bytes.size();
}

QDomNode Packer::takeRun(QDomDocument *document)
{
    // As a node's value is a text, two bytes make one of its characters.
    QString data(mark().size() + (_bytes.size() + 1) / 2, QChar());
    std::copy(mark().begin(), mark().end(), data.begin());
    std::memcpy(data.data() + mark().size(), _bytes.constData(), static_cast<size_t>(_bytes.size()));
    QDomNode run = document->createProcessingInstruction(_name, QString());
    run.setNodeValue(data);
    _bytes.resize(0);
    _name.clear();
    _names.clear();
    return run;
}

void Packer::addNumber(uint number)
{
    for (; number >= 0x80; number >>= 7) {
        _bytes += static_cast<char>(number | 0x80);
    }
    _bytes += static_cast<char>(number);
}

void Packer::addString(const QString &text)
{
    const uint length = static_cast<uint>(text.size());
    if (isNarrow(text)) {
        addNumber(2 * length);
        _bytes += text.toLatin1();
    } else {
        addNumber(2 * length + 1);
        _bytes.append(reinterpret_cast<const char *>(text.constData()), 2 * text.size());
    }
}

void Packer::addName(const QString &name)
{
    const uint newNumber = static_cast<uint>(_names.size());
    const auto known = _names.constFind(name);
    if (known != _names.constEnd()) {
        addNumber(*known);
        return;
    }
    _names.insert(name, newNumber);
    addNumber(newNumber);
    addString(name);
}

Unpacker::Unpacker(const QDomNode &run)
    : _document(run.ownerDocument())
    , _data(run.nodeValue())
    , _at(reinterpret_cast<const char *>(_data.constData() + mark().size()))
    , _end(reinterpret_cast<const char *>(_data.constData() + _data.size()))
{
}

QDomElement Unpacker::next()
{
    QDomElement outermost;
    QDomNode open;
    int depth = 0;
    while (_at != _end) {
        switch (number()) {
        case ElementBegin: {
            const QDomElement element = beginElement();
            if (outermost.isNull()) {
                outermost = element;
            } else {
                open.appendChild(element);
            }
            open = element;
            ++depth;
            break;
        }
        case Text:
            open.appendChild(_document.createTextNode(string()));
            break;
        case OtherNode:
            open.appendChild(_document.createComment(QString()));
            break;
        default:
            if (--depth <= 0) {
                return outermost;
            }
            open = open.parentNode();
        }
    }
    return outermost;
}

uint Unpacker::number()
{
    uint number = 0;
    for (int shift = 0; _at != _end; shift += 7) {
        const uint byte = static_cast<uchar>(*_at++);
        number |= (byte & 0x7F) << shift;
        if (byte < 0x80) {
            break;
        }
    }
    return number;
}

QString Unpacker::string()
{
    const uint header = number();
    const int length = static_cast<int>(header / 2);
    const char *text = _at;
    if (header % 2 == 0) {
        _at += length;
        return QString::fromLatin1(text, length);
    }
    QString wide(length, Qt::Uninitialized);
    const size_t bytes = 2 * static_cast<size_t>(length);
    std::memcpy(wide.data(), text, bytes);
    _at += bytes;
    return wide;
}

QString Unpacker::elementName()
{
    const int index = static_cast<int>(number());
    if (index == _names.size()) {
        _names.append(string());
    }
    return _names.at(index);
}

QDomElement Unpacker::beginElement()
{
    QDomElement element = _document.createElement(elementName());
    for (uint count = number(); count > 0; --count) {
        const QString name = elementName();
        element.setAttribute(name, string());
    }
    return element;
}

} // namespace PackedElements
} // namespace BCFLib
