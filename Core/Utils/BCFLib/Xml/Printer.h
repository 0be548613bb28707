#ifndef BCFLIB_XML_PRINTER_H
#define BCFLIB_XML_PRINTER_H

#include <QDomElement>
#include <QString>

class QDomDocument;
class QIODevice;

namespace BCFLib {

namespace Xml {

/// Writes a document of elements and texts to an open device as UTF-8, indented by four blanks, with an
/// XML declaration; other nodes are left out.
void writeDocument(const QDomDocument &document, QIODevice *device);

/// Prints the elements of a long list one by one, as they are appended to it.
///
/// What is printed leaves the document, which never holds more of them than a few, and text takes its place
/// for writeDocument() to pass on. For documents that nobody else looks into.
class PrintedList
{
public:
    /// @p list stands at its place in the document already.
    PrintedList(QDomDocument *document, const QDomElement &list);

    /// To be called for each element that was appended.
    void printLast();
    /// To be called behind the last.
    void finish();

private:
    QDomDocument *_document;
    QDomElement _list;
    int _depth;
    int _count = 0;
    QString _text;
};

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_PRINTER_H
