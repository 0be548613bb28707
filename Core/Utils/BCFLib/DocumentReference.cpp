#include "DocumentReference.h"

#include "Tree/Owners.h"
#include "Variant/Maps.h"

namespace BCFLib {

DocumentReference::DocumentReference(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
}

DocumentReference::~DocumentReference() = default;

void DocumentReference::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QString DocumentReference::guid() const
{
    return objectName();
}

void DocumentReference::setGuid(const QString &guid)
{
    setObjectName(guid);
}

bool DocumentReference::isExternal() const
{
    return _isExternal;
}

void DocumentReference::setIsExternal(bool isExternal)
{
    _isExternal = isExternal;
}

QString DocumentReference::referencedDocument() const
{
    return _referencedDocument;
}

void DocumentReference::setReferencedDocument(const QString &referencedDocument)
{
    _referencedDocument = referencedDocument;
}

QString DocumentReference::description() const
{
    return _description;
}

void DocumentReference::setDescription(const QString &description)
{
    _description = description;
}

QVariant DocumentReference::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("guid"), guid());
    Variants::insertIfNotEmpty(map, QStringLiteral("referenced_document"), _referencedDocument);
    Variants::insertIfNotEmpty(map, QStringLiteral("description"), _description);
    map.insert(QStringLiteral("is_external"), _isExternal);
    return map;
}

void DocumentReference::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    _referencedDocument = map.value(QStringLiteral("referenced_document")).toString();
    _description = map.value(QStringLiteral("description")).toString();
    _isExternal = map.value(QStringLiteral("is_external")).toBool();
}

} // namespace BCFLib
