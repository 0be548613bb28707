#ifndef BCFLIB_PACKINGREADER_H
#define BCFLIB_PACKINGREADER_H

#include "PackedElements.h"

#include <QString>
#include <QStringList>
#include <QXmlDefaultHandler>
#include <QXmlSimpleReader>

#include <vector>

class QDomDocument;

namespace BCFLib {

QT_WARNING_PUSH
QT_WARNING_DISABLE_DEPRECATED

/// Stands between a parser and a document that is built, and packs the elements of which there may be many.
///
/// Where runs have to go is looked up in the document as far as it is built.
class PackingHandler : public QXmlDefaultHandler
{
public:
    /// Elements are named by their path below the root, as in "Lines/Line".
    PackingHandler(QDomDocument *document, const QStringList &packedElements);

    void setBuilder(QXmlContentHandler *builder);
    void setBuilder(QXmlLexicalHandler *builder);

    void setDocumentLocator(QXmlLocator *locator) override;
    bool startDocument() override;
    bool endDocument() override;
    bool startElement(const QString &namespaceUri, const QString &localName, const QString &name,
                      const QXmlAttributes &attributes) override;
    bool endElement(const QString &namespaceUri, const QString &localName, const QString &name) override;
    bool characters(const QString &text) override;
    bool processingInstruction(const QString &target, const QString &data) override;
    bool skippedEntity(const QString &name) override;
    QString errorString() const override;

    bool startDTD(const QString &name, const QString &publicId, const QString &systemId) override;
    bool endDTD() override;
    bool startEntity(const QString &name) override;
    bool endEntity(const QString &name) override;
    bool startCDATA() override;
    bool endCDATA() override;
    bool comment(const QString &text) override;

private:
    /// An element that has begun in the document, as a place among the paths of the packed elements.
    struct Level
    {
        /// The paths that begin with its own: from the first on, up to the last that isn't one any more.
        int first;
        int last;
        /// The length of its path.
        int length;
        /// How many children that may be packed it has so far.
        int listedChildren;
    };

    bool isPacking() const;
    /// The level of an element of that name in the one that has begun last.
    Level level(const QString &name) const;
    bool isOneOfMany(const Level &level);
    void finishRun();

    QDomDocument *_document;
    /// Paths in sorted order, with a slash behind each name.
    QStringList _packedElements;
    QXmlContentHandler *_content = nullptr;
    QXmlLexicalHandler *_lexical = nullptr;
    std::vector<Level> _levels;
    PackedElements::Packer _packer;
    int _packedDepth = 0;
};

/// The parser that QDomDocument::setContent() uses by itself, with a PackingHandler behind it.
class PackingReader : public QXmlSimpleReader
{
public:
    PackingReader(QDomDocument *document, const QStringList &packedElements);

    void setContentHandler(QXmlContentHandler *handler) override;
    void setLexicalHandler(QXmlLexicalHandler *handler) override;

private:
    PackingHandler _handler;
};

QT_WARNING_POP

} // namespace BCFLib

#endif // BCFLIB_PACKINGREADER_H
