#include "Encodings.h"

#include <QList>

#include <algorithm>
#include <cctype>
#include <utility>

namespace BCFLib {

namespace {

struct Alias
{
    const char *name;
    const char *iconvName;
};

/// Names without all but letters and digits.
constexpr Alias aliases[] = {
    {"SHIFTJIS", "CP932"},     {"SJIS", "CP932"},           {"MSKANJI", "CP932"},
    {"WINDOWS31J", "CP932"},   {"GB2312", "GB18030"},       {"GB231280", "GB18030"},
    {"EUCCN", "GB18030"},      {"GBK", "GB18030"},          {"EUCKR", "CP949"},
    {"KSC5601", "CP949"},      {"KSC56011987", "CP949"},    {"BIG5", "CP950"},
    {"MACROMAN", "MACINTOSH"}, {"APPLEROMAN", "MACINTOSH"}, {"MACCYRILLIC", "MAC-CYRILLIC"},
};

/// Families of encodings, of which each has a number.
constexpr Alias families[] = {
    {"ISO8859", "ISO-8859-"}, {"8859", "ISO-8859-"}, {"WINDOWS", "CP"}, {"DOS", "CP"}, {"CP", "CP"},
};

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

QByteArray Xml::iconvName(const QByteArray &name)
{
    QByteArray plain = name.trimmed().toUpper();
    if (plain.startsWith("X-")) {
        plain.remove(0, 2);
    }
    // As in "ISO_8859-1:1987".
    plain = plain.split(':').first();
    QByteArray key;
    for (const char c : std::as_const(plain)) {
        if (std::isalnum(static_cast<unsigned char>(c)) != 0) {
            key += c;
        } else if (QByteArray("._- ").indexOf(c) < 0) {
            // iconv takes "//IGNORE" and the like for a part of a name.
            return QByteArray();
        }
    }
    if (key == "UTF7") {
        // No tool writes it, and each "+" of a plain text would mean something else.
        return QByteArray();
    }
    for (const Alias &alias : aliases) {
        if (key == alias.name) {
            return alias.iconvName;
        }
    }
    for (const Alias &family : families) {
        const QByteArray number = key.mid(static_cast<int>(qstrlen(family.name)));
        const int length =
            static_cast<int>(std::find_if_not(number.begin(), number.end(), isDigit) - number.begin());
        // Hebrew's "ISO-8859-8-I" differs from "ISO-8859-8" in the order of letters on the screen.
        const QByteArray rest = number.mid(length);
        if (key.startsWith(family.name) && length > 0 && (rest.isEmpty() || rest == "I")) {
            return family.iconvName + number.left(length);
        }
    }
    return plain;
}

} // namespace BCFLib
