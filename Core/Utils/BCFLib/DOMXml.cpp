#include "DOMXml.h"

#include "Xml/Elements.h"
#include "Xml/Text.h"

#include <Core/Utils/Utility/Vec3dVariant.h>
#include <QDomDocument>

namespace Tavrin {

int DOMXml::numberPrecision()
{
    return 16;
}

void DOMXml::AddNumberElement(QDomDocument &document, QDomElement &parent, const QString &name, double value)
{
    BCFLib::Xml::appendText(document, parent, name, QString::number(value, 'e', numberPrecision()));
}

QDomElement DOMXml::createTextElement(QDomDocument &document, const QString &name, const QString &text)
{
    QDomElement element = document.createElement(name);
    element.appendChild(document.createTextNode(BCFLib::Xml::writableText(text)));
    return element;
}

QDomElement DOMXml::createAttributeElement(QDomDocument &document, const QString &name,
                                           const QString &attributeName, const QString &attributeValue)
{
    QDomElement element = document.createElement(name);
    element.setAttribute(attributeName, BCFLib::Xml::writableText(attributeValue));
    return element;
}

QDomElement DOMXml::createPointElement(QDomDocument &document, const QString &name, const osg::Vec3d &point)
{
    QDomElement element = document.createElement(name);
    AddNumberElement(document, element, QStringLiteral("X"), point.x());
    AddNumberElement(document, element, QStringLiteral("Y"), point.y());
    AddNumberElement(document, element, QStringLiteral("Z"), point.z());
    return element;
}

QDomElement DOMXml::createPointElement(QDomDocument &document, const QString &name,
                                       const QMap<QString, QVariant> &point)
{
    return createPointElement(document, name, Vec3dFromQVariant(point));
}

} // namespace Tavrin
