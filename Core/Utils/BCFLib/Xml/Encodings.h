#ifndef BCFLIB_XML_ENCODINGS_H
#define BCFLIB_XML_ENCODINGS_H

#include <QByteArray>

namespace BCFLib {
namespace Xml {

/// The name by which iconv knows the encoding that files of tools declare as @p name, which may stand in any
/// spelling. Empty if it is no name.
///
/// East Asian encodings come with the characters that Windows adds to them, as tools write these under the
/// name of the standard.
QByteArray iconvName(const QByteArray &name);

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_ENCODINGS_H
