#ifndef BCFLIB_XML_ELEMENTS_H
#define BCFLIB_XML_ELEMENTS_H

#include "PackedElements.h"

#include <QDateTime>
#include <QDomElement>
#include <QString>

#include <optional>

namespace BCFLib {

/// The habits of the readers and writers of XML elements, each in one place.
///
/// The texts that are read are copies. QDomElement's own functions give texts that share their memory with
/// the document; each that outlives it would keep back a piece of what the document took.
namespace Xml {

/// All children of @p parent of that name, in file order, for a range-based for.
///
/// Elements that are packed are there for the loop only, and once: a run that the loop is through with
/// leaves the document, so that its memory serves for what was read of it.
class ChildElements
{
public:
    ChildElements(const QDomElement &parent, const QString &name)
        : _parent(parent)
        , _name(name)
    {
    }

    class Iterator
    {
    public:
        Iterator() = default;
        Iterator(const QDomNode &firstChild, const QString &name);

        const QDomElement &operator*() const { return _element; }
        Iterator &operator++();
        bool operator!=(const Iterator &other) const { return _element != other._element; }

    private:
        /// Goes to the first element in @p node and the siblings behind it.
        void find(const QDomNode &node);

        QString _name;
        /// The child that the element is or is packed in.
        QDomNode _node;
        std::optional<PackedElements::Unpacker> _run;
        QDomElement _element;
    };

    Iterator begin() const { return {_parent.firstChild(), _name}; }
    Iterator end() const { return {}; }

private:
    QDomElement _parent;
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

/// The ISO date that the first child of that name holds, in local time; invalid without one.
QDateTime childDate(const QDomElement &parent, const QString &name);

/// The form of a date in a written file: whole seconds in UTC, empty for an invalid date.
QString dateText(const QDateTime &date);

/// The form of a flag in a written file.
QString flagText(bool flag);

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

#endif // BCFLIB_XML_ELEMENTS_H
