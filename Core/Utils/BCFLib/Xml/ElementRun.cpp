#include "ElementRun.h"

#include "Names.h"
#include "Text.h"

#include <cstring>

namespace BCFLib {

namespace {

/// What a string in a run stands for.
enum Mark : char {
    Element = '<',
    AttributeName = '@',
    AttributeValue = '=',
    Text = 't',
    Other = '?',
    End = '>'
};

QString targetOf(const QString &name)
{
    return QLatin1Char(' ') + name;
}

} // namespace

void Xml::ElementRun::beginElement(const char *name, const char **attributes)
{
    _marks += Element;
    _marks.append(name, std::strlen(name) + 1);
    for (; *attributes != nullptr; attributes += 2) {
        _marks += AttributeName;
        _marks.append(attributes[0], std::strlen(attributes[0]) + 1);
        _marks += AttributeValue;
        _marks.append(attributes[1], std::strlen(attributes[1]) + 1);
    }
}

void Xml::ElementRun::addText(std::string_view text)
{
    _marks += Text;
    _marks += text;
    _marks += '\0';
}

void Xml::ElementRun::addOtherNode()
{
    _marks += Other;
    _marks += '\0';
}

void Xml::ElementRun::endElement()
{
    _marks += End;
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
    const char *end = at + 2 * value.size();
    QDomDocument document = node.ownerDocument();
    Names names;
    QDomElement parent = document.createElement(QStringLiteral("elements"));
    QDomElement open = parent;
    const QString *attribute = nullptr;
    for (; at != end && *at != '\0'; at += std::strlen(at) + 1) {
        switch (*at++) {
        case Element: {
            QDomElement element = document.createElement(names.of(at));
            open.appendChild(element);
            open = element;
            break;
        }
        case AttributeName:
            attribute = &names.of(at);
            break;
        case AttributeValue:
            open.setAttribute(*attribute, fromUtf8(at));
            break;
        case Text:
            open.appendChild(document.createTextNode(fromUtf8(at)));
            break;
        case Other:
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
