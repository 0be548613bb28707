#include "GuidHints.h"

namespace BCFLib {

namespace {

/// Fewer children than this are asked one by one as fast as a hint is found.
constexpr int smallFamily = 32;

} // namespace

QObject *GuidHints::hint(const QObject *owner, const QString &guid, const QMetaObject *type)
{
    if (owner->children().size() < smallFamily) {
        _hints.clear();
        _listener.reset();
        _takenIn = 0;
        return nullptr;
    }
    takeInNewcomers(owner, type);
    return verifiedHint(owner, guid);
}

QObject *GuidHints::verifiedHint(const QObject *owner, const QString &guid) const
{
    QObject *child = _hints.value(guid);
    return child != nullptr && child->parent() == owner && child->objectName() == guid ? child : nullptr;
}

void GuidHints::takeInNewcomers(const QObject *owner, const QMetaObject *type)
{
    const QObjectList &children = owner->children();
    for (_takenIn = qMin(_takenIn, children.size()); _takenIn < children.size(); ++_takenIn) {
        if (type->cast(children.at(_takenIn)) != nullptr) {
            takeIn(children.at(_takenIn));
        }
    }
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

void GuidHints::missed(const QObject *owner, QObject *child)
{
    // Where earlier children have gone, later ones have moved up among those that were taken in.
    if (child != nullptr && _takenIn > 0 && !_hints.contains(child->objectName())) {
        _takenIn = owner->children().indexOf(child);
    }
}

} // namespace BCFLib
