#pragma once

#include "Search.h"

#include <QString>
#include <map>
#include <memory>
#include <memory_resource>
#include <tuple>
#include <unordered_map>
#include <vector>

class QChildEvent;

namespace BCFLib {

/// Which children of an owner bear which guid, so that not every search asks every child.
///
/// Made with the first search among many children. From then on it hears of the objects that come below the
/// owner at any depth, of children that go, and of their new names. Where an event filter of a
/// host has kept an event from it, the next search makes it anew. All that it misses is a raw setObjectName()
/// of a child whose signals are blocked or cut off, and several kept events of which one makes up for the
/// other; what it finds bears the guid in any case.
///
/// Guids are ordered, not hashed: they can be chosen such that all hash alike.
class GuidIndex
{
public:
    /// What a recursive findChild() gives, but that a null guid is one like any other empty one. The owner
    /// keeps @p index, which is null until there is one.
    template<class T>
    static T *find(const QObject *owner, const QString &guid, std::unique_ptr<GuidIndex> *index)
    {
        const auto hasGuid = [&guid](const T *object) { return object->objectName() == guid; };
        if (owner->children().size() < fewChildren) {
            if (T *child = Search::childWhere<T>(owner, hasGuid)) {
                return child;
            }
        }
        QObject *child = nullptr;
        do {
            if (!update(owner, &T::staticMetaObject, index)) {
                return Search::firstWhere<T>(owner, hasGuid);
            }
            child = (*index)->firstOf(guid);
        } while ((*index)->_isWrong);
        return child == nullptr && (*index)->mayBeDeeper() ? Search::firstWhere<T>(owner, hasGuid)
                                                           : static_cast<T *>(child);
    }

    /// How many objects of the class there are below the owner.
    template<class T>
    static int count(const QObject *owner, std::unique_ptr<GuidIndex> *index)
    {
        return update(owner, &T::staticMetaObject, index) && !(*index)->mayBeDeeper()
            ? static_cast<int>((*index)->_keys.size())
            : Search::all<T>(owner).size();
    }

    /// Of the children of @p owner of that class.
    GuidIndex(const QObject *owner, const QMetaObject *type);

    /// To be called with each child event of the owner and of the objects below it.
    void childEvent(const QChildEvent *event);
    /// To be called when an object below the owner has been made, with its class and guid.
    void hasBeenMade(QObject *object);
    /// To be called before a child takes on a guid.
    void aboutToRename(const QObject *child, const QString &guid);
    /// To be called when a child is destroyed, while it still has its class.
    void forget(const QObject *child);

private:
    /// The end of a guid, which spares most looks at the text, the guid, and the number of the child in the
    /// order in which they came.
    using Key = std::tuple<quint64, QString, quint64>;

    /// Up to here asking each child is as fast as the index.
    static constexpr int fewChildren = 32;

    static bool update(const QObject *owner, const QMetaObject *type, std::unique_ptr<GuidIndex> *index);
    bool isComplete() const;
    void takeInTree(QObject *object);
    void takeIn(QObject *object);
    void addOther(QObject *object);
    void forgetOwnClasses();
    bool mayBeDeeper();
    QObject *firstOf(const QString &guid);

    const QObject *_owner;
    const QMetaObject *_type;
    /// Keeps the index close together: among ten thousand children most of a search is waiting for memory.
    std::pmr::unsynchronized_pool_resource _memory;
    std::pmr::map<Key, QPointer<QObject>> _children{&_memory};
    std::pmr::unordered_map<const QObject *, Key> _keys{&_memory};
    quint64 _lastNumber = 0;
    /// How many children the owner has reported, and the last of them.
    int _childCount = 0;
    QPointer<QObject> _lastChild;
    /// Objects that may be of a host's own classes, which may not report what comes below them: when an
    /// object is reported it has no class yet.
    std::vector<QPointer<QObject>> _others;
    /// Whether an object of the class stands further below, or can't be ruled out there.
    bool _isDeeper = false;
    /// Whether a search has met a child that is not as was reported.
    bool _isWrong = false;
    /// Hears of names.
    QObject _listener;
};

} // namespace BCFLib
