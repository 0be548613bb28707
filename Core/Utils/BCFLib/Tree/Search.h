#ifndef BCFLIB_TREE_SEARCH_H
#define BCFLIB_TREE_SEARCH_H

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

namespace BCFLib {

/// Queries on the tree of objects, which is the only store of what hangs below an object.
///
/// They give what a recursive QObject::findChildren() and findChild() give, also for objects that
/// a host has hung elsewhere below the owner, but pass by the references to model elements, which
/// are most of a tree and hold nothing that is ever asked for.
namespace ObjectTree {

/// Whether nothing but references to model elements can stand below @p object.
bool holdsOnlyReferences(const QObject *object);

inline bool mayHoldMore(const QObject *object)
{
    return object != nullptr && !object->children().isEmpty() && !holdsOnlyReferences(object);
}

/// Appends to @p found all objects of class T below @p owner, parents before their children.
template<class T>
void collect(const QObject *owner, QList<T *> *found)
{
    for (QObject *child : owner->children()) {
        if (T *match = qobject_cast<T *>(child)) {
            found->append(match);
        }
        if (mayHoldMore(child)) {
            collect(child, found);
        }
    }
}

/// All objects of class T below @p owner.
template<class T>
QList<T *> all(const QObject *owner)
{
    QList<T *> found;
    collect(owner, &found);
    return found;
}

/// The first child of @p owner of class T that @p accepts.
template<class T, class Predicate>
T *childWhere(const QObject *owner, const Predicate &accepts)
{
    for (QObject *child : owner->children()) {
        T *match = qobject_cast<T *>(child);
        if (match != nullptr && accepts(match)) {
            return match;
        }
    }
    return nullptr;
}

template<class T, class Predicate>
T *firstWhere(const QObject *owner, const Predicate &accepts);

/// The first object of class T that @p accepts, below the children of @p owner.
template<class T, class Predicate>
T *furtherBelowWhere(const QObject *owner, const Predicate &accepts)
{
    for (QObject *child : owner->children()) {
        T *match = mayHoldMore(child) ? firstWhere<T>(child, accepts) : nullptr;
        if (match != nullptr) {
            return match;
        }
    }
    return nullptr;
}

/// The first object of class T below @p owner that @p accepts, direct children before all others.
template<class T, class Predicate>
T *firstWhere(const QObject *owner, const Predicate &accepts)
{
    T *child = childWhere<T>(owner, accepts);
    return child != nullptr ? child : furtherBelowWhere<T>(owner, accepts);
}

/// The first object of class T below @p owner.
template<class T>
T *first(const QObject *owner)
{
    return firstWhere<T>(owner, [](const T *) { return true; });
}

/// The first object of class T below @p owner whose guid, the object name, is @p guid.
///
/// Unlike with QObject::findChild() a null text is a guid like any other empty one, no wildcard.
template<class T>
T *byGuid(const QObject *owner, const QString &guid)
{
    return firstWhere<T>(owner, [&guid](const T *object) { return object->objectName() == guid; });
}

/// Deletes all objects of class T below @p owner.
///
/// One may own another where a host has hung them so, and slots of the host may delete some on the way.
template<class T>
void deleteAll(const QObject *owner)
{
    const QList<T *> found = all<T>(owner);
    const QList<QPointer<T>> doomed(found.begin(), found.end());
    for (const QPointer<T> &object : doomed) {
        delete object.data();
    }
}

} // namespace ObjectTree
} // namespace BCFLib

#endif // BCFLIB_TREE_SEARCH_H
