#include "BimSnippet.h"

#include "Tree/Owners.h"

#include <QVariantMap>

namespace BCFLib {

BimSnippet::BimSnippet(QObject *parent)
    : QObject(parent)
{
}

BimSnippet::~BimSnippet() = default;

void BimSnippet::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

QString BimSnippet::snippetType() const
{
    return _snippetType;
}

void BimSnippet::setSnippetType(const QString &snippetType)
{
    _snippetType = snippetType;
}

bool BimSnippet::isExternal() const
{
    return _isExternal;
}

void BimSnippet::setIsExternal(bool isExternal)
{
    _isExternal = isExternal;
}

QString BimSnippet::reference() const
{
    return _reference;
}

void BimSnippet::setReference(const QString &reference)
{
    _reference = reference;
}

QString BimSnippet::referenceSchema() const
{
    return _referenceSchema;
}

void BimSnippet::setReferenceSchema(const QString &referenceSchema)
{
    _referenceSchema = referenceSchema;
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
