#include "DocumentReference.h"

#include "Tree/Owners.h"
#include "Variant/Maps.h"

namespace BCFLib {

DocumentReference::DocumentReference(const QString &guid, QObject *parent)
    : QObject(parent)
{
    setObjectName(guid);
}

void DocumentReference::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
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
