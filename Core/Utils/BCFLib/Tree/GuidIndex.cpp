#include "GuidIndex.h"

#include <atomic>
#include <utility>

namespace BCFLib {

namespace {

/// Fewer children than this are asked one by one as fast as a hint is found.
constexpr int smallFamily = 32;

/// How often any object has taken on a guid without a signal.
std::atomic<unsigned> silentRenames{0};

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

void GuidHints::renamed(const QObject *object)
{
    if (object->signalsBlocked()) {
        ++silentRenames;
    }
}

QObject *GuidHints::hint(const QObject *owner, const QString &guid, const QMetaObject *type)
{
    const QObjectList &children = owner->children();
    if (children.size() < smallFamily) {
        stopWatching();
        return nullptr;
    }
    if (!knows(children)) {
        startWith(children);
    }
    for (const QPointer<QObject> &child : std::exchange(_newcomers, {})) {
        if (type->cast(child.data()) != nullptr) {
            takeIn(child);
        }
    }
    return verifiedHint(owner, guid);
}

bool GuidHints::knows(const QObjectList &children) const
{
    // A host can keep the owner's events back. Where most guids are those of the gone, it is time to sweep.
    return _familySize == children.size() && _silentRenames == silentRenames
        && _hints.size() <= 2 * _familySize;
}

QObject *GuidHints::verifiedHint(const QObject *owner, const QString &guid) const
{
    QObject *child = _hints.value(guid).first;
    return child != nullptr && child->parent() == owner && child->objectName() == guid ? child : nullptr;
}

void GuidHints::startWith(const QObjectList &children)
{
    _hints.clear();
    _newcomers = QList<QPointer<QObject>>(children.begin(), children.end());
    _familySize = children.size();
    _silentRenames = silentRenames;
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
    Hint &hint = _hints[child->objectName()];
    if (hint.first.isNull() && !hint.isShared) {
        hint.first = child;
    } else if (hint.first == child) {
        // It was away, and stands behind others now.
        hint = {nullptr, true};
    } else {
        hint.isShared = true;
    }
    // Direct, as the listener stays in the thread that made it when a host moves the tree to another.
    QObject::disconnect(child, nullptr, _listener.get(), nullptr);
    QObject::connect(
        child, &QObject::objectNameChanged, _listener.get(),
        [this](const QString &guid) {
            _hints[guid] = {nullptr, true};
        },
        Qt::DirectConnection);
}

void GuidHints::remember(const QString &guid, QObject *child)
{
    const auto hint = _hints.find(guid);
    if (hint != _hints.end()) {
        hint->first = child;
    }
}

} // namespace BCFLib
