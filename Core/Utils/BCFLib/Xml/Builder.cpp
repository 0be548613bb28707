#include "Builder.h"

#include "Io/Limits.h"
#include "Io/ReadBudget.h"
#include "Text.h"

#include <QString>
#include <algorithm>
#include <new>
#include <utility>

namespace BCFLib::Xml {

/// What the parser calls. No exception may leave them, as expat is C.
struct Callbacks
{
    static Builder *builder(void *data) { return static_cast<Builder *>(data); }

    static void startElement(void *data, const char *name, const char **attributes)
    {
        builder(data)->run([=] { builder(data)->startElement(name, attributes); });
    }
    static void endElement(void *data, const char * /*name*/)
    {
        builder(data)->run([=] { builder(data)->endElement(); });
    }
    static void text(void *data, const char *text, int length)
    {
        builder(data)->run([=] { builder(data)->addText(text, length); });
    }
    static void comment(void *data, const char *text)
    {
        Builder *b = builder(data);
        b->run([=] { b->addNode(b->_document->createComment(fromUtf8(text))); });
    }
    static void instruction(void *data, const char *target, const char *text)
    {
        Builder *b = builder(data);
        b->run([=] {
            b->addNode(b->_document->createProcessingInstruction(QString::fromUtf8(target), fromUtf8(text)));
        });
    }
    static void unknownEntity(void *data, const char *name, int isOfDocumentType)
    {
        Builder *b = builder(data);
        if (isOfDocumentType != 0) {
            return;
        }
        b->run([=] { b->addNode(b->_document->createEntityReference(QString::fromUtf8(name))); });
    }
    static void beginCData(void *data)
    {
        builder(data)->run([=] { builder(data)->flushText(); });
    }
    static void endCData(void *data)
    {
        builder(data)->run([=] { builder(data)->endCData(); });
    }
    static void entityDeclaration(void *data, const char *, int, const char *, int, const char *,
                                  const char *, const char *, const char *)
    {
        builder(data)->refuse();
    }
    static void attributeDeclaration(void *data, const char *, const char *, const char *,
                                     const char *defaultValue, int)
    {
        if (defaultValue != nullptr) {
            builder(data)->refuse();
        }
    }
};

Builder::Builder(QDomDocument *document, NodeCount::Runs runs, ReadBudget *budget)
    : _parser(XML_ParserCreate("UTF-8"), XML_ParserFree)
    , _document(document)
    , _node(*document)
    , _count(runs, budget)
{
    XML_Parser parser = _parser.get();
    if (parser == nullptr) {
        throw std::bad_alloc();
    }
    XML_SetUserData(parser, this);
    XML_SetElementHandler(parser, Callbacks::startElement, Callbacks::endElement);
    XML_SetCharacterDataHandler(parser, Callbacks::text);
    XML_SetCdataSectionHandler(parser, Callbacks::beginCData, Callbacks::endCData);
    XML_SetCommentHandler(parser, Callbacks::comment);
    XML_SetProcessingInstructionHandler(parser, Callbacks::instruction);
    XML_SetSkippedEntityHandler(parser, Callbacks::unknownEntity);
    // Pretend that there is an external DTD, so that an undeclared entity is not an error.
    XML_UseForeignDTD(parser, XML_TRUE);
    XML_SetEntityDeclHandler(parser, Callbacks::entityDeclaration);
    XML_SetAttlistDeclHandler(parser, Callbacks::attributeDeclaration);
}

bool Builder::parse(std::string_view text, bool isLast)
{
    if (_hasEnded) {
        return true;
    }
    XML_Parser parser = _parser.get();
    const XML_Status status = XML_Parse(parser, text.data(), static_cast<int>(text.size()), isLast ? 1 : 0);
    if (_exception != nullptr) {
        std::rethrow_exception(_exception);
    }
    if (status != XML_STATUS_OK && XML_GetErrorCode(parser) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    _hasEnded = status != XML_STATUS_OK && isUnreadableAfterRoot();
    _bytes += static_cast<qint64>(text.size());
    const bool isTooLong = _bytes - XML_GetCurrentByteIndex(parser) > Limits::xmlMarkupBytes;
    return _hasEnded || (status == XML_STATUS_OK && !_isRefused && !isTooLong);
}

/// Whether parsing failed at U+FFFD after the root: a character that the decoder has replaced, such as the
/// NULs or the Ctrl-Z that some tools leave there. Nothing that follows is part of the document.
bool Builder::isUnreadableAfterRoot() const
{
    int offset = 0;
    int size = 0;
    const char *context = XML_GetInputContext(_parser.get(), &offset, &size);
    if (XML_GetErrorCode(_parser.get()) != XML_ERROR_INVALID_TOKEN || !_node.isDocument()
        || _document->documentElement().isNull() || context == nullptr || offset == 0) {
        return false;
    }
    const std::string_view place(context + offset, static_cast<std::size_t>(size - offset));
    const bool followsMarkup =
        std::string_view("> \t\n\r").find(context[offset - 1]) != std::string_view::npos;
    return followsMarkup && place.substr(0, 3) == "\xEF\xBF\xBD";
}

template<class Work>
void Builder::run(const Work &work)
{
    // The parser may still call after it was stopped.
    if (_isRefused || _exception != nullptr) {
        return;
    }
    try {
        work();
    } catch (...) {
        _exception = std::current_exception();
        XML_StopParser(_parser.get(), XML_FALSE);
    }
}

void Builder::refuse()
{
    _isRefused = true;
    XML_StopParser(_parser.get(), XML_FALSE);
}

/// Refuses what has become too much.
bool Builder::isRefused()
{
    if (_count.isTooMuch()) {
        refuse();
    }
    return _isRefused;
}

void Builder::startElement(const char *name, const char **attributes)
{
    flushText();
    const bool wasInRun = _count.isInRun();
    _count.beginElement(name, XML_GetSpecifiedAttributeCount(_parser.get()) / 2);
    if (isRefused()) {
        return;
    }
    if (_count.isInRun()) {
        if (!wasInRun && (_run.size() >= ElementRun::largeRun || _run.name() != name)) {
            flushRun();
        }
        _run.beginElement(name, attributes);
        return;
    }
    flushRun();
    QDomElement element = _document->createElement(_names.of(name));
    for (; *attributes != nullptr; attributes += 2) {
        element.setAttribute(_names.of(attributes[0]), fromUtf8(attributes[1]));
    }
    append(element);
    _node = element;
}

void Builder::endElement()
{
    flushText();
    if (_count.isInRun()) {
        _run.endElement();
    } else {
        flushRun();
        _node = _node.parentNode();
    }
    _count.endElement();
}

void Builder::addText(const char *text, int length)
{
    int offset = 0;
    int size = 0;
    const char *context = XML_GetInputContext(_parser.get(), &offset, &size);
    // White space that is written as a reference is meant.
    _keepIfBlank |= context != nullptr && context[offset] == '&';
    _text.append(text, static_cast<std::size_t>(length));
}

void Builder::flushText()
{
    if (_text.empty()) {
        return;
    }
    const QString text = fromUtf8(_text);
    const bool isBlank =
        !_keepIfBlank && std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    if (!isBlank) {
        _count.addText();
    }
    if (!isBlank && _count.isInRun()) {
        _run.addText(_text);
    } else if (!isBlank) {
        flushRun();
        append(_document->createTextNode(text));
    }
    _text.clear();
    _keepIfBlank = false;
}

void Builder::endCData()
{
    if (_count.isInRun()) {
        _run.addText(_text);
    } else {
        addNode(_document->createCDATASection(fromUtf8(std::exchange(_text, {}))));
    }
    _text.clear();
    _keepIfBlank = false;
}

/// Appends a comment or the like.
void Builder::addNode(const QDomNode &node)
{
    flushText();
    _count.addOtherNode();
    if (isRefused()) {
        return;
    }
    if (_count.isInRun()) {
        _run.addOtherNode();
    } else {
        flushRun();
        append(node);
    }
}

void Builder::flushRun()
{
    if (!_run.isEmpty()) {
        _node.appendChild(_run.take(_document));
    }
}

void Builder::append(const QDomNode &node)
{
    // Null where the host has set a QDomImplementation::InvalidDataPolicy that refuses the name or text.
    if (_node.appendChild(node).isNull()) {
        refuse();
    }
}

} // namespace BCFLib::Xml
