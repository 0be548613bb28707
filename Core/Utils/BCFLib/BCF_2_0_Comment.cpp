#include "BCF_2_0_Comment.h"

#include "VariantMap.h"
#include "XmlElements.h"

#include <QDomDocument>

namespace BCF_2_0_Lib {

Comment::Comment(const QString &guid, QObject *parent)
    : BCFLib::Comment(guid, parent)
{
}

Comment::~Comment() = default;

QVariant Comment::toQVariant() const
{
    QVariantMap map = BCFLib::Comment::toQVariant().toMap();
    BCFLib::Variants::insertIfNotEmpty(map, QStringLiteral("verbal_status"), _verbalStatus);
    map.insert(QStringLiteral("status"), _status);
    return map;
}

void Comment::fromQVariant(const QVariant &variant)
{
    BCFLib::Comment::fromQVariant(variant);
    const QVariantMap map = variant.toMap();
    _verbalStatus = map.value(QStringLiteral("verbal_status")).toString();
    _status = map.value(QStringLiteral("status")).toString();
}

QString Comment::verbalStatus() const
{
    return _verbalStatus;
}

void Comment::setVerbalStatus(const QString &verbalStatus)
{
    _verbalStatus = verbalStatus;
}

QString Comment::status() const
{
    return _status;
}

void Comment::setStatus(const QString &status)
{
    _status = status;
}

void Comment::read(const QDomElement &element, QHash<BCFLib::Comment *, QString> &replies)
{
    BCFLib::Comment::read(element, replies);
    _status = BCFLib::Xml::childText(element, QStringLiteral("Status"));
    _verbalStatus = BCFLib::Xml::childText(element, QStringLiteral("VerbalStatus"));
}

void Comment::write(QDomDocument &doc, QDomElement &parent) const
{
    BCFLib::Comment::write(doc, parent);
    QDomElement element = parent.lastChildElement();
    BCFLib::Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("VerbalStatus"), _verbalStatus);
    BCFLib::Xml::appendTextIfNotEmpty(doc, element, QStringLiteral("Status"), _status);
}

} // namespace BCF_2_0_Lib
