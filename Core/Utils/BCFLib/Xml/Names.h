#pragma once

#include <QString>
#include <array>
#include <cstring>

namespace BCFLib::Xml {

/// Names of elements and attributes as texts, of which all nodes of one name share one.
class Names
{
public:
    /// Valid until the next call.
    const QString &of(const char *utf8)
    {
        const std::size_t length = std::strlen(utf8);
        const unsigned first = static_cast<unsigned char>(utf8[0]);
        QString &known = _names[(first + 7 * length) % _names.size()];
        if (known != QLatin1String(utf8, static_cast<int>(length))) {
            known = QString::fromUtf8(utf8);
        }
        return known;
    }

private:
    std::array<QString, 64> _names;
};

} // namespace BCFLib::Xml
