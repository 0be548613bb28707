#include "PackingReader.h"

#include "PackedElements.h"

#include <QDomDocument>
#include <QString>
#include <QXmlContentHandler>
#include <QXmlLexicalHandler>

#include <algorithm>
#include <vector>

QT_WARNING_DISABLE_DEPRECATED

namespace BCFLib {

namespace {

/// So many elements of a file are not packed: as few as nearly all files have, they are read quicker so.
constexpr int few = 200;

/// What a run may take before the next is begun: little against a large file, so that the elements of a
/// run that is being read hardly stand in memory twice.
constexpr int largeRun = 16 * 1024;

} // namespace

/// Stands between a parser and a document that is built, and packs the elements of which there may be many.
///
/// Where runs have to go is looked up in the document as far as it is built.
class PackingReader::Handler : public QXmlContentHandler, public QXmlLexicalHandler
{
public:
    /// Elements are named by their path below the root, as in "Lines/Line".
    Handler(QDomDocument *document, const QStringList &packedElements);

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
    bool startPrefixMapping(const QString &prefix, const QString &uri) override;
    bool endPrefixMapping(const QString &prefix) override;
    bool ignorableWhitespace(const QString &text) override;
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
    };

    bool isPacking() const;
    /// The level of an element of that name in the one that has begun last.
    Level levelOf(const QString &name) const;
    /// Whether an element on that level may be packed.
    bool isListed(const Level &level) const;
    void finishRun();

    QDomDocument *_document;
    /// Paths in sorted order, with a slash behind each name.
    QStringList _packedElements;
    QXmlContentHandler *_content = nullptr;
    QXmlLexicalHandler *_lexical = nullptr;
    std::vector<Level> _levels;
    PackedElements::Packer _packer;
    int _packedDepth = 0;
    /// How many elements there were so far that may be packed.
    int _listedElements = 0;
};

PackingReader::Handler::Handler(QDomDocument *document, const QStringList &packedElements)
    : _document(document)
    , _packedElements(packedElements)
{
    for (QString &path : _packedElements) {
        path += QLatin1Char('/');
    }
    std::sort(_packedElements.begin(), _packedElements.end());
}

void PackingReader::Handler::setBuilder(QXmlContentHandler *builder)
{
    _content = builder;
}

void PackingReader::Handler::setBuilder(QXmlLexicalHandler *builder)
{
    _lexical = builder;
}

bool PackingReader::Handler::isPacking() const
{
    return _packedDepth > 0;
}

PackingReader::Handler::Level PackingReader::Handler::levelOf(const QString &name) const
{
    if (_levels.empty()) {
        return {0, _packedElements.size(), 0};
    }
    const Level &parent = _levels.back();
    const int length = parent.length + name.size() + 1;
    const auto matches = [this, &parent, &name, length](int i) {
        const QString &path = _packedElements.at(i);
        return path.size() >= length && path.at(length - 1) == QLatin1Char('/')
            && path.midRef(parent.length).startsWith(name);
    };
    int first = parent.first;
    while (first != parent.last && !matches(first)) {
        ++first;
    }
    int last = first;
    while (last != parent.last && matches(last)) {
        ++last;
    }
    return {first, last, length};
}

bool PackingReader::Handler::isListed(const Level &level) const
{
    return level.first != level.last && _packedElements.at(level.first).size() == level.length;
}

void PackingReader::Handler::finishRun()
{
    if (_packer.size() == 0) {
        return;
    }
    // The element that has begun last is at each level the last node that there is.
    QDomNode parent = *_document;
    for (std::size_t depth = 0; depth < _levels.size(); ++depth) {
        parent = parent.lastChild();
    }
    parent.appendChild(_packer.takeRun(_document));
}

void PackingReader::Handler::setDocumentLocator(QXmlLocator *locator)
{
    _content->setDocumentLocator(locator);
}

bool PackingReader::Handler::startDocument()
{
    return _content->startDocument();
}

bool PackingReader::Handler::endDocument()
{
    return _content->endDocument();
}

bool PackingReader::Handler::startElement(const QString &namespaceUri, const QString &localName,
                                          const QString &name, const QXmlAttributes &attributes)
{
    if (!isPacking()) {
        const Level level = levelOf(name);
        const bool isPacked = isListed(level) && ++_listedElements > few;
        if (!isPacked || name != _packer.name() || _packer.size() >= largeRun) {
            finishRun();
        }
        if (!isPacked) {
            _levels.push_back(level);
            return _content->startElement(namespaceUri, localName, name, attributes);
        }
    }
    ++_packedDepth;
    _packer.beginElement(name, attributes);
    return true;
}

bool PackingReader::Handler::endElement(const QString &namespaceUri, const QString &localName,
                                        const QString &name)
{
    if (isPacking()) {
        --_packedDepth;
        _packer.endElement();
        return true;
    }
    finishRun();
    _levels.pop_back();
    return _content->endElement(namespaceUri, localName, name);
}

bool PackingReader::Handler::characters(const QString &text)
{
    if (isPacking()) {
        _packer.addText(text);
        return true;
    }
    return _content->characters(text);
}

bool PackingReader::Handler::processingInstruction(const QString &target, const QString &data)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    return _content->processingInstruction(target, data);
}

bool PackingReader::Handler::skippedEntity(const QString &name)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    // A document has no place for those of a document type, which begin with a per cent sign.
    return name.startsWith(QLatin1Char('%')) || _content->skippedEntity(name);
}

bool PackingReader::Handler::startPrefixMapping(const QString &prefix, const QString &uri)
{
    return _content->startPrefixMapping(prefix, uri);
}

bool PackingReader::Handler::endPrefixMapping(const QString &prefix)
{
    return _content->endPrefixMapping(prefix);
}

bool PackingReader::Handler::ignorableWhitespace(const QString &text)
{
    return isPacking() || _content->ignorableWhitespace(text);
}

QString PackingReader::Handler::errorString() const
{
    return _content->errorString();
}

bool PackingReader::Handler::startDTD(const QString &name, const QString &publicId, const QString &systemId)
{
    return _lexical->startDTD(name, publicId, systemId);
}

bool PackingReader::Handler::endDTD()
{
    return _lexical->endDTD();
}

bool PackingReader::Handler::startEntity(const QString &name)
{
    return _lexical->startEntity(name);
}

bool PackingReader::Handler::endEntity(const QString &name)
{
    return _lexical->endEntity(name);
}

bool PackingReader::Handler::startCDATA()
{
    return isPacking() || _lexical->startCDATA();
}

bool PackingReader::Handler::endCDATA()
{
    return isPacking() || _lexical->endCDATA();
}

bool PackingReader::Handler::comment(const QString &text)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    return _lexical->comment(text);
}

PackingReader::PackingReader(QDomDocument *document, const QStringList &packedElements)
    : _handler(std::make_unique<Handler>(document, packedElements))
{
    // As QDomDocument sets up its own: without namespaces and without the blanks between elements.
    setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"), false);
}

PackingReader::~PackingReader() = default;

void PackingReader::setContentHandler(QXmlContentHandler *handler)
{
    _handler->setBuilder(handler);
    QXmlSimpleReader::setContentHandler(_handler.get());
}

void PackingReader::setLexicalHandler(QXmlLexicalHandler *handler)
{
    _handler->setBuilder(handler);
    QXmlSimpleReader::setLexicalHandler(_handler.get());
}

} // namespace BCFLib
