#ifndef BCFLIB_XML_TEXT_H
#define BCFLIB_XML_TEXT_H

#include <QString>

namespace BCFLib {
namespace Xml {

/// The text with every character that XML 1.0 can't carry replaced by U+FFFD.
QString writableText(const QString &text);

/// The same text in memory of its own.
QString detached(const QString &text);

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_TEXT_H
