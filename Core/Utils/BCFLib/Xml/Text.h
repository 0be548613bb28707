#pragma once

#include <QString>

#include <string_view>

namespace BCFLib::Xml {

/// Whether XML 1.0 has a place for the character of that number.
inline bool isCharacter(uint code)
{
    const bool isControl = code < 0x20 && code != '\t' && code != '\n' && code != '\r';
    return !isControl && !QChar::isSurrogate(code) && code != 0xFFFE && code != 0xFFFF && code < 0x110000;
}

/// The text with every character that XML 1.0 can't carry replaced by U+FFFD.
QString writableText(const QString &text);

/// The text that some UTF-8 is. U+FEFF in front stays, which QString takes for a byte order mark.
QString fromUtf8(std::string_view utf8);

/// The same text in memory of its own.
QString detached(const QString &text);

} // namespace BCFLib::Xml
