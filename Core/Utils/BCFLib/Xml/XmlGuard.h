#ifndef BCFLIB_XML_XMLGUARD_H
#define BCFLIB_XML_XMLGUARD_H

#include <QString>
#include <QtGlobal>

#include <string>

namespace BCFLib {

/// Looks over the markup of an XML file, piece by piece, before a parser gets it.
///
/// Faster than a parser by far, as it only looks for where markup begins and ends, and takes neither stack
/// nor memory. It says nothing on well-formedness: where a file is malformed the parser stops, and what
/// stands behind that place does no harm.
class XmlGuard
{
public:
    /// Whether the file up to the end of @p text, which is its next piece, keeps to the bounds of Limits and
    /// declares nothing that could grow.
    bool accepts(const QString &text);

private:
    enum class Place { Content, Opening, Tag, EndTag, Quotation, Skipped, DocumentType };

    void scanContent();
    void scanOpening();
    void scanDeclaration();
    void scanTag();
    void scanEndTag();
    void scanQuotation();
    void scanSkipped();
    void scanDocumentType();

    template<class Predicate>
    bool find(const Predicate &isWanted);
    void skipPast(const char *closing);
    void beginQuotation();
    bool mayBecome(const char *markup) const;

    void open();
    void close();
    void count();

    const ushort *_at = nullptr;
    const ushort *_end = nullptr;
    Place _place = Place::Content;
    bool _isHarmless = true;

    /// What stands behind the "<" of a declaration whose kind isn't clear yet.
    std::string _opening;
    /// Where a construct ends that is passed by, and what was seen of it last, each as UTF-16 in one number.
    quint64 _closing = 0;
    quint64 _closingMask = 0;
    quint64 _recent = 0;
    /// What ends the quoted text.
    ushort _quotationMark = 0;
    ushort _lastOfTag = 0;
    int _attributes = 0;
    bool _isInDocumentType = false;
    bool _isInSubset = false;

    int _depth = 0;
    qint64 _nodes = 0;
};

} // namespace BCFLib

#endif // BCFLIB_XML_XMLGUARD_H
