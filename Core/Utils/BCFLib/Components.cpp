#include "Components.h"

#include "Component.h"
#include "Tree/Owners.h"

#include <algorithm>

namespace BCFLib {

/// Components that are on their way into a set or out of one. What it holds in the end is deleted.
///
/// Slots and filters of the host run while components are made and deleted, and may do the same.
class Components::Batch
{
public:
    Batch() = default;
    Q_DISABLE_COPY(Batch)

    ~Batch()
    {
        // Front to back, because QObject searches its children from the front.
        while (!_components.isEmpty()) {
            Component *component = _components.takeFirst();
            component->_set = nullptr;
            delete component;
        }
    }

    void make(const QVector<Mention> &mentions, Components *parent)
    {
        _components.reserve(mentions.size());
        for (const Mention &mention : mentions) {
            Component *component = new Component(mention.guid, parent);
            component->_ifcProjectId = mention.ifcProjectId;
            component->_originatingSystem = mention.originatingSystem;
            component->_authoringToolId = mention.authoringToolId;
            component->_set = &_components;
            _components.append(component);
        }
    }

    /// Gives its components to @p set and takes what stood there.
    void exchange(QList<Component *> &set)
    {
        _components.swap(set);
        for (Component *component : qAsConst(_components)) {
            component->_set = &_components;
        }
        for (Component *component : qAsConst(set)) {
            component->_set = &set;
        }
    }

    /// Empties @p sets, whose components stand here in the order of the children then.
    void takeAll(const QVector<QList<Component *> *> &sets, const QObject *parent)
    {
        QList<Component *> all;
        for (const QList<Component *> *set : sets) {
            all.append(*set);
        }
        _components.reserve(all.size());
        for (Component *component : qAsConst(all)) {
            component->_set = &_components;
        }
        for (QList<Component *> *set : sets) {
            QList<Component *>().swap(*set);
        }
        for (QObject *child : parent->children()) {
            Component *component = qobject_cast<Component *>(child);
            if (component != nullptr && component->_set == &_components) {
                _components.append(component);
            }
        }
        for (Component *component : qAsConst(all)) {
            if (component->parent() != parent) {
                _components.append(component);
            }
        }
    }

private:
    QList<Component *> _components;
};

Components::Components(QObject *parent)
    : QObject(parent)
{
}

Components::~Components()
{
    // A component that a host reparented outlives its set.
    const auto release = [](const QList<Component *> &set) {
        for (Component *component : set) {
            component->_set = nullptr;
        }
    };
    release(_selectionComponents);
    release(_visibilityExceptionComponents);
    std::for_each(_coloringComponents.cbegin(), _coloringComponents.cend(), release);
}

void Components::setSelectionComponents(const QStringList &guids)
{
    replace(_selectionComponents, mentionsOf(guids));
}

void Components::setVisibilityExceptionComponents(const QStringList &guids)
{
    replace(_visibilityExceptionComponents, mentionsOf(guids));
}

void Components::addColoringComponents(const QColor &color, const QStringList &guids)
{
    replaceColor(color.name(), mentionsOf(guids));
}

void Components::removeColoringComponents()
{
    Batch removed;
    removed.takeAll(coloringSets(), this);
    _coloringComponents.clear();
}

void Components::childEvent(QChildEvent *event)
{
    Owners::childEvent(this, event);
}

void Components::clear()
{
    _viewSetupHints = ViewSetupHints();
    _defaultVisibility = true;
    Batch removed;
    removed.takeAll(coloringSets() << &_selectionComponents << &_visibilityExceptionComponents, this);
    _coloringComponents.clear();
}

QVector<QList<Component *> *> Components::coloringSets()
{
    QVector<QList<Component *> *> sets;
    for (QList<Component *> &group : _coloringComponents) {
        sets.append(&group);
    }
    return sets;
}

void Components::replace(QList<Component *> &set, const QVector<Mention> &mentions)
{
    {
        Batch removed;
        removed.exchange(set);
    }
    Batch made;
    made.make(mentions, this);
    // What a slot of the host has put there meanwhile goes with the batch.
    made.exchange(set);
}

void Components::replaceColor(const QString &name, const QVector<Mention> &mentions)
{
    Batch made;
    made.make(mentions, this);
    made.exchange(_coloringComponents[name]);
}

QVector<Components::Mention> Components::mentionsOf(const QStringList &guids)
{
    QVector<Mention> mentions;
    mentions.reserve(guids.size());
    for (const QString &guid : guids) {
        mentions.append({guid, QString(), QString(), QString()});
    }
    return mentions;
}

} // namespace BCFLib
