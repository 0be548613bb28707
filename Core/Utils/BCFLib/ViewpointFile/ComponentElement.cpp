#include "Component.h"

#include "Xml/Elements.h"

#include <QDomDocument>

namespace BCFLib {

void Component::write(QDomDocument &document, QDomElement &parent) const
{
    QDomElement element = Xml::appendElement(document, parent, QStringLiteral("Component"));
    Xml::setAttribute(element, QStringLiteral("IfcGuid"), guid());
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("OriginatingSystem"), _originatingSystem);
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("AuthoringToolId"), _authoringToolId);
    Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProjectGuid"), _ifcProjectId);
}

} // namespace BCFLib
