#include "GuidHints.h"

namespace BCFLib {

namespace {

/// Fewer children than this are asked one by one as fast as a hint is found.
constexpr int smallFamily = 32;

} // namespace

QObject *GuidHints::hint(const QObject *owner, const QString &guid, const QMetaObject *type)
{
    const int size = owner->children().size();
    if (size < smallFamily) {
        _hints.clear();
        _lookedAt = 0;
        return nullptr;
    }
    QObject *child = verifiedHint(owner, guid);
    if (child == nullptr) {
        takeInNewcomers(owner, type);
        child = verifiedHint(owner, guid);
    }
    return child;
}

QObject *GuidHints::verifiedHint(const QObject *owner, const QString &guid) const
{
    QObject *child = _hints.value(guid);
    return child != nullptr && child->parent() == owner && child->objectName() == guid ? child : nullptr;
}

void GuidHints::takeInNewcomers(const QObject *owner, const QMetaObject *type)
{
    const QObjectList &children = owner->children();
    for (_lookedAt = qMin(_lookedAt, children.size()); _lookedAt < children.size(); ++_lookedAt) {
        QObject *child = children.at(_lookedAt);
        // The first of several with one guid is the one to be found.
        if (type->cast(child) != nullptr && verifiedHint(owner, child->objectName()) == nullptr) {
            remember(child);
        }
    }
}

void GuidHints::remember(QObject *child)
{
    if (child != nullptr && _lookedAt > 0) {
        _hints.insert(child->objectName(), child);
    }
}

void GuidHints::forget(const QString &guid)
{
    _hints.remove(guid);
}

} // namespace BCFLib
