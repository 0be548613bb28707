#include "Component.h"
#include "Components.h"
#include "Viewpoint.h"
#include "Xml/Elements.h"

#include <QDomDocument>
#include <QVector>

#include <utility>
#include <vector>

namespace BCFLib {

void Components::read(const QDomElement &root)
{
    clear();
    const QDomElement components = root.firstChildElement(QStringLiteral("Components"));
    if (components.isNull()) {
        return;
    }
    readViewSetupHints(components.firstChildElement(QStringLiteral("ViewSetupHints")));
    replace(_selectionComponents, readMentions(components.firstChildElement(QStringLiteral("Selection"))));
    const QDomElement visibility = components.firstChildElement(QStringLiteral("Visibility"));
    const QString defaultVisibility = visibility.attribute(QStringLiteral("DefaultVisibility"));
    // A text that says neither hides nothing.
    if (Tavrin::toBoolean(defaultVisibility) != Tavrin::BooleanUnset) {
        _defaultVisibility = Tavrin::toBool(defaultVisibility);
    }
    replace(_visibilityExceptionComponents,
            readMentions(visibility.firstChildElement(QStringLiteral("Exceptions"))));
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

/// What a list says, but for components without a guid.
QVector<Components::Mention> Components::readMentions(const QDomElement &list)
{
    QVector<Mention> mentions;
    Xml::takeChildren(list, QStringLiteral("Component"), [&mentions](const QDomElement &element) {
        Mention mention;
        mention.guid = Xml::attribute(element, QStringLiteral("IfcGuid"));
        if (!mention.guid.isEmpty()) {
            mention.ifcProjectId = Xml::attribute(element, QStringLiteral("IfcProjectGuid"));
            mention.originatingSystem = Xml::leadingText(element, QStringLiteral("OriginatingSystem"));
            mention.authoringToolId = Xml::leadingText(element, QStringLiteral("AuthoringToolId"));
            mentions.append(mention);
        }
    });
    return mentions;
}

void Components::readColoring(const QDomElement &coloring)
{
    std::vector<std::pair<QString, QVector<Mention>>> groups;
    QMap<QString, std::size_t> lastOfColor;
    const QString colorName = QStringLiteral("Color");
    Xml::takeChildren(coloring, colorName, [&](const QDomElement &element) {
        QString text = element.attribute(colorName);
        if (!text.startsWith(QLatin1Char('#'))) {
            text.prepend(QLatin1Char('#'));
        }
        const QVector<Mention> mentions = readMentions(element);
        if (element.hasAttribute(colorName) && !mentions.isEmpty()) {
            const QString color = QColor(text).name();
            lastOfColor[color] = groups.size();
            groups.emplace_back(color, mentions);
        }
    });
    // The last group of a colour replaces the others, which therefore are not made at all.
    for (std::size_t i = 0; i < groups.size(); ++i) {
        if (lastOfColor.value(groups[i].first) == i) {
            replaceColor(groups[i].first, groups[i].second);
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

void Component::write(QDomDocument &document, QDomElement &parent) const
{
    QDomElement element = Xml::appendElement(document, parent, QStringLiteral("Component"));
    Xml::setAttribute(element, QStringLiteral("IfcGuid"), guid());
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("OriginatingSystem"), _originatingSystem);
    Xml::appendTextIfNotEmpty(document, element, QStringLiteral("AuthoringToolId"), _authoringToolId);
    Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProjectGuid"), _ifcProjectId);
}

void Components::writeComponentList(QDomDocument &document, QDomElement &parent,
                                    const QList<Component *> &list) const
{
    const auto *viewpoint = qobject_cast<Viewpoint *>(QObject::parent());
    for (const Component *component : list) {
        component->write(document, parent);
        if (viewpoint != nullptr) {
            viewpoint->printFinished(document);
        }
    }
}

} // namespace BCFLib
