#include "GuidIndex.h"

#include "Owners.h"

#include <QChildEvent>
#include <QCoreApplication>
#include <algorithm>

namespace BCFLib {

namespace {

/// How many objects that may be a host's are looked at together.
constexpr std::size_t manyOthers = 64;

/// Whether an object is a mere QObject, as all are when their parent hears of them, and again at their end.
bool isBare(const QObject *object)
{
    return object->metaObject() == &QObject::staticMetaObject;
}

/// Whether an object may still be in its constructor: its parent lists it, and event filters hear of it,
/// before the index does.
bool isBeingMade(const QObject *object)
{
    return object != nullptr && isBare(object) && object->children().isEmpty();
}

/// The last eight characters as a number.
quint64 endOf(const QString &guid)
{
    quint64 end = 0;
    for (const QChar character : guid.right(8)) {
        end = end << 8 | (character.unicode() & 0xff);
    }
    return end;
}

/// Null for a bare object: it may be at its end, and a QPointer that is made then dangles.
QPointer<QObject> pointerTo(QObject *object)
{
    return object == nullptr || isBare(object) ? nullptr : object;
}

} // namespace

GuidIndex::GuidIndex(const QObject *owner, const QMetaObject *type)
    : _owner(owner)
    , _type(type)
{
    const QObjectList &children = owner->children();
    _childCount = children.size();
    _lastChild = pointerTo(children.value(_childCount - 1));
    for (QObject *child : children) {
        takeInTree(child);
    }
}

void GuidIndex::childEvent(const QChildEvent *event)
{
    QObject *child = event->child();
    if (!event->added()) {
        --_childCount;
        _lastChild = pointerTo(_owner->children().value(_childCount - 1));
        forget(child);
        return;
    }
    if (child->parent() == _owner) {
        ++_childCount;
        _lastChild = child;
    }
    if (isBare(child)) {
        addOther(child);
    } else {
        takeInTree(child);
    }
}

void GuidIndex::hasBeenMade(QObject *object)
{
    takeIn(object);
    // An event filter or a host's class has added more on the way.
    _isWrong |= object->parent() == _owner && _owner->children().last() != object;
}

void GuidIndex::aboutToRename(const QObject *child, const QString &guid)
{
    const auto known = _keys.find(child);
    if (known == _keys.end() || std::get<QString>(known->second) == guid) {
        return;
    }
    auto entry = _children.extract(known->second);
    known->second = Key(endOf(guid), guid, std::get<2>(known->second));
    entry.key() = known->second;
    _children.insert(std::move(entry));
}

void GuidIndex::forget(const QObject *child)
{
    const auto known = _keys.find(child);
    if (known != _keys.end()) {
        _children.erase(known->second);
        _keys.erase(known);
        QObject::disconnect(child, nullptr, &_listener, nullptr);
    }
}

/// False where there can't be an index.
bool GuidIndex::update(const QObject *owner, const QMetaObject *type, std::unique_ptr<GuidIndex> *index)
{
    const bool hasEvents = QCoreApplication::instance() != nullptr;
    if (hasEvents && *index != nullptr && (*index)->isComplete()) {
        return true;
    }
    index->reset();
    // The event of the last child may still be on its way.
    const QObjectList &children = owner->children();
    if (hasEvents && !isBeingMade(children.value(children.size() - 1))) {
        *index = std::make_unique<GuidIndex>(owner, type);
    }
    return *index != nullptr;
}

/// Whether the children are those that were reported.
bool GuidIndex::isComplete() const
{
    const QObjectList &children = _owner->children();
    int count = children.size();
    if (count == _childCount + 1 && isBeingMade(children.value(count - 1))) {
        --count;
    }
    const QObject *last = children.value(count - 1);
    return !_isWrong && count == _childCount
        && (_lastChild != nullptr ? last == _lastChild : last == nullptr || isBare(last));
}

/// Takes in an object with all that stands below it.
void GuidIndex::takeInTree(QObject *object)
{
    // A bare object can't be watched, as it may be at its end.
    _isDeeper |= isBare(object);
    if (!isBare(object) && !isOwnClass(object)) {
        addOther(object);
    }
    takeIn(object);
    for (QObject *child : object->children()) {
        if (child != nullptr) {
            takeInTree(child);
        }
    }
}

void GuidIndex::takeIn(QObject *object)
{
    if (_type->cast(object) == nullptr) {
        return;
    }
    if (object->parent() != _owner) {
        _isDeeper = true;
        return;
    }
    forget(object);
    const QString guid = object->objectName();
    const Key key(endOf(guid), guid, ++_lastNumber);
    _children.emplace(key, object);
    _keys.emplace(object, key);
    // Direct, as the listener stays in the thread that made it when a host moves the tree to another.
    QObject::connect(
        object, &QObject::objectNameChanged, &_listener,
        [this, object](const QString &guid) { aboutToRename(object, guid); }, Qt::DirectConnection);
}

void GuidIndex::addOther(QObject *object)
{
    if (_others.size() == _others.capacity()) {
        forgetOwnClasses();
        _others.reserve(2 * _others.size() + manyOthers);
    }
    _others.emplace_back(object);
}

void GuidIndex::forgetOwnClasses()
{
    const auto isNoHosts = [](const QObject *object) { return object == nullptr || isOwnClass(object); };
    _others.erase(std::remove_if(_others.begin(), _others.end(), isNoHosts), _others.end());
}

/// Whether an object of the class may stand further below.
bool GuidIndex::mayBeDeeper()
{
    const auto isWanted = [this](const QObject *object) { return _type->cast(object) != nullptr; };
    const auto holdsWanted = [&isWanted](const QObject *object) {
        const QObjectList all = Search::all<QObject>(object);
        return std::any_of(all.begin(), all.end(), isWanted);
    };
    forgetOwnClasses();
    _isDeeper = _isDeeper || std::any_of(_others.begin(), _others.end(), holdsWanted);
    return _isDeeper;
}

/// The first child of that guid; null if there is none.
QObject *GuidIndex::firstOf(const QString &guid)
{
    const auto found = _children.lower_bound(Key(endOf(guid), guid, 0));
    if (found == _children.end() || std::get<QString>(found->first) != guid) {
        return nullptr;
    }
    QObject *child = found->second;
    _isWrong = child == nullptr || child->parent() != _owner || child->objectName() != guid;
    return child;
}

} // namespace BCFLib
