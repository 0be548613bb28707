#pragma once

#include "BCFLibExport.h"

#include <QObject>
#include <QString>
#include <QVariant>

namespace BCFLib {

/// A document that a topic refers to, as text: the document itself is neither taken out of an
/// archive nor put into one, whatever isExternal() says.
///
/// Made by Topic::addDocumentReference() or by a load; owned by its topic.
class BCFLIB_EXPORT DocumentReference : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool _isExternal READ isExternal WRITE setIsExternal)
    Q_PROPERTY(QString _referencedDocument READ referencedDocument WRITE setReferencedDocument)
    Q_PROPERTY(QString _description READ description WRITE setDescription)

public:
    /// The identifier, which is the object name; it may be empty.
    QString guid() const { return objectName(); }
    void setGuid(const QString &guid) { setObjectName(guid); }

    /// Whether the document lies outside the archive; false until it is set otherwise.
    bool isExternal() const { return _isExternal; }
    void setIsExternal(bool isExternal) { _isExternal = isExternal; }

    /// Name, path or address of the document.
    QString referencedDocument() const { return _referencedDocument; }
    void setReferencedDocument(const QString &referencedDocument)
    {
        _referencedDocument = referencedDocument;
    }

    /// Text for people.
    QString description() const { return _description; }
    void setDescription(const QString &description) { _description = description; }

    /// A map with "guid" and "is_external", and with "referenced_document" and "description" if they are
    /// not empty.
    QVariant toQVariant() const;
    /// Overwrites every field but the guid, which the variant form does not give back.
    void fromQVariant(const QVariant &variant);

protected:
    /// For Topic::addDocumentReference().
    DocumentReference(const QString &guid, QObject *parent);

private:
    friend class Topic;

    void childEvent(QChildEvent *event) override;

    bool _isExternal = false;
    QString _referencedDocument;
    QString _description;
};

} // namespace BCFLib
