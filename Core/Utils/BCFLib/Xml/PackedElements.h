#ifndef BCFLIB_XML_PACKEDELEMENTS_H
#define BCFLIB_XML_PACKEDELEMENTS_H

#include <QByteArray>
#include <QDomDocument>
#include <QDomElement>
#include <QMap>
#include <QString>
#include <QStringList>

class QXmlAttributes;

namespace BCFLib {

/// Elements of one name in a small form, as one node of a document.
///
/// In a QDomDocument an element takes some thirty times the memory of its name and its text. A file can
/// hold hundreds of thousands of elements of a kind, which are read one after the other; until its turn
/// comes each stays packed in a run, which stands among the nodes where the elements stand in the file.
///
/// A run is a processing instruction with the elements' name as its target. It begins with a mark that
/// neither a file nor a host can foretell.
///
/// Of comments and other nodes that are no text, only that they are there is kept.
namespace PackedElements {

/// Whether @p node is a run of elements of that name.
bool isRun(const QDomNode &node, const QString &name);

/// Packs elements as a parser tells of their parts.
class Packer
{
public:
    void beginElement(const QString &name, const QXmlAttributes &attributes);
    void addText(const QString &text);
    void addOtherNode();
    void endElement();

    /// The name of the elements; empty if there are none.
    QString name() const;
    /// The size of the run in bytes.
    int size() const;
    /// Makes a run of the elements, all of which have ended, and starts anew.
    QDomNode takeRun(QDomDocument *document);

private:
    void addNumber(uint number);
    void addString(const QString &text);
    void addName(const QString &name);

    QByteArray _bytes;
    QString _name;
    QMap<QString, uint> _names;
};

/// Makes elements again of a run, in their order.
class Unpacker
{
public:
    explicit Unpacker(const QDomNode &run);

    /// The next element, outside of the document's tree; null behind the last.
    QDomElement next();

private:
    uint number();
    QString string();
    QString elementName();
    QDomElement beginElement();

    QDomDocument _document;
    const QString _data;
    const char *_at;
    const char *_end;
    QStringList _names;
};

} // namespace PackedElements
} // namespace BCFLib

#endif // BCFLIB_XML_PACKEDELEMENTS_H
