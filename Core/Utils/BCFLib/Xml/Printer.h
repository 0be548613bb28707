#pragma once

#include "NodeCount.h"

#include <QString>
#include <QtGlobal>

class QDomDocument;
class QDomElement;
class QDomNamedNodeMap;
class QDomNode;
class QIODevice;

namespace BCFLib::Xml {

/// Writes a document of elements and texts to an open device as UTF-8, indented by four blanks, with an XML
/// declaration, as QDomNode::save() does, but for two things: attributes come in the order of their names,
/// and other nodes are left out.
///
/// QDomNode::save() itself moves the rest of a text for each character that it escapes, which takes hours
/// for a text of some megabytes of "&", and hands each line to the device on its own.
///
/// A document that will hold many elements should be printed while it is being built, to save memory.
class Printer
{
public:
    /// @p device outlives the printer, which sets it to text mode. Without one nothing is written.
    explicit Printer(QIODevice *device);

    /// Prints what can't change any more, as a sibling follows it, and takes it out of the document.
    void printFinished(const QDomDocument &document);

    /// Prints what is left of the document, which stays as it is. Closes the device where the text passes
    /// what is read of a file, so that the result is not mistaken for a complete file.
    void finish(const QDomDocument &document);

private:
    /// Where a text stands in a document.
    enum class Place { Content, Attribute };

    static const char *escapeAt(const QString &text, int i, Place place);

    void printChildren(QDomNode parent, int depth, bool isFinished);
    void printElement(const QDomElement &element, int depth, bool isFinished);
    void printStartTag(const QDomElement &element, int depth);
    void printAttributes(const QDomNamedNodeMap &attributes);
    void printEscaped(const QString &text, Place place);
    void indent(int depth);
    void flushIfLarge();
    void flush();

    QIODevice *_device;
    QString _text;
    /// So many elements, one in the other, have a start tag in the file already, but no end tag.
    int _openElements = 0;
    /// Whether the node in front was a text.
    bool _isAfterText = false;
    int _calls = 0;

    qint64 _bytes = 0;
    NodeCount _count;
};

} // namespace BCFLib::Xml
