#ifndef BCFLIB_XML_READER_H
#define BCFLIB_XML_READER_H

#include <QStringList>

class QDomDocument;
class QIODevice;

namespace BCFLib {
namespace Xml {

/// Parses @p device, which is opened for reading if it is closed, without namespace processing.
///
/// False if the content is not well-formed. A file that passes one of the bounds of Limits, or
/// whose document type declares entities or attributes, counts as not well-formed: such
/// declarations have no use in an archive, and they make small files grow.
///
/// Elements of which a file may hold any number are best packed until their turn comes. They are named by
/// their path below the root, as in "Lines/Line"; childElements() finds them.
bool readDocument(QIODevice *device, QDomDocument *document, const QStringList &packedElements = {});

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_READER_H
