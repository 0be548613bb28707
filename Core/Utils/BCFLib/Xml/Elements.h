#pragma once

#include "ElementRun.h"
#include "Text.h"

#include <QDateTime>
#include <QDomDocument>
#include <QString>

/// Helpers shared by everything that reads or writes XML elements.
///
/// The texts that are read are copies. QDomElement's own functions give texts that share their memory with
/// the document; a text that outlives the document would keep part of its memory alive.
namespace BCFLib::Xml {

/// Calls @p visit with each child element of @p parent of that name, in file order.
///
/// Elements that were kept in runs are there for that call only: what was visited of them leaves the
/// document, so that its memory serves for what is read of it. Another visit would not see them.
template<class Visit>
void takeChildren(QDomElement parent, const QString &name, const Visit &visit)
{
    QDomNode next;
    for (QDomNode node = parent.firstChild(); !node.isNull(); node = next) {
        next = node.nextSibling();
        if (ElementRun::isRun(node, name)) {
            parent.removeChild(node);
            takeChildren(ElementRun::elements(node), name, visit);
        } else if (node.isElement() && node.nodeName() == name) {
            visit(node.toElement());
        }
    }
}

/// The element's attribute of that name; empty without it.
inline QString attribute(const QDomElement &element, const QString &name)
{
    return detached(element.attribute(name));
}

/// Text of the first child of that name; empty without such a child.
inline QString childText(const QDomElement &parent, const QString &name)
{
    return detached(parent.firstChildElement(name).text());
}

/// The attribute "Guid" of the first child of that name; empty without it.
inline QString childGuid(const QDomElement &parent, const QString &name)
{
    return attribute(parent.firstChildElement(name), QStringLiteral("Guid"));
}

/// What the first node of the first child of that name holds. Null, and not only empty, if there is no such
/// child or it does not begin with text.
inline QString leadingText(const QDomElement &parent, const QString &name)
{
    return detached(parent.firstChildElement(name).firstChild().toText().data());
}

/// The ISO date that the first child of that name holds; invalid without one.
inline QDateTime childDate(const QDomElement &parent, const QString &name)
{
    return QDateTime::fromString(childText(parent, name), Qt::ISODate);
}

/// The form of a date in a written file: whole seconds in UTC, empty for an invalid date.
inline QString dateText(const QDateTime &date)
{
    return date.toUTC().toString(Qt::ISODate);
}

/// The form of a flag in a written file.
inline QString flagText(bool flag)
{
    return flag ? QStringLiteral("true") : QStringLiteral("false");
}

/// Sets an attribute to a text of any content.
inline void setAttribute(QDomElement &element, const QString &name, const QString &value)
{
    element.setAttribute(name, writableText(value));
}

inline void setAttributeIfNotEmpty(QDomElement &element, const QString &name, const QString &value)
{
    if (!value.isEmpty()) {
        setAttribute(element, name, value);
    }
}

/// Makes an element and appends it to @p parent.
inline QDomElement appendElement(QDomDocument &document, QDomNode &parent, const QString &name)
{
    QDomElement element = document.createElement(name);
    parent.appendChild(element);
    return element;
}

inline void appendText(QDomDocument &document, QDomElement &parent, const QString &name, const QString &text)
{
    QDomElement element = appendElement(document, parent, name);
    element.appendChild(document.createTextNode(writableText(text)));
}

inline void appendTextIfNotEmpty(QDomDocument &document, QDomElement &parent, const QString &name,
                                 const QString &text)
{
    if (!text.isEmpty()) {
        appendText(document, parent, name, text);
    }
}

} // namespace BCFLib::Xml
