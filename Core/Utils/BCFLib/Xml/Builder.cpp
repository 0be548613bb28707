#include "Builder.h"

#include "Io/Limits.h"
#include "TextRuns.h"

#include <QString>
#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace BCFLib {
namespace Xml {

/// What the parser calls. Nothing may be thrown through it.
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
        b->run([=] { b->addNode(b->_document->createComment(QString::fromUtf8(text))); });
    }
    static void instruction(void *data, const char *target, const char *text)
    {
        Builder *b = builder(data);
        b->run([=] {
            b->addNode(b->_document->createProcessingInstruction(QString::fromUtf8(target),
                                                                 QString::fromUtf8(text)));
        });
    }
    static void unknownEntity(void *data, const char *name, int /*isParameterEntity*/)
    {
        Builder *b = builder(data);
        b->run([=] { b->addNode(b->_document->createEntityReference(QString::fromUtf8(name))); });
    }
    static void beginCData(void *data)
    {
        builder(data)->run([=] { builder(data)->flushText(); });
    }
    static void endCData(void *data)
    {
        Builder *b = builder(data);
        b->run([=] {
            b->flushRun();
            b->append(b->_document->createCDATASection(QString::fromUtf8(std::exchange(b->_text, {}))));
            b->_isSolid = false;
        });
    }
    static void entityDeclaration(void *data, const char *, int, const char *, int, const char *,
                                  const char *, const char *, const char *)
    {
        builder(data)->refuse();
    }
    static void attributeDeclaration(void *data, const char *, const char *, const char *, const char *, int)
    {
        builder(data)->refuse();
    }
    static void startKept(void *data, const char * /*name*/, const char **attributes)
    {
        builder(data)->run([=] { builder(data)->startKept(attributes); });
    }
    static void endKept(void *data, const char * /*name*/)
    {
        builder(data)->run([=] { builder(data)->endKept(); });
    }
    static void keep(void *data, const char *text, int length)
    {
        builder(data)->run([=] { builder(data)->keep(text, length); });
    }
};

Builder::Builder(QDomDocument *document, const QDomNode &parent, const QStringList &numerousElements)
    : _parser(XML_ParserCreate("UTF-8"), XML_ParserFree)
    , _document(document)
    , _node(parent)
{
    if (_parser == nullptr) {
        throw std::bad_alloc();
    }
    for (const QString &path : numerousElements) {
        _numerous.push_back(path.toUtf8());
    }
    std::sort(_numerous.begin(), _numerous.end());
    XML_SetUserData(_parser.get(), this);
    // As if there were declarations elsewhere, so that an unknown entity is no error.
    XML_UseForeignDTD(_parser.get(), XML_TRUE);
    XML_SetEntityDeclHandler(_parser.get(), Callbacks::entityDeclaration);
    XML_SetAttlistDeclHandler(_parser.get(), Callbacks::attributeDeclaration);
    setHandlers();
}

void Builder::setHandlers()
{
    XML_Parser parser = _parser.get();
    const bool isKeeping = _keptDepth > 0;
    // What has no handler of its own goes to the default one as it stands.
    XML_SetDefaultHandlerExpand(parser, isKeeping ? Callbacks::keep : nullptr);
    XML_SetElementHandler(parser, isKeeping ? Callbacks::startKept : Callbacks::startElement,
                          isKeeping ? Callbacks::endKept : Callbacks::endElement);
    XML_SetCharacterDataHandler(parser, isKeeping ? nullptr : Callbacks::text);
    XML_SetCommentHandler(parser, isKeeping ? nullptr : Callbacks::comment);
    XML_SetProcessingInstructionHandler(parser, isKeeping ? nullptr : Callbacks::instruction);
    XML_SetCdataSectionHandler(parser, isKeeping ? nullptr : Callbacks::beginCData,
                               isKeeping ? nullptr : Callbacks::endCData);
    XML_SetSkippedEntityHandler(parser, isKeeping ? nullptr : Callbacks::unknownEntity);
}

bool Builder::parse(const QByteArray &text, bool isLast)
{
    const XML_Status status = XML_Parse(_parser.get(), text.constData(), text.size(), isLast ? 1 : 0);
    if (_exception != nullptr) {
        std::rethrow_exception(_exception);
    }
    if (status != XML_STATUS_OK && XML_GetErrorCode(_parser.get()) == XML_ERROR_NO_MEMORY) {
        throw std::bad_alloc();
    }
    return status == XML_STATUS_OK && !_isRefused && !holdsTooManyAttributes(text);
}

