#include "BimSnippet.h"

#include "Tree/Owners.h"

#include <QVariantMap>

namespace BCFLib {

BimSnippet::BimSnippet(QObject *parent)
    : QObject(parent)
{
}

void BimSnippet::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QVariant BimSnippet::toQVariant() const
{
    QVariantMap map;
    map.insert(QStringLiteral("snippet_type"), _snippetType);
    map.insert(QStringLiteral("is_external"), _isExternal);
    map.insert(QStringLiteral("reference"), _reference);
    map.insert(QStringLiteral("reference_schema"), _referenceSchema);
    return map;
}

void BimSnippet::fromQVariant(const QVariant &variant)
{
    const QVariantMap map = variant.toMap();
    _snippetType = map.value(QStringLiteral("snippet_type")).toString();
    _isExternal = map.value(QStringLiteral("is_external")).toBool();
    _reference = map.value(QStringLiteral("reference")).toString();
    _referenceSchema = map.value(QStringLiteral("reference_schema")).toString();
}

} // namespace BCFLib
