#include "BCF_2_0_Viewpoint.h"

#include "Components.h"
#include "XmlElements.h"
#include "XmlPrinter.h"

#include <QChildEvent>
#include <QDomDocument>
#include <QVariantMap>
#include <log4cplus/loggingmacros.h>

#include <algorithm>
#include <typeinfo>
#include <utility>
#include <vector>

namespace BCF_2_0_Lib {

namespace Xml = BCFLib::Xml;

namespace {

Tavrin::Boolean readMark(const QDomElement &element, const QString &name)
{
    if (!element.hasAttribute(name)) {
        return Tavrin::BooleanUnset;
    }
    return Tavrin::toBoolean(element.attribute(name) == QLatin1String("true"));
}

void writeMark(QDomElement &element, const QString &name, Tavrin::Boolean mark)
{
    if (mark != Tavrin::BooleanUnset) {
        Xml::setAttribute(element, name, Xml::flagText(mark == Tavrin::BooleanTrue));
    }
}

QString guidOf(const QVariantMap &form)
{
    return form.value(QStringLiteral("ifc_guid")).toString();
}

/// The forms of a list that name a component.
QList<QVariantMap> namedForms(const QVariant &list)
{
    QList<QVariantMap> forms;
    for (const QVariant &value : list.toList()) {
        const QVariantMap form = value.toMap();
        if (!guidOf(form).isEmpty()) {
            forms.append(form);
        }
    }
    return forms;
}

/// What an element of the file tells of a component.
struct Mention
{
    QString guid;
    Tavrin::Boolean isSelected;
    Tavrin::Boolean isVisible;
    QString color;
    QString ifcProjectId;
    QString originatingSystem;
    QString authoringToolId;
    bool isSuperseded = false;
};

/// Where a mention stands among the others.
struct SortKey
{
    SortKey(const QString &guid, std::size_t mentionIndex)
        : index(mentionIndex)
    {
        for (int i = 0; i < 4; ++i) {
            head = head << 16 | (i < guid.size() ? guid.at(i).unicode() : 0);
        }
    }

    /// The guid's first four units, which tell most guids apart without a look at the texts.
    quint64 head = 0;
    std::size_t index;
};

std::vector<Mention> readMentions(const QDomElement &components)
{
    std::vector<Mention> mentions;
    for (const QDomElement &element : Xml::childElements(components, QStringLiteral("Component"))) {
        Mention mention{Xml::attribute(element, QStringLiteral("IfcGuid")),
                        readMark(element, QStringLiteral("Selected")),
                        readMark(element, QStringLiteral("Visible")),
                        Xml::attribute(element, QStringLiteral("Color")),
                        Xml::attribute(element, QStringLiteral("IfcProjectGuid")),
                        QString(),
                        QString()};
        if (!mention.guid.isEmpty()) {
            Xml::readLeadingText(element, QStringLiteral("OriginatingSystem"), &mention.originatingSystem);
            Xml::readLeadingText(element, QStringLiteral("AuthoringToolId"), &mention.authoringToolId);
            mentions.push_back(std::move(mention));
        }
    }
    return mentions;
}

/// The mentions in the order of their guids, those of one guid in the order of the file.
std::vector<SortKey> sortedByGuid(const std::vector<Mention> &mentions)
{
    std::vector<SortKey> keys;
    keys.reserve(mentions.size());
    for (const Mention &mention : mentions) {
        keys.emplace_back(mention.guid, keys.size());
    }
    std::sort(keys.begin(), keys.end(), [&mentions](const SortKey &one, const SortKey &other) {
        if (one.head != other.head) {
            return one.head < other.head;
        }
        const int order = mentions[one.index].guid.compare(mentions[other.index].guid);
        return order != 0 ? order < 0 : one.index < other.index;
    });
    return keys;
}

} // namespace

Viewpoint::Viewpoint(const QString &guid, BCFLib::Topic *topic)
    : BCFLib::Viewpoint(guid, topic)
{
}

Viewpoint::~Viewpoint() = default;

Component *Viewpoint::addComponent(const QString &guid)
{
    if (guid.isEmpty()) {
        LOG4CPLUS_ERROR(_logger, LOG4CPLUS_TEXT("To add component with empty guid is not allowed"));
    }
    delete _components.value(guid);
    Component *component = new Component(guid, this);
    _components.insert(guid, component);
    return component;
}

Component *Viewpoint::getComponent(const QString &guid) const
{
    return _components.value(guid);
}

QList<Component *> Viewpoint::components() const
{
    return _components.values();
}

void Viewpoint::forget(Component *component)
{
    // The key is the guid under which it was added, which need not be its guid any more.
    auto entry = _components.find(component->guid());
    if (entry == _components.end() || entry.value() != component) {
        entry = std::find(_components.begin(), _components.end(), component);
    }
    if (entry != _components.end()) {
        _components.erase(entry);
    }
}

void Viewpoint::childEvent(QChildEvent *event)
{
    // A component that is destroyed is none any more when this is told.
    _holdsStrangers |= event->removed() && qobject_cast<Component *>(event->child()) != nullptr;
}

bool Viewpoint::holdsOnlyComponents() const
{
    // One more child is the Components object, which stays empty in this class.
    const QObject *sets = findChild<BCFLib::Components *>(QString(), Qt::FindDirectChildrenOnly);
    return !_holdsStrangers && sets != nullptr && sets->children().isEmpty()
        && children().size() == _components.size() + 1;
}

void Viewpoint::readComponents(QDomElement &root)
{
    std::vector<Mention> mentions = readMentions(root.firstChildElement(QStringLiteral("Components")));
    // Of several with one guid only the last is made: to take the others away again takes a search for each.
    const std::vector<SortKey> sorted = sortedByGuid(mentions);
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        Mention &earlier = mentions[sorted[i - 1].index];
        earlier.isSuperseded =
            sorted[i - 1].head == sorted[i].head && earlier.guid == mentions[sorted[i].index].guid;
    }
    for (const Mention &mention : mentions) {
        if (!mention.isSuperseded) {
            Component *component = addComponent(mention.guid);
            component->setSelected(mention.isSelected);
            component->setVisible(mention.isVisible);
            component->setColor(mention.color);
            component->setIfcProjectId(mention.ifcProjectId);
            component->setOriginatingSystem(mention.originatingSystem);
            component->setAuthoringToolId(mention.authoringToolId);
        }
    }
}

