#include "PackingReader.h"

#include <QDomDocument>

#include <algorithm>

QT_WARNING_DISABLE_DEPRECATED

namespace BCFLib {

namespace {

/// So many elements of a kind are not packed: as few as nearly all files have, they are read quicker so.
constexpr int few = 500;

/// What a run may take before the next is begun: little against a large file, so that the elements of a
/// run that is being read hardly stand in memory twice.
constexpr int largeRun = 16 * 1024;

} // namespace

PackingHandler::PackingHandler(QDomDocument *document, const QStringList &packedElements)
    : _document(document)
    , _packedElements(packedElements)
{
    for (QString &path : _packedElements) {
        path += QLatin1Char('/');
    }
    std::sort(_packedElements.begin(), _packedElements.end());
}

void PackingHandler::setBuilder(QXmlContentHandler *builder)
{
    _content = builder;
}

void PackingHandler::setBuilder(QXmlLexicalHandler *builder)
{
    _lexical = builder;
}

bool PackingHandler::isPacking() const
{
    return _packedDepth > 0;
}

PackingHandler::Level PackingHandler::level(const QString &name) const
{
    if (_levels.empty()) {
        return {0, _packedElements.size(), 0, 0};
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
    return {first, last, length, 0};
}

bool PackingHandler::isOneOfMany(const Level &level)
{
    const bool isListed = level.first != level.last && _packedElements.at(level.first).size() == level.length;
    return isListed && ++_levels.back().listedChildren > few;
}

void PackingHandler::finishRun()
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

void PackingHandler::setDocumentLocator(QXmlLocator *locator)
{
    _content->setDocumentLocator(locator);
}

bool PackingHandler::startDocument()
{
    return _content->startDocument();
}

bool PackingHandler::endDocument()
{
    return _content->endDocument();
}

bool PackingHandler::startElement(const QString &namespaceUri, const QString &localName, const QString &name,
                                  const QXmlAttributes &attributes)
{
    if (!isPacking()) {
        const Level newLevel = level(name);
        const bool isPacked = isOneOfMany(newLevel);
        if (!isPacked || name != _packer.name() || _packer.size() >= largeRun) {
            finishRun();
        }
        if (!isPacked) {
            _levels.push_back(newLevel);
            return _content->startElement(namespaceUri, localName, name, attributes);
        }
    }
    ++_packedDepth;
    _packer.beginElement(name, attributes);
    return true;
}

bool PackingHandler::endElement(const QString &namespaceUri, const QString &localName, const QString &name)
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

bool PackingHandler::characters(const QString &text)
{
    if (isPacking()) {
        _packer.addText(text);
        return true;
    }
    return _content->characters(text);
}

bool PackingHandler::processingInstruction(const QString &target, const QString &data)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    return _content->processingInstruction(target, data);
}

bool PackingHandler::skippedEntity(const QString &name)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    return _content->skippedEntity(name);
}

QString PackingHandler::errorString() const
{
    return _content->errorString();
}

bool PackingHandler::startDTD(const QString &name, const QString &publicId, const QString &systemId)
{
    return _lexical->startDTD(name, publicId, systemId);
}

bool PackingHandler::endDTD()
{
    return _lexical->endDTD();
}

bool PackingHandler::startEntity(const QString &name)
{
    return _lexical->startEntity(name);
}

bool PackingHandler::endEntity(const QString &name)
{
    return _lexical->endEntity(name);
}

bool PackingHandler::startCDATA()
{
    return isPacking() || _lexical->startCDATA();
}

bool PackingHandler::endCDATA()
{
    return isPacking() || _lexical->endCDATA();
}

bool PackingHandler::comment(const QString &text)
{
    if (isPacking()) {
        _packer.addOtherNode();
        return true;
    }
    return _lexical->comment(text);
}

PackingReader::PackingReader(QDomDocument *document, const QStringList &packedElements)
    : _handler(document, packedElements)
{
    // As QDomDocument sets up its own: without namespaces and without the blanks between elements.
    setFeature(QStringLiteral("http://xml.org/sax/features/namespaces"), false);
    setFeature(QStringLiteral("http://xml.org/sax/features/namespace-prefixes"), true);
    setFeature(QStringLiteral("http://trolltech.com/xml/features/report-whitespace-only-CharData"), false);
}

void PackingReader::setContentHandler(QXmlContentHandler *handler)
{
    _handler.setBuilder(handler);
    QXmlSimpleReader::setContentHandler(&_handler);
}

void PackingReader::setLexicalHandler(QXmlLexicalHandler *handler)
{
    _handler.setBuilder(handler);
    QXmlSimpleReader::setLexicalHandler(&_handler);
}

} // namespace BCFLib
