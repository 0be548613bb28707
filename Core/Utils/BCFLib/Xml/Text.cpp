#include "Text.h"

#include <algorithm>

namespace BCFLib {

QString Xml::writableText(const QString &text)
{
    const ushort *units = text.utf16();
    // A surrogate is no character by itself, so that texts with pairs take the longer way.
    if (std::all_of(units, units + text.size(), isCharacter)) {
        return text;
    }
    QString result = text;
    for (int i = 0; i < result.size(); ++i) {
        if (result.at(i).isHighSurrogate() && i + 1 < result.size() && result.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (!isCharacter(result.at(i).unicode())) {
            result[i] = QChar::ReplacementCharacter;
        }
    }
    return result;
}

QString Xml::fromUtf8(std::string_view utf8)
{
    // QString takes a byte order mark at the beginning away.
    const QString text = QString::fromUtf8(utf8.data(), static_cast<int>(utf8.size()));
    return utf8.substr(0, 3) == "\xEF\xBB\xBF" ? QChar(QChar::ByteOrderMark) + text : text;
}

QString Xml::detached(const QString &text)
{
    return text.isEmpty() ? text : QString(text.constData(), text.size());
}

} // namespace BCFLib
