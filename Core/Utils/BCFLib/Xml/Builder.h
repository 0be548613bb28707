#ifndef BCFLIB_XML_BUILDER_H
#define BCFLIB_XML_BUILDER_H

#include <QByteArray>
#include <QDomDocument>
#include <QStringList>
#include <array>
#include <exception>
#include <expat.h>
#include <memory>
#include <vector>

namespace BCFLib {
namespace Xml {

/// Builds a document, or a part of one, from XML text that comes in pieces.
///
/// Refuses what passes the bounds of Limits or declares entities or attributes.
class Builder
{
public:
    /// Appends to @p parent, which is @p document or stands in it. Numerous elements are named by their path
    /// below the root.
    Builder(QDomDocument *document, const QDomNode &parent, const QStringList &numerousElements = {});

    /// Parses the next piece of UTF-8. False, once and for all, if it is malformed or refused.
    bool parse(const QByteArray &text, bool isLast);

private:
    friend struct Callbacks;

    void startElement(const char *name, const char **attributes);
    void endElement();
    void startKept(const char **attributes);
    void endKept();
    void keep(const char *text, int length);
    void addText(const char *text, int length);
    void addNode(const QDomNode &node);

    template<class Work>
    void run(const Work &work);
    void refuse();
    void setHandlers();
    void enter(const char **attributes);
    void leave();
    void count(qint64 nodes);
    bool holdsTooManyAttributes(const QByteArray &text);
    bool isNumerous() const;

    void append(const QDomNode &node);
    void flushText();
    void flushRun();
    QString nameOf(const char *utf8);

    std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> _parser;
    QDomDocument *_document;
    /// The element that is open; its depth, and its path below the root.
    QDomNode _node;
    int _depth = 0;
    QByteArray _path;
    /// Text that no node holds yet, and whether any of it is sure to count.
    QByteArray _text;
    bool _isSolid = false;

    std::vector<QByteArray> _numerous;
    int _numerousCount = 0;
    QByteArray _run;
    QString _runName;
    int _keptDepth = 0;

    std::array<QString, 64> _names;
    qint64 _nodes = 0;
    qint64 _bytes = 0;
    /// Quotation marks in a tag that has not ended yet.
    qint64 _quotes = 0;
    bool _isRefused = false;
    std::exception_ptr _exception;
};

} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_BUILDER_H
