#include "BCF_2_0_Viewpoint.h"
#include "Xml/Elements.h"

#include <QDomDocument>

#include <algorithm>
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

/// One Component element as it was read.
struct Mention
{
    QString guid;
    Tavrin::Boolean isSelected;
    Tavrin::Boolean isVisible;
    QString ifcProjectId;
    QString color;
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
    Xml::takeChildren(components, QStringLiteral("Component"), [&](const QDomElement &element) {
        Mention mention{Xml::attribute(element, QStringLiteral("IfcGuid")),
                        readMark(element, QStringLiteral("Selected")),
                        readMark(element, QStringLiteral("Visible")),
                        Xml::attribute(element, QStringLiteral("IfcProjectGuid")),
                        Xml::attribute(element, QStringLiteral("Color")),
                        QString(),
                        QString()};
        if (!mention.guid.isEmpty()) {
            Xml::readLeadingText(element, QStringLiteral("OriginatingSystem"), &mention.originatingSystem);
            Xml::readLeadingText(element, QStringLiteral("AuthoringToolId"), &mention.authoringToolId);
            mentions.push_back(std::move(mention));
        }
    });
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
            component->setIfcProjectId(mention.ifcProjectId);
            component->setColor(mention.color);
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
    for (const Component *component : qAsConst(_components)) {
        QDomElement element = Xml::appendElement(document, components, QStringLiteral("Component"));
        Xml::setAttribute(element, QStringLiteral("IfcGuid"), component->guid());
        writeMark(element, QStringLiteral("Selected"), component->selected());
        writeMark(element, QStringLiteral("Visible"), component->visible());
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("IfcProjectGuid"), component->ifcProjectId());
        Xml::setAttributeIfNotEmpty(element, QStringLiteral("Color"), component->color());
        Xml::appendTextIfNotEmpty(document, element, QStringLiteral("OriginatingSystem"),
                                  component->originatingSystem());
        Xml::appendTextIfNotEmpty(document, element, QStringLiteral("AuthoringToolId"),
                                  component->authoringToolId());
        printFinished(document);
    }
}

} // namespace BCF_2_0_Lib
