#include "ElementRun.h"

#include "Names.h"
#include "Text.h"

#include <cstring>

namespace BCFLib {

namespace {

// What a string in a run stands for.
constexpr char elementMark = '<';
constexpr char attributeNameMark = '@';
constexpr char attributeValueMark = '=';
constexpr char textMark = 't';
constexpr char otherMark = '?';
constexpr char endMark = '>';

QString targetOf(const QString &name)
{
    return QLatin1Char(' ') + name;
}

} // namespace

void Xml::ElementRun::beginElement(const char *name, const char **attributes)
{
    add(elementMark, name);
    for (; *attributes != nullptr; attributes += 2) {
        add(attributeNameMark, attributes[0]);
        add(attributeValueMark, attributes[1]);
    }
}

void Xml::ElementRun::addText(std::string_view text)
{
    add(textMark, text);
}

void Xml::ElementRun::addOtherNode()
{
    add(otherMark, {});
}

void Xml::ElementRun::endElement()
{
    add(endMark, {});
}

void Xml::ElementRun::add(char mark, std::string_view text)
{
    _marks += mark;
    _marks += text;
    _marks += '\0';
}

std::string_view Xml::ElementRun::name() const
{
    return _marks.empty() ? std::string_view() : std::string_view(_marks.c_str() + 1);
}

QDomNode Xml::ElementRun::take(QDomDocument *document)
{
    const QString target = targetOf(QString::fromUtf8(_marks.c_str() + 1));
    // The value of a node is a text: two bytes make one of its characters.
    _marks.resize(_marks.size() + _marks.size() % 2);
    const QString value(reinterpret_cast<const QChar *>(_marks.data()), static_cast<int>(_marks.size() / 2));
    _marks.clear();
    return document->createProcessingInstruction(target, value);
}

bool Xml::ElementRun::isRun(const QDomNode &node, const QString &name)
{
    return node.isProcessingInstruction() && node.nodeName() == targetOf(name);
}

QDomElement Xml::ElementRun::elements(const QDomNode &node)
{
    const QString value = node.nodeValue();
    const char *at = reinterpret_cast<const char *>(value.constData());
    const char *end = reinterpret_cast<const char *>(value.constData() + value.size());
    QDomDocument document = node.ownerDocument();
    Names names;
    QDomElement parent = document.createElement(QStringLiteral("elements"));
    QDomElement open = parent;
    QString attribute;
    for (; at != end && *at != '\0'; at += std::strlen(at) + 1) {
        switch (*at++) {
        case elementMark: {
            QDomElement element = document.createElement(names.of(at));
            open.appendChild(element);
            open = element;
            break;
        }
        case attributeNameMark:
            attribute = names.of(at);
            break;
        case attributeValueMark:
            open.setAttribute(attribute, fromUtf8(at));
            break;
        case textMark:
            open.appendChild(document.createTextNode(fromUtf8(at)));
            break;
        case otherMark:
            open.appendChild(document.createComment(QString()));
            break;
        default:
            open = open.parentNode().toElement();
            break;
        }
    }
    return parent;
}

} // namespace BCFLib
