#include "Components.h"

#include "Component.h"
#include "XmlElements.h"
#include "XmlPrinter.h"

#include <QChildEvent>
#include <QDomDocument>
#include <QVariantMap>

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

Components::Components(QObject *parent)
    : QObject(parent)
{
}

Components::~Components() = default;

QList<Component *> Components::getSelectionComponents()
{
    return _selectionComponents;
}

void Components::setSelectionComponents(const QStringList &guids)
{
    deleteAll(std::exchange(_selectionComponents, {}));
    _selectionComponents = guidListToComponentList(guids);
}

bool Components::getDefaultVisibility() const
{
    return _defaultVisibility;
}

void Components::setDefaultVisibility(bool defaultVisibility)
{
    _defaultVisibility = defaultVisibility;
}

QList<Component *> Components::getVisibilityExceptionComponents()
{
    return _visibilityExceptionComponents;
}

void Components::setVisibilityExceptionComponents(const QStringList &guids)
{
    deleteAll(std::exchange(_visibilityExceptionComponents, {}));
    _visibilityExceptionComponents = guidListToComponentList(guids);
}

ViewSetupHints Components::getViewSetupHints() const
{
    return _viewSetupHints;
}

void Components::setViewSetupHints(const ViewSetupHints &viewSetupHints)
{
    _viewSetupHints = viewSetupHints;
}

void Components::addColoringComponents(const QColor &color, const QStringList &guids)
{
    addColoringComponents(color, guidListToComponentList(guids));
}

void Components::addColoringComponents(const QColor &color, const QList<Component *> &list)
{
    // The new list stands before the old components go, so that none is deleted unseen on that.
    deleteAll(std::exchange(_coloringComponents[color.name()], list));
}

void Components::removeColoringComponents()
{
    QList<Component *> doomed;
    for (const QList<Component *> &group : qAsConst(_coloringComponents)) {
        doomed.append(group);
    }
    _coloringComponents.clear();
    deleteAll(doomed);
}

QList<Component *> Components::guidListToComponentList(const QStringList &guids)
{
    _arriving.clear();
    for (const QString &guid : guids) {
        _arriving.append(new Component(guid, this));
    }
    return std::exchange(_arriving, {});
}

void Components::deleteAll(const QList<Component *> &list)
{
    if (list.isEmpty()) {
        return;
    }
    for (Component *component : list) {
        _doomed.insert(component);
    }
    // In the order of the children: an object looks for each child that goes from the first one on.
    const QObjectList all = children();
    for (QObject *child : all) {
        if (_doomed.contains(child)) {
            delete child;
        }
    }
    // What is left a host has hung elsewhere.
    while (!_doomed.isEmpty()) {
        delete *_doomed.constBegin();
    }
}

void Components::forget(Component *component)
{
    if (_doomed.remove(component)) {
        return;
    }
    _arriving.removeOne(component);
    _selectionComponents.removeOne(component);
    _visibilityExceptionComponents.removeOne(component);
    for (QList<Component *> &group : _coloringComponents) {
        group.removeOne(component);
    }
}

void Components::childEvent(QChildEvent *event)
{
    // A component that is destroyed is none any more when this is told.
    _holdsStrangers |= event->removed() && qobject_cast<Component *>(event->child()) != nullptr;
}

bool Components::holdsOnlyComponents() const
{
    int count = _selectionComponents.size() + _visibilityExceptionComponents.size();
    for (const QList<Component *> &group : _coloringComponents) {
        count += group.size();
    }
    return !_holdsStrangers && count == children().size();
}

void Components::clear()
{
    _viewSetupHints = ViewSetupHints();
    _defaultVisibility = true;
    QList<Component *> doomed = std::exchange(_selectionComponents, {});
    doomed.append(std::exchange(_visibilityExceptionComponents, {}));
    for (const QList<Component *> &group : qAsConst(_coloringComponents)) {
        doomed.append(group);
    }
    _coloringComponents.clear();
    deleteAll(doomed);
}

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
    XmlPrinter::List printer(&document, parent);
    for (const Component *component : list) {
        component->write(document, parent);
        printer.printLast();
    }
    printer.finish();
}

QVariant Components::toQVariant() const
{
    QVariantMap map;
    if (!_viewSetupHints.isEmpty()) {
        map.insert(QStringLiteral("view_setup_hints"), _viewSetupHints.toQVariant());
    }
    if (!_visibilityExceptionComponents.isEmpty()) {
        map.insert(QStringLiteral("visibility"),
                   QVariantMap{{QStringLiteral("default_visibility"), _defaultVisibility},
                               {QStringLiteral("exceptions"),
                                componentListToVariant(_visibilityExceptionComponents)}});
    }
    if (!_selectionComponents.isEmpty()) {
        map.insert(QStringLiteral("selection"), componentListToVariant(_selectionComponents));
    }
    QVariantList coloring;
    for (auto group = _coloringComponents.constBegin(); group != _coloringComponents.constEnd(); ++group) {
        coloring.append(QVariantMap{{QStringLiteral("color"), group.key()},
                                    {QStringLiteral("components"), componentListToVariant(group.value())}});
    }
    if (!coloring.isEmpty()) {
        map.insert(QStringLiteral("coloring"), coloring);
    }
    return map;
}

void Components::fromQVariant(const QVariant &variant)
{
    clear();
    const QVariantMap map = variant.toMap();
    const QVariantMap visibility = map.value(QStringLiteral("visibility")).toMap();
    if (visibility.contains(QStringLiteral("view_setup_hints"))) {
        _viewSetupHints.fromQVariant(visibility.value(QStringLiteral("view_setup_hints")));
    }
    _defaultVisibility = visibility.value(QStringLiteral("default_visibility"), true).toBool();
    _visibilityExceptionComponents = variantToComponentList(visibility.value(QStringLiteral("exceptions")));
    _selectionComponents = variantToComponentList(map.value(QStringLiteral("selection")));
    // A map from colour to components, not the list of groups that toQVariant() gives.
    const QVariantMap coloring = map.value(QStringLiteral("coloring")).toMap();
    for (auto group = coloring.constBegin(); group != coloring.constEnd(); ++group) {
        const QList<Component *> list = variantToComponentList(group.value());
        if (!list.isEmpty()) {
            _coloringComponents.insert(group.key(), list);
        }
    }
}

QList<QVariant> Components::componentListToVariant(const QList<Component *> &list) const
{
    QVariantList forms;
    forms.reserve(list.size());
    for (const Component *component : list) {
        forms.append(component->toQVariant());
    }
    return forms;
}

QList<Component *> Components::variantToComponentList(const QVariant &value)
{
    _arriving.clear();
    for (const QVariant &form : value.toList()) {
        const QVariantMap map = form.toMap();
        if (map.contains(QStringLiteral("ifc_guid"))) {
            Component *component = new Component(map.value(QStringLiteral("ifc_guid")).toString(), this);
            component->fromQVariant(map);
            _arriving.append(component);
        }
    }
    return std::exchange(_arriving, {});
}

} // namespace BCFLib
