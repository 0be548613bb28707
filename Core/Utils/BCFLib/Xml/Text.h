#ifndef BCFLIB_XML_TEXT_H
#define BCFLIB_XML_TEXT_H

#include <QString>

#include <string_view>

namespace BCFLib {
namespace Xml {

/// The text with every character that XML 1.0 can't carry replaced by U+FFFD.
QString writableText(const QString &text);

/// The text that some UTF-8 is. U+FEFF in front stays, which QString takes for a byte order mark.
QString fromUtf8(std::string_view utf8);

/// The same text in memory of its own.
QString detached(const QString &text);

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_TEXT_H
