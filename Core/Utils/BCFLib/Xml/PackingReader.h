#ifndef BCFLIB_XML_PACKINGREADER_H
#define BCFLIB_XML_PACKINGREADER_H

#include <QStringList>
#include <QXmlSimpleReader>

#include <memory>

class QDomDocument;

namespace BCFLib {

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/// A parser set up as the one that QDomDocument::setContent() uses by itself, which also packs the elements
/// of which there are many.
///
/// With any reader but its own a document also makes a node for a reference to an unknown entity in an
/// attribute, in front of the element that bears it.
class PackingReader : public QXmlSimpleReader
{
public:
    /// For @p document, which is built. Elements are named by their path below the root, as in "Lines/Line".
    PackingReader(QDomDocument *document, const QStringList &packedElements);
    ~PackingReader() override;

    void setContentHandler(QXmlContentHandler *handler) override;
    void setLexicalHandler(QXmlLexicalHandler *handler) override;

private:
    class Handler;

    const std::unique_ptr<Handler> _handler;
};

QT_WARNING_POP

} // namespace BCFLib

#endif // BCFLIB_XML_PACKINGREADER_H