bool Builder::holdsTooManyAttributes(const QByteArray &text)
{
    _bytes += text.size();
    const qint64 unfinished = _bytes - XML_GetCurrentByteIndex(_parser.get());
    int offset = 0;
    int size = 0;
    const char *context = XML_GetInputContext(_parser.get(), &offset, &size);
    const bool isTag = context != nullptr && offset + 1 < size && context[offset] == '<'
        && context[offset + 1] != '!' && context[offset + 1] != '?';
    if (!isTag || unfinished <= text.size()) {
        _quotes = 0;
    }
    if (!isTag) {
        return false;
    }
    const char *end = text.constData() + text.size();
    const char *begin = end - qMin<qint64>(unfinished, text.size());
    _quotes += std::count(begin, end, '"') + std::count(begin, end, '\'');
    return _quotes > 2 * Limits::xmlAttributes;
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

void Builder::count(qint64 nodes)
{
    _nodes += nodes;
    if (_nodes > Limits::xmlNodes) {
        refuse();
    }
}

/// Counts an element that begins.
void Builder::enter(const char **attributes)
{
    int attributeCount = 0;
    for (; attributes[2 * attributeCount] != nullptr; ++attributeCount) {
    }
    count(1 + attributeCount);
    if (++_depth > Limits::xmlDepth || attributeCount > Limits::xmlAttributes) {
        refuse();
    }
}

void Builder::startElement(const char *name, const char **attributes)
{
    flushText();
    enter(attributes);
    if (_depth > 1) {
        _path += '/';
        _path += name;
    }
    if (isNumerous() && ++_numerousCount > TextRuns::fewElements) {
        if (_run.size() >= TextRuns::largeRun || _runName != QLatin1String(name)) {
            flushRun();
            _runName = QString::fromUtf8(name);
        }
        _keptDepth = 1;
        setHandlers();
        XML_DefaultCurrent(_parser.get());
        return;
    }
    flushRun();
    QDomElement element = _document->createElement(nameOf(name));
    for (const char **attribute = attributes; *attribute != nullptr; attribute += 2) {
        element.setAttribute(nameOf(attribute[0]), QString::fromUtf8(attribute[1]));
    }
    _node = _node.appendChild(element);
    if (_node.isNull()) {
        refuse();
    }
}

void Builder::endElement()
{
    flushText();
    flushRun();
    _node = _node.parentNode();
    leave();
}

void Builder::leave()
{
    --_depth;
    _path.truncate(qMax(0, _path.lastIndexOf('/')));
}

bool Builder::isNumerous() const
{
    // The path begins with a slash.
    return _depth > 1
        && std::binary_search(_numerous.begin(), _numerous.end(),
                              QByteArray::fromRawData(_path.constData() + 1, _path.size() - 1));
}

void Builder::startKept(const char **attributes)
{
    enter(attributes);
    ++_keptDepth;
    XML_DefaultCurrent(_parser.get());
}

void Builder::endKept()
{
    XML_DefaultCurrent(_parser.get());
    if (--_keptDepth > 0) {
        --_depth;
    } else {
        leave();
        setHandlers();
    }
}

void Builder::keep(const char *text, int length)
{
    // A reference to an unknown entity becomes a node of its own.
    count(*text == '&' ? 1 : 0);
    _run.append(text, length);
}

void Builder::addText(const char *text, int length)
{
    int offset = 0;
    int size = 0;
    const char *context = XML_GetInputContext(_parser.get(), &offset, &size);
    // Somebody who writes a blank as a reference means it.
    _isSolid |= context != nullptr && context[offset] == '&';
    _text.append(text, length);
}

void Builder::addNode(const QDomNode &node)
{
    flushText();
    flushRun();
    append(node);
}

void Builder::append(const QDomNode &node)
{
    count(1);
    // Where a host has documents refuse names and texts, a node may not come to be.
    if (_node.appendChild(node).isNull()) {
        refuse();
    }
}

void Builder::flushText()
{
    if (_text.isEmpty()) {
        return;
    }
    const QString text = QString::fromUtf8(std::exchange(_text, {}));
    const bool isBlank = std::all_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
    if (!isBlank || _isSolid) {
        flushRun();
        append(_document->createTextNode(text));
    }
    _isSolid = false;
}

void Builder::flushRun()
{
    if (!_run.isEmpty()) {
        _node.appendChild(TextRuns::create(_document, _runName, QString::fromUtf8(_run)));
        _run.resize(0);
    }
}

/// The name as a text, which all nodes of that name share.
QString Builder::nameOf(const char *utf8)
{
    const size_t length = std::strlen(utf8);
    QString &known = _names[(static_cast<uchar>(utf8[0]) + 7 * length) % _names.size()];
    if (known != QLatin1String(utf8, static_cast<int>(length))) {
        known = QString::fromUtf8(utf8);
    }
    return known;
}

} // namespace Xml
} // namespace BCFLib
