#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

/// Queries on the tree of objects, which is the only store of what hangs below an object.
///
/// They give what a recursive QObject::findChildren() and findChild() give, however an object came to its
/// place. While an object deletes its children, null stands in the place of those that are gone.
namespace BCFLib::Search {

/// Appends to @p found all objects of class T below @p owner, parents before their children.
template<class T>
void collect(const QObject *owner, QList<T *> *found)
{
    for (QObject *child : owner->children()) {
        if (T *match = qobject_cast<T *>(child)) {
            found->append(match);
        }
        if (child != nullptr && !child->children().isEmpty()) {
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

/// The first object of class T below @p owner that @p accepts, direct children before all others.
template<class T, class Predicate>
T *firstWhere(const QObject *owner, const Predicate &accepts)
{
    T *match = childWhere<T>(owner, accepts);
    const QObjectList &children = owner->children();
    for (auto child = children.begin(); match == nullptr && child != children.end(); ++child) {
        if (*child != nullptr && !(*child)->children().isEmpty()) {
            match = firstWhere<T>(*child, accepts);
        }
    }
    return match;
}

/// The first object of class T below @p owner.
template<class T>
T *first(const QObject *owner)
{
    return firstWhere<T>(owner, [](const T *) { return true; });
}

/// Deletes all objects of class T below @p owner.
///
/// One may own another if the host reparented them, and slots of the host may delete some on the way.
template<class T>
void deleteAll(const QObject *owner)
{
    const QList<T *> found = all<T>(owner);
    const QList<QPointer<T>> remaining(found.begin(), found.end());
    for (const QPointer<T> &object : remaining) {
        delete object.data();
    }
}

} // namespace BCFLib::Search
