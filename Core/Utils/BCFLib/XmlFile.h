#ifndef BCFLIB_XMLFILE_H
#define BCFLIB_XMLFILE_H

#include <QStringList>

class QDomDocument;
class QIODevice;

namespace BCFLib {

/// The one place where the XML files of an archive are parsed and written.
namespace XmlFile {

/// Parses @p device, which is opened for reading if it is closed, without namespace processing.
///
/// False if the content is not well-formed. A file that passes one of the bounds of Limits, or
/// whose document type declares entities or attributes, counts as not well-formed: such
/// declarations have no use in an archive, and they make small files grow.
///
/// Elements of which a file may hold any number are best packed until their turn comes. They are named by
/// their path below the root, as in "Lines/Line"; Xml::childElements() finds them.
bool read(QIODevice *device, QDomDocument *document, const QStringList &packedElements = {});

/// Writes @p document to an open device as UTF-8, indented by four blanks, with an XML declaration.
void write(const QDomDocument &document, QIODevice *device);

} // namespace XmlFile
} // namespace BCFLib

#endif // BCFLIB_XMLFILE_H