void Viewpoint::writeComponents(QDomDocument &document, QDomElement &root)
{
    if (_components.isEmpty()) {
        return;
    }
    QDomElement components = Xml::appendElement(document, root, QStringLiteral("Components"));
    // A class of the host may look into the document.
    const bool isOwn = typeid(*this) == typeid(Viewpoint);
    BCFLib::XmlPrinter::List printer(&document, components);
    for (const Component *component : qAsConst(_components)) {
        component->write(document, components);
        QDomElement element = components.lastChildElement();
        writeMark(element, QStringLiteral("Selected"), component->selected());
        writeMark(element, QStringLiteral("Visible"), component->visible());
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("Color"), component->color());
        if (isOwn) {
            printer.printLast();
        }
    }
    printer.finish();
}

QMap<QString, QVariant> Viewpoint::componentsToQVariant() const
{
    QVariantList shown;
    QVariantList hidden;
    QVariantList selected;
    QMap<QString, QVariantList> groups;
    for (const Component *component : qAsConst(_components)) {
        const QVariant form = component->toQVariant();
        if (component->selected() == Tavrin::BooleanTrue) {
            selected.append(form);
        }
        (component->visible() == Tavrin::BooleanTrue ? shown : hidden).append(form);
        if (!component->color().isEmpty()) {
            groups[component->color()].append(form);
        }
    }
    // The longer list is the one that is written, on a tie the hidden one. What stands in the other is
    // in the form only as far as it is selected or coloured.
    const bool defaultVisibility = shown.size() <= hidden.size();
    QVariantMap map;
    map.insert(QStringLiteral("visibility"),
               QVariantMap{{QStringLiteral("default_visibility"), defaultVisibility},
                           {QStringLiteral("exceptions"), defaultVisibility ? hidden : shown}});
    if (!selected.isEmpty()) {
        map.insert(QStringLiteral("selection"), selected);
    }
    QVariantList coloring;
    for (auto group = groups.constBegin(); group != groups.constEnd(); ++group) {
        const bool hasMark = group.key().startsWith(QLatin1Char('#'));
        const QString color = hasMark ? group.key() : QLatin1Char('#') + group.key();
        coloring.append(
            QVariantMap{{QStringLiteral("color"), color}, {QStringLiteral("components"), group.value()}});
    }
    if (!coloring.isEmpty()) {
        map.insert(QStringLiteral("coloring"), coloring);
    }
    return map;
}

void Viewpoint::componentsFromQVariant(const QMap<QString, QVariant> &map)
{
    const QVariantMap visibility = map.value(QStringLiteral("visibility")).toMap();
    const bool defaultVisibility = visibility.value(QStringLiteral("default_visibility")).toBool();
    for (const QVariantMap &form : namedForms(visibility.value(QStringLiteral("exceptions")))) {
        getOrCreateComponent(form)->setVisible(Tavrin::toBoolean(!defaultVisibility));
    }
    for (const QVariantMap &form : namedForms(map.value(QStringLiteral("selection")))) {
        getOrCreateComponent(form)->setSelected(Tavrin::BooleanTrue);
    }
    for (const QVariant &value : map.value(QStringLiteral("coloring")).toList()) {
        const QVariantMap group = value.toMap();
        QString color = group.value(QStringLiteral("color")).toString();
        if (color.startsWith(QLatin1Char('#'))) {
            color.remove(0, 1);
        }
        for (const QVariantMap &form : namedForms(group.value(QStringLiteral("components")))) {
            getOrCreateComponent(form)->setColor(color);
        }
    }
}

Component *Viewpoint::getOrCreateComponent(const QMap<QString, QVariant> &map)
{
    Component *component = getComponent(guidOf(map));
    if (component == nullptr) {
        component = addComponent(guidOf(map));
        component->fromQVariant(map);
    }
    return component;
}

} // namespace BCF_2_0_Lib
