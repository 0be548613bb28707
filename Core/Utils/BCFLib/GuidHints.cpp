#include "GuidHints.h"

#include <utility>

namespace BCFLib {

namespace {

/// Fewer children than this are asked one by one as fast as a hint is found.
constexpr int smallFamily = 32;

} // namespace

void GuidHints::familyChanged(const QChildEvent *event)
{
    if (_familySize == notWatched) {
        return;
    }
    _familySize += event->added() ? 1 : event->removed() ? -1 : 0;
    if (event->added()) {
        _newcomers.append(event->child());
    }
}

QObject *GuidHints::hint(const QObject *owner, const QString &guid, const QMetaObject *type)
{
    const QObjectList &children = owner->children();
    if (children.size() < smallFamily) {
        startWith({});
        _familySize = notWatched;
        return nullptr;
    }
    if (children.size() != _familySize) {
        // Not watched until now, or a host keeps the owner's events back.
        startWith(children);
    }
    for (const QPointer<QObject> &child : std::exchange(_newcomers, {})) {
        if (type->cast(child.data()) != nullptr) {
            takeIn(child);
        }
    }
    return verifiedHint(owner, guid);
}

QObject *GuidHints::verifiedHint(const QObject *owner, const QString &guid) const
{
    QObject *child = _hints.value(guid);
    return child != nullptr && child->parent() == owner && child->objectName() == guid ? child : nullptr;
}

void GuidHints::startWith(const QObjectList &children)
{
    _hints.clear();
    _listener.reset();
    _newcomers = QList<QPointer<QObject>>(children.begin(), children.end());
    _familySize = children.size();
}

void GuidHints::takeIn(QObject *child)
{
    const auto known = _hints.find(child->objectName());
    if (known == _hints.end()) {
        _hints.insert(child->objectName(), child);
    } else if (known.value() != child) {
        known.value().clear();
    }
    if (_listener == nullptr) {
        _listener = std::make_unique<QObject>();
    }
    // Direct, as the listener stays in the thread that made it when a host moves the tree to another.
    QObject::disconnect(child, nullptr, _listener.get(), nullptr);
    QObject::connect(
        child, &QObject::objectNameChanged, _listener.get(),
        [this](const QString &guid) { _hints[guid].clear(); }, Qt::DirectConnection);
}

} // namespace BCFLib
