#ifndef BCFLIB_XML_TEXTRUNS_H
#define BCFLIB_XML_TEXTRUNS_H

#include <QDomDocument>
#include <QString>

namespace BCFLib {
namespace Xml {

/// Elements of one name that stand in a document as their XML text, in one node.
///
/// As a node an element takes some thirty times the memory of its text, and a file can hold hundreds of
/// thousands that are read, or written, one after the other. The reader keeps them as text until their
/// turn comes, the writer from when they are made.
///
/// A run is a processing instruction whose target is the elements' name with a blank in front, which no
/// file can bring in.
namespace TextRuns {

/// So many elements of a document are nodes in any case: as few as nearly all files have.
constexpr int fewElements = 200;

/// What a run may hold before the next one begins: little, so that what was read is soon given back.
constexpr int largeRun = 16 * 1024;

inline QString target(const QString &name)
{
    return QLatin1Char(' ') + name;
}

inline QDomNode create(QDomDocument *document, const QString &name, const QString &text)
{
    return document->createProcessingInstruction(target(name), text);
}

/// Whether a node is a run of any elements.
inline bool isRun(const QDomNode &node)
{
    return node.isProcessingInstruction() && node.nodeName().startsWith(QLatin1Char(' '));
}

/// Whether a node is a run of elements of that name.
inline bool isRun(const QDomNode &node, const QString &name)
{
    return node.isProcessingInstruction() && node.nodeName() == target(name);
}

} // namespace TextRuns
} // namespace Xml
} // namespace BCFLib

#endif // BCFLIB_XML_TEXTRUNS_H
