#ifndef BCFLIB_XML_BUILDER_H
#define BCFLIB_XML_BUILDER_H

#include "ElementRun.h"
#include "Names.h"

#include <QDomDocument>
#include <exception>
#include <expat.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace BCFLib {

class ReadBudget;

namespace Xml {

/// Builds a document from XML text that comes in pieces.
///
/// Refuses what passes the bounds of Limits or declares entities or attributes.
class Builder
{
public:
    /// Appends to @p document. Numerous elements, which are kept in runs, are named by their path below the
    /// root. Where there is a budget, what comes is taken from it.
    Builder(QDomDocument *document, std::vector<std::string_view> numerousElements, ReadBudget *budget);

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
    void count(qint64 nodes, qint64 cost);
    bool holdsTooManyAttributes(std::string_view text);
    bool isNumerous() const;

    void append(const QDomNode &node);
    void flushText();
    void flushRun();

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> _parser;
    QDomDocument *_document;
    Names _names;
    /// The element that is open, or the document.
    QDomNode _node;
    int _depth = 0;
    /// The names of the open elements below the root, each with a slash in front.
    std::string _path;
    /// Text that no node holds yet, and whether it counts though it may be blank.
    std::string _text;
    bool _isSolid = false;

    std::vector<std::string_view> _numerous;
    int _numerousCount = 0;
    ElementRun _run;
    /// How many elements of the run are open.
    int _runDepth = 0;

    ReadBudget *_budget;
    qint64 _nodes = 0;
    qint64 _bytes = 0;
    /// The values in a tag that has not ended yet.
    qint64 _values = 0;
    /// What the value that has not ended yet began with; NUL between values.
    char _openQuote = '\0';
    bool _isRefused = false;
    std::exception_ptr _exception;
};

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_BUILDER_H
