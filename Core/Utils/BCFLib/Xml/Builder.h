#pragma once

#include "ElementRun.h"
#include "Names.h"
#include "NodeCount.h"

#include <QDomDocument>
#include <exception>
#include <expat.h>
#include <memory>
#include <string>
#include <string_view>

namespace BCFLib::Xml {

/// Builds a document from XML text that comes in pieces.
///
/// Refuses what passes the bounds of Limits or declares entities or defaults of attributes.
class Builder
{
public:
    /// Appends to @p document, at the cost of @p budget, which may be null.
    Builder(QDomDocument *document, NodeCount::Runs runs, ReadBudget *budget);

    /// Parses the next piece of UTF-8. False, once and for all, if it is malformed or refused.
    bool parse(std::string_view text, bool isLast);

private:
    friend struct Callbacks;

    void startElement(const char *name, const char **attributes);
    void endElement();
    void addText(const char *text, int length);
    void endCData();
    void addNode(const QDomNode &node);

    template<class Work>
    void run(const Work &work);
    void refuse();
    bool isRefused();
    bool isUnreadableAfterRoot() const;

    void append(const QDomNode &node);
    void flushText();
    void flushRun();

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> _parser;
    QDomDocument *_document;
    Names _names;
    /// The element that is open, or the document.
    QDomNode _node;
    /// Text that no node holds yet, and whether it is kept though it may be nothing but white space.
    std::string _text;
    bool _keepIfBlank = false;

    ElementRun _run;
    NodeCount _count;
    qint64 _bytes = 0;
    bool _isRefused = false;
    bool _hasEnded = false;
    std::exception_ptr _exception;
};

} // namespace BCFLib::Xml
