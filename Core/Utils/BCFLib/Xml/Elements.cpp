#include "Elements.h"

#include "Text.h"

#include <QDomDocument>

namespace BCFLib {

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

QString Xml::leadingText(const QDomElement &parent, const QString &name)
{
    return detached(parent.firstChildElement(name).firstChild().toText().data());
}

QDateTime Xml::childDate(const QDomElement &parent, const QString &name)
{
    return QDateTime::fromString(childText(parent, name), Qt::ISODate);
}

QString Xml::dateText(const QDateTime &date)
{
    return date.toUTC().toString(Qt::ISODate);
}

QString Xml::flagText(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
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
    QDomElement element = appendElement(document, parent, name);
    element.appendChild(document.createTextNode(writableText(text)));
}

void Xml::appendTextIfNotEmpty(QDomDocument &document, QDomElement &parent, const QString &name,
                               const QString &text)
{
    if (!text.isEmpty()) {
        appendText(document, parent, name, text);
    }
}

} // namespace BCFLib
