#ifndef BCFLIB_XMLGUARD_H
#define BCFLIB_XMLGUARD_H

class QByteArray;

namespace BCFLib {

/// Looks over an XML file before a document is built from it.
namespace XmlGuard {

/// Whether the file keeps to the bounds of Limits and declares nothing that could grow.
///
/// Takes time in proportion to the bytes and no stack. It says nothing on well-formedness: where
/// a file is malformed the parser stops, and what stands behind that place does no harm.
bool isHarmless(const QByteArray &bytes);

} // namespace XmlGuard
} // namespace BCFLib

#endif // BCFLIB_XMLGUARD_H
