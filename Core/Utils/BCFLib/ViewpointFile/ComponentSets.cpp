#include "Component.h"
#include "Components.h"
#include "Xml/Elements.h"
#include "Xml/Printer.h"

#include <QDomDocument>

#include <utility>
#include <vector>

namespace BCFLib {

namespace {

QString guidOf(const QDomElement &component)
{
    return Xml::attribute(component, QStringLiteral("IfcGuid"));
}

/// Whether the list names a component. It stays as it is, but for packed elements without a guid that the
/// search has passed, which nobody reads.
bool namesComponent(const QDomElement &list)
{
    for (const QDomElement &child : Xml::childElements(list, QStringLiteral("Component"))) {
        if (!guidOf(child).isEmpty()) {
            return true;
        }
    }
    return false;
}

} // namespace

void Components::read(const QDomElement &root)
{
    clear();
    const QDomElement components = root.firstChildElement(QStringLiteral("Components"));
    if (components.isNull()) {
        return;
    }
    readViewSetupHints(components.firstChildElement(QStringLiteral("ViewSetupHints")));
    _selectionComponents = readComponentList(components.firstChildElement(QStringLiteral("Selection")));
    const QDomElement visibility = components.firstChildElement(QStringLiteral("Visibility"));
    const QString defaultVisibility = visibility.attribute(QStringLiteral("DefaultVisibility"));
    // A text that says neither hides nothing.
    if (Tavrin::toBoolean(defaultVisibility) != Tavrin::BooleanUnset) {
        _defaultVisibility = Tavrin::toBool(defaultVisibility);
    }
    _visibilityExceptionComponents =
        readComponentList(visibility.firstChildElement(QStringLiteral("Exceptions")));
    readColoring(components.firstChildElement(QStringLiteral("Coloring")));
}

void Components::readViewSetupHints(const QDomElement &element)
{
    const auto readHint = [&element](const QString &name, Tavrin::Boolean *hint) {
        if (element.hasAttribute(name)) {
            *hint = Tavrin::toBoolean(element.attribute(name));
        }
    };
    readHint(QStringLiteral("SpacesVisible"), &_viewSetupHints.spacesVisible);
    readHint(QStringLiteral("SpaceBoundariesVisible"), &_viewSetupHints.spaceBoundariesVisible);
    readHint(QStringLiteral("OpeningsVisible"), &_viewSetupHints.openingsVisible);
}

QList<Component *> Components::readComponentList(const QDomElement &element)
{
    _arriving.clear();
    for (const QDomElement &child : Xml::childElements(element, QStringLiteral("Component"))) {
        const QString guid = guidOf(child);
        if (!guid.isEmpty()) {
            Component *component = new Component(guid, this);
            component->read(child);
            _arriving.append(component);
        }
    }
    return std::exchange(_arriving, {});
}

void Components::readColoring(const QDomElement &coloring)
{
    struct Group
    {
        QColor color;
        QString name;
        QDomElement element;
    };
    const QString colorName = QStringLiteral("Color");
    std::vector<Group> groups;
    QMap<QString, QDomElement> lastOfColor;
    for (const QDomElement &element : Xml::childElements(coloring, colorName)) {
        if (!element.hasAttribute(colorName) || !namesComponent(element)) {
            continue;
        }
        QString text = element.attribute(colorName);
        if (!text.startsWith(QLatin1Char('#'))) {
            text.prepend(QLatin1Char('#'));
        }
        QColor color;
        color.setNamedColor(text);
        groups.push_back({color, color.name(), element});
        lastOfColor.insert(groups.back().name, element);
    }
    // The last group of a colour replaces the others, which therefore are not made at all.
    for (const Group &group : groups) {
        if (lastOfColor.value(group.name) == group.element) {
            addColoringComponents(group.color, readComponentList(group.element));
        }
    }
}

void Components::write(QDomDocument &document, QDomElement &root) const
{
    QDomElement components = Xml::appendElement(document, root, QStringLiteral("Components"));
    writeViewSetupHints(document, components);
    if (!_selectionComponents.isEmpty()) {
        QDomElement selection = Xml::appendElement(document, components, QStringLiteral("Selection"));
        writeComponentList(document, selection, _selectionComponents);
    }
    QDomElement visibility = Xml::appendElement(document, components, QStringLiteral("Visibility"));
    Xml::setAttribute(visibility, QStringLiteral("DefaultVisibility"), Xml::flagText(_defaultVisibility));
    if (!_visibilityExceptionComponents.isEmpty()) {
        QDomElement exceptions = Xml::appendElement(document, visibility, QStringLiteral("Exceptions"));
        writeComponentList(document, exceptions, _visibilityExceptionComponents);
    }
    if (_coloringComponents.isEmpty()) {
        return;
    }
    QDomElement coloring = Xml::appendElement(document, components, QStringLiteral("Coloring"));
    for (auto group = _coloringComponents.constBegin(); group != _coloringComponents.constEnd(); ++group) {
        QString text = group.key();
        if (text.startsWith(QLatin1Char('#'))) {
            text.remove(0, 1);
        }
        QDomElement element = Xml::appendElement(document, coloring, QStringLiteral("Color"));
        Xml::setAttribute(element, QStringLiteral("Color"), text);
        writeComponentList(document, element, group.value());
    }
}

void Components::writeViewSetupHints(QDomDocument &document, QDomElement &parent) const
{
    if (_viewSetupHints.isEmpty()) {
        return;
    }
    QDomElement element = Xml::appendElement(document, parent, QStringLiteral("ViewSetupHints"));
    const auto writeHint = [&element](const QString &name, Tavrin::Boolean hint) {
        if (hint != Tavrin::BooleanUnset) {
            // A number, "1" or "0", where all other flags of the format are words.
            element.setAttribute(name, static_cast<int>(Tavrin::toBool(hint)));
        }
    };
    writeHint(QStringLiteral("SpacesVisible"), _viewSetupHints.spacesVisible);
    writeHint(QStringLiteral("SpaceBoundariesVisible"), _viewSetupHints.spaceBoundariesVisible);
    writeHint(QStringLiteral("OpeningsVisible"), _viewSetupHints.openingsVisible);
}

void Components::writeComponentList(QDomDocument &document, QDomElement &parent,
                                    const QList<Component *> &list) const
{
    Xml::PrintedList printer(&document, parent);
    for (const Component *component : list) {
        component->write(document, parent);
        printer.printLast();
    }
    printer.finish();
}

void Component::read(const QDomElement &element)
{
    if (element.hasAttribute(QStringLiteral("IfcProjectGuid"))) {
        _ifcProjectId = Xml::attribute(element, QStringLiteral("IfcProjectGuid"));
    }
    Xml::readLeadingText(element, QStringLiteral("OriginatingSystem"), &_originatingSystem);
    Xml::readLeadingText(element, QStringLiteral("AuthoringToolId"), &_authoringToolId);
}

void Component::write(QDomDocument &document, QDomElement &parent) const
{
    QDomElement element = Xml::appendElement(document, parent, QStringLiteral("Component"));
    Xml::setAttribute(element, QStringLiteral("IfcGuid"), guid());
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("OriginatingSystem"), _originatingSystem);
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("AuthoringToolId"), _authoringToolId);
    Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProjectGuid"), _ifcProjectId);
}

} // namespace BCFLib
