#include "Components.h"

#include "Component.h"
#include "Tree/Owners.h"

#include <utility>

namespace BCFLib {

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
    Owners::childEvent(this, event);
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

} // namespace BCFLib
