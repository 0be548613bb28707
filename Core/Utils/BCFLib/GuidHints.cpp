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
    if (_newcomers.size() > 2 * _familySize) {
        // Children come and go unasked for. The next search begins anew.
        stopWatching();
    }
}

QObject *GuidHints::hint(const QObject *owner, const QString &guid, const QMetaObject *type)
{
    const QObjectList &children = owner->children();
    if (children.size() < smallFamily) {
        stopWatching();
        return nullptr;
    }
    if (children.size() != _familySize || _hints.size() > 2 * _familySize) {
        // Not watched until now, or a host keeps the owner's events back; or most guids are those of the
        // gone.
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
    _newcomers = QList<QPointer<QObject>>(children.begin(), children.end());
    _familySize = children.size();
    _listener = std::make_unique<QObject>();
}

void GuidHints::stopWatching()
{
    _hints.clear();
    _newcomers.clear();
    _familySize = notWatched;
    _listener.reset();
}

void GuidHints::takeIn(QObject *child)
{
    QPointer<QObject> &known = _hints[child->objectName()];
    if (known.isNull()) {
        known = child;
    } else if (known != child) {
        known = _listener.get();
    }
    // Direct, as the listener stays in the thread that made it when a host moves the tree to another.
    QObject::disconnect(child, nullptr, _listener.get(), nullptr);
    QObject::connect(
        child, &QObject::objectNameChanged, _listener.get(),
        [this](const QString &guid) { _hints[guid] = _listener.get(); }, Qt::DirectConnection);
}

} // namespace BCFLib
