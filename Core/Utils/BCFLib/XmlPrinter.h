#ifndef BCFLIB_XMLPRINTER_H
#define BCFLIB_XMLPRINTER_H

#include <QDomElement>
#include <QString>

class QDomDocument;
class QIODevice;

namespace BCFLib {

/// Turns documents into text.
namespace XmlPrinter {

/// Prints a document of elements and texts to an open device, with an XML declaration; others are left out.
void print(const QDomDocument &document, QIODevice *device);

/// Prints the elements of a long list one by one, as they are appended to it.
///
/// What is printed leaves the document, which never holds more of them than a few, and text takes its place
/// for print() to pass on. For documents that nobody else looks into.
class List
{
public:
    /// @p list stands at its place in the document already.
    List(QDomDocument *document, const QDomElement &list);

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

} // namespace XmlPrinter
} // namespace BCFLib

#endif // BCFLIB_XMLPRINTER_H
