#pragma once

#include "BCFLibExport.h"

#include <QMap>
#include <QString>
#include <QVariant>
#include <osg/Vec3d>

class QDomDocument;
class QDomElement;

namespace Tavrin {

/// Builds the elements of a written file. The document makes the nodes; what comes back is appended
/// by the caller, only AddNumberElement() appends by itself.
///
/// A character that XML 1.0 can't carry, such as a control character or half of a surrogate pair,
/// goes out as U+FFFD, so that every written file can be read again.
namespace DOMXml {

/// Digits after the decimal point of a written number: 16.
BCFLIB_EXPORT int numberPrecision();

/// Appends to @p parent an element that holds @p value in scientific notation, such as
/// 1.5000000000000000e+00.
BCFLIB_EXPORT void AddNumberElement(QDomDocument &document, QDomElement &parent, const QString &name,
                                    double value);

/// An element with one text child, also for an empty text.
BCFLIB_EXPORT QDomElement createTextElement(QDomDocument &document, const QString &name, const QString &text);

/// An element with one attribute and no child.
BCFLIB_EXPORT QDomElement createAttributeElement(QDomDocument &document, const QString &name,
                                                 const QString &attributeName, const QString &attributeValue);

/// An element with the number children X, Y and Z.
BCFLIB_EXPORT QDomElement createPointElement(QDomDocument &document, const QString &name,
                                             const osg::Vec3d &point);

/// The same from the values under "x", "y" and "z"; what is missing or no number counts as 0.
BCFLIB_EXPORT QDomElement createPointElement(QDomDocument &document, const QString &name,
                                             const QMap<QString, QVariant> &point);

} // namespace DOMXml
} // namespace Tavrin
