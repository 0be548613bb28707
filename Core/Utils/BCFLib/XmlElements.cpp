#include "XmlElements.h"

#include "DOMXml.h"

#include <QDomDocument>

#include <algorithm>

namespace BCFLib {

namespace {

/// Whether XML 1.0 has no place for this UTF-16 unit outside a surrogate pair.
bool isUnwritable(ushort unit)
{
    const bool isControl = unit < 0x20 && unit != '\t' && unit != '\n' && unit != '\r';
    return isControl || QChar::isSurrogate(unit) || unit >= 0xFFFE;
}

/// The same text in memory of its own.
QString detached(const QString &text)
{
    return text.isEmpty() ? text : QString(text.constData(), text.size());
}

} // namespace

Xml::ChildElements::Iterator::Iterator(const QDomNode &firstChild, const QString &name)
    : _name(name)
{
    find(firstChild);
}

Xml::ChildElements::Iterator &Xml::ChildElements::Iterator::operator++()
{
    if (_run) {
        _element = _run->next();
        if (!_element.isNull()) {
            return *this;
        }
        _run.reset();
        const QDomNode passed = _node;
        find(passed.nextSibling());
        passed.parentNode().removeChild(passed);
    } else {
        find(_node.nextSibling());
    }
    return *this;
}

void Xml::ChildElements::Iterator::find(const QDomNode &node)
{
    for (_node = node; !_node.isNull(); _node = _node.nextSibling()) {
        if (_node.isElement() && _node.nodeName() == _name) {
            _element = _node.toElement();
            return;
        }
        if (PackedElements::isRun(_node, _name)) {
            _run.emplace(_node);
            _element = _run->next();
            return;
        }
    }
    _element = QDomElement();
}

QString Xml::attribute(const QDomElement &element, const QString &name)
{
    return detached(element.attribute(name));
}

QString Xml::childText(const QDomElement &parent, const QString &name)
{
    return detached(parent.firstChildElement(name).text());
}

QString Xml::childGuid(const QDomElement &parent, const QString &name)
{
    return attribute(parent.firstChildElement(name), QStringLiteral("Guid"));
}

bool Xml::readLeadingText(const QDomElement &parent, const QString &name, QString *text)
{
    const QDomText node = parent.firstChildElement(name).firstChild().toText();
    if (node.isNull()) {
        return false;
    }
    *text = detached(node.data());
    return true;
}

StoredDate Xml::childDate(const QDomElement &parent, const QString &name)
{
    return StoredDate::fromFile(childText(parent, name));
}

QString Xml::dateText(const StoredDate &date)
{
    return date.inUtc().toString(Qt::ISODate);
}

QString Xml::flagText(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
}

QString Xml::writableText(const QString &text)
{
    const ushort *units = text.utf16();
    const bool isSuspicious = std::any_of(units, units + text.size(), isUnwritable);
    if (!isSuspicious) {
        return text;
    }
    QString result = text;
    for (int i = 0; i < result.size(); ++i) {
        if (result.at(i).isHighSurrogate() && i + 1 < result.size() && result.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (isUnwritable(result.at(i).unicode())) {
            result[i] = QChar::ReplacementCharacter;
        }
    }
    return result;
}

void Xml::setAttribute(QDomElement &element, const QString &name, const QString &value)
{
    element.setAttribute(name, writableText(value));
}

void Xml::setAttributeIfNotEmpty(QDomElement &element, const QString &name, const QString &value)
{
    if (!value.isEmpty()) {
        setAttribute(element, name, value);
    }
}

QDomElement Xml::appendElement(QDomDocument &document, QDomNode &parent, const QString &name)
{
    QDomElement element = document.createElement(name);
    parent.appendChild(element);
    return element;
}

void Xml::appendText(QDomDocument &document, QDomElement &parent, const QString &name, const QString &text)
{
    parent.appendChild(Tavrin::DOMXml::createTextElement(document, name, text));
}

void Xml::appendTextIfNotEmpty(QDomDocument &document, QDomElement &parent, const QString &name,
                               const QString &text)
{
    if (!text.isEmpty()) {
        appendText(document, parent, name, text);
    }
}

} // namespace BCFLib
