#include "GuidIndex.h"

#include "Owners.h"

#include <QChildEvent>
#include <QCoreApplication>

namespace BCFLib {

namespace {

/// So many newcomers are looked at together.
constexpr std::size_t manyNewcomers = 64;

} // namespace

GuidIndex::GuidIndex(const QObject *owner, const QMetaObject *type)
    : _owner(owner)
    , _type(type)
{
}

void GuidIndex::childEvent(const QChildEvent *event)
{
    if (_listener == nullptr) {
        return;
    }
    QObject *child = event->child();
    if (event->added()) {
        // All but this one, which may still be being made.
        if (_newcomers.size() >= manyNewcomers) {
            takeInNewcomers();
        }
        _newcomers.emplace(++_lastNumber, child);
        if (child->parent() == _owner) {
            ++_childCount;
            _lastChild = child;
        }
        return;
    }
    --_childCount;
    _lastChild = _owner->children().isEmpty() ? nullptr : _owner->children().last();
    const auto key = _keys.find(child);
    if (key != _keys.end()) {
        _children.erase(key->second);
        _keys.erase(key);
        QObject::disconnect(child, nullptr, _listener.get(), nullptr);
    }
    for (auto newcomer = _newcomers.begin(); newcomer != _newcomers.end();) {
        newcomer = newcomer->second == child ? _newcomers.erase(newcomer) : std::next(newcomer);
    }
}

void GuidIndex::aboutToRename(const QObject *child, const QString &guid)
{
    const auto known = _keys.find(child);
    if (known == _keys.end() || known->second.first == guid) {
        return;
    }
    auto entry = _children.extract(known->second);
    entry.key().first = guid;
    known->second = entry.key();
    _children.insert(std::move(entry));
}

/// False where there can't be an index.
bool GuidIndex::update()
{
    // Without an application nobody is told of children.
    if (QCoreApplication::instance() == nullptr) {
        end();
        return false;
    }
    const QObjectList &children = _owner->children();
    const bool isComplete = _listener != nullptr && _childCount == children.size()
        && (children.isEmpty() || _lastChild == children.last());
    if (!isComplete) {
        begin();
    }
    takeInNewcomers();
    return true;
}

void GuidIndex::begin()
{
    end();
    _listener = std::make_unique<QObject>();
    const QObjectList &children = _owner->children();
    for (QObject *child : children) {
        _newcomers.emplace(++_lastNumber, child);
    }
    _childCount = children.size();
    _lastChild = children.isEmpty() ? nullptr : children.last();
}

void GuidIndex::end()
{
    _listener.reset();
    _children.clear();
    _keys.clear();
    _newcomers.clear();
    _mayBeDeeper = false;
}

void GuidIndex::takeInNewcomers()
{
    for (const auto &newcomer : std::exchange(_newcomers, {})) {
        QObject *object = newcomer.second;
        if (object == nullptr) {
            continue;
        }
        const bool isWanted = _type->cast(object) != nullptr;
        if (isWanted && object->parent() == _owner) {
            takeIn(object, newcomer.first);
        }
        _mayBeDeeper |= (isWanted && object->parent() != _owner) || mayHide(object);
    }
}

void GuidIndex::takeIn(QObject *child, quint64 number)
{
    const Key key(child->objectName(), number);
    _children.emplace(key, child);
    _keys.emplace(child, key);
    // Direct, as the listener stays in the thread that made it when a host moves the tree to another.
    QObject::connect(
        child, &QObject::objectNameChanged, _listener.get(),
        [this, child](const QString &guid) { aboutToRename(child, guid); }, Qt::DirectConnection);
}

/// Whether an object of the class stands below @p object, or may come there without being told of.
bool GuidIndex::mayHide(const QObject *object) const
{
    if (!Owners::areToldBy(object)) {
        return true;
    }
    const QObjectList &children = object->children();
    return std::any_of(children.begin(), children.end(), [this](const QObject *child) {
        return _type->cast(child) != nullptr || mayHide(child);
    });
}

/// The first child of that guid; null if there is none.
QObject *GuidIndex::firstOf(const QString &guid)
{
    auto found = _children.lower_bound(Key(guid, 0));
    if (found == _children.end() || found->first.first != guid) {
        return nullptr;
    }
    QObject *child = found->second;
    if (child != nullptr && child->parent() == _owner && child->objectName() == guid) {
        return child;
    }
    // Somebody has kept something from the index.
    begin();
    takeInNewcomers();
    found = _children.lower_bound(Key(guid, 0));
    return found != _children.end() && found->first.first == guid ? found->second.data() : nullptr;
}

} // namespace BCFLib
