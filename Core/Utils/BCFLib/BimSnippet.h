#pragma once

#include "BCFLibExport.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace BCFLib {

/// A piece of machine-readable data that a topic points to, as text: the snippet itself is neither
/// taken out of an archive nor put into one.
///
/// Made by Topic::addBimSnippet() or by a load; owned by its topic. It has no guid.
class BCFLIB_EXPORT BimSnippet : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString _snippetType READ snippetType WRITE setSnippetType)
    Q_PROPERTY(bool _isExternal READ isExternal WRITE setIsExternal)
    Q_PROPERTY(QString _reference READ reference WRITE setReference)
    Q_PROPERTY(QString _referenceSchema READ referenceSchema WRITE setReferenceSchema)

public:
    /// Kind of snippet, free text.
    QString snippetType() const { return _snippetType; }
    void setSnippetType(const QString &snippetType) { _snippetType = snippetType; }

    /// Whether the snippet lies outside the archive; false until it is set otherwise.
    bool isExternal() const { return _isExternal; }
    void setIsExternal(bool isExternal) { _isExternal = isExternal; }

    /// Name, path or address of the snippet.
    QString reference() const { return _reference; }
    void setReference(const QString &reference) { _reference = reference; }

    /// Schema that the snippet follows.
    QString referenceSchema() const { return _referenceSchema; }
    void setReferenceSchema(const QString &referenceSchema) { _referenceSchema = referenceSchema; }

    /// A map with the keys "snippet_type", "is_external", "reference" and "reference_schema".
    QVariant toQVariant() const;
    /// Overwrites every field; a missing key gives the field's default.
    void fromQVariant(const QVariant &variant);

protected:
    /// For Topic::addBimSnippet().
    explicit BimSnippet(QObject *parent);

private:
    friend class Topic;

    void childEvent(QChildEvent *event) override;

    QString _snippetType;
    bool _isExternal = false;
    QString _reference;
    QString _referenceSchema;
};

} // namespace BCFLib
