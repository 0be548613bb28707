#include "GuidIndex.h"

#include <QChildEvent>
#include <QCoreApplication>

namespace BCFLib {

namespace {

/// Fewer children than this are asked one by one as fast as an index would answer.
constexpr int smallFamily = 32;

} // namespace

GuidIndex::GuidIndex(const QObject *owner, const QMetaObject *type)
    : _owner(owner)
    , _type(type)
{
}

bool GuidIndex::prepare(const QObject *owner, const QMetaObject *type, std::unique_ptr<GuidIndex> &index)
{
    // Without an application there are no child events.
    if (QCoreApplication::instance() == nullptr || owner->children().size() < smallFamily) {
        index.reset();
        return false;
    }
    if (index == nullptr) {
        index = std::make_unique<GuidIndex>(owner, type);
    }
    return true;
}

QObject *GuidIndex::find(const QString &guid)
{
    if (_isStale) {
        rebuild();
    }
    for (QObject *child : qAsConst(_newcomers)) {
        takeIn(child);
    }
    _newcomers.clear();
    return _firstByGuid.value(guid);
}

void GuidIndex::childEvent(QChildEvent *event)
{
    if (event->added()) {
        _newcomers.append(event->child());
    } else if (event->removed()) {
        leaveOut(event->child());
    }
}

void GuidIndex::rebuild()
{
    _receiver = std::make_unique<QObject>();
    _firstByGuid.clear();
    _newcomers.clear();
    _hasDuplicates = false;
    for (QObject *child : _owner->children()) {
        takeIn(child);
    }
    _isStale = false;
}

void GuidIndex::takeIn(QObject *child)
{
    if (_type->cast(child) == nullptr) {
        return;
    }
    QObject *&first = _firstByGuid[child->objectName()];
    if (first == nullptr) {
        first = child;
    } else {
        _hasDuplicates = true;
    }
    // Direct, as the receiver stays in the thread that made it when a host moves the tree to another.
    QObject::connect(
        child, &QObject::objectNameChanged, _receiver.get(), [this] { _isStale = true; }, Qt::DirectConnection);
}

void GuidIndex::leaveOut(QObject *child)
{
    const int newcomer = _newcomers.lastIndexOf(child);
    if (newcomer >= 0) {
        _newcomers.remove(newcomer);
        return;
    }
    QObject::disconnect(child, nullptr, _receiver.get(), nullptr);
    const auto entry = _firstByGuid.find(child->objectName());
    if (entry != _firstByGuid.end() && entry.value() == child) {
        _firstByGuid.erase(entry);
        // Another one of that guid may be the first now.
        _isStale = _isStale || _hasDuplicates;
    }
}

} // namespace BCFLib
