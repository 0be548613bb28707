#ifndef BCFLIB_XMLELEMENTS_H
#define BCFLIB_XMLELEMENTS_H

#include "StoredDate.h"

#include <QDomElement>
#include <QString>

namespace BCFLib {

/// The habits of the readers and writers of XML elements, each in one place.
///
/// The texts that are read are copies. QDomElement's own functions give texts that share their memory with
/// the document; each that outlives it would keep back a piece of what the document took.
namespace Xml {

/// All children of @p parent of that name, in file order, for a range-based for.
class ChildElements
{
public:
    ChildElements(const QDomElement &parent, const QString &name)
        : _first(parent.firstChildElement(name))
        , _name(name)
    {
    }

    class Iterator
    {
    public:
        Iterator(const QDomElement &element, const QString *name)
            : _element(element)
            , _name(name)
        {
        }
        const QDomElement &operator*() const { return _element; }
        Iterator &operator++()
        {
            _element = _element.nextSiblingElement(*_name);
            return *this;
        }
        bool operator!=(const Iterator &other) const { return _element != other._element; }

    private:
        QDomElement _element;
        const QString *_name;
    };

    Iterator begin() const { return {_first, &_name}; }
    Iterator end() const { return {QDomElement(), &_name}; }

private:
    QDomElement _first;
    QString _name;
};

inline ChildElements childElements(const QDomElement &parent, const QString &name)
{
    return {parent, name};
}

/// The element's attribute of that name; empty without it.
QString attribute(const QDomElement &element, const QString &name);

/// Text of the first child of that name; empty without such a child.
QString childText(const QDomElement &parent, const QString &name);

/// The attribute "Guid" of the first child of that name; empty without it.
QString childGuid(const QDomElement &parent, const QString &name);

/// Stores in @p text what the first node of the first child of that name holds.
///
/// False, with @p text as it was, if there is no such child or it does not begin with text.
bool readLeadingText(const QDomElement &parent, const QString &name, QString *text);

/// The ISO date that the first child of that name holds; invalid without one.
StoredDate childDate(const QDomElement &parent, const QString &name);

/// The form of a date in a written file: whole seconds in UTC, empty for an invalid date.
QString dateText(const StoredDate &date);

/// The form of a flag in a written file.
QString flagText(bool flag);

/// The text with every character that XML 1.0 can't carry replaced by U+FFFD.
QString writableText(const QString &text);

/// Sets an attribute to a text of any content.
void setAttribute(QDomElement &element, const QString &name, const QString &value);
void setAttributeIfNotEmpty(QDomElement &element, const QString &name, const QString &value);

/// Makes an element and appends it to @p parent.
QDomElement appendElement(QDomDocument &document, QDomNode &parent, const QString &name);
void appendText(QDomDocument &document, QDomElement &parent, const QString &name, const QString &text);
void appendTextIfNotEmpty(QDomDocument &document, QDomElement &parent, const QString &name,
                          const QString &text);

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XMLELEMENTS_H
