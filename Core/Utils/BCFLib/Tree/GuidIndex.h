#ifndef BCFLIB_TREE_GUIDINDEX_H
#define BCFLIB_TREE_GUIDINDEX_H

#include "Search.h"

#include <QChildEvent>
#include <QHash>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

#include <memory>

namespace BCFLib {

/// Remembers which child of a large family bears which guid, so that not every search asks every child.
///
/// A hint is never trusted: a search looks whether the child is still there and still bears the guid,
/// and asks all children where a hint fails. Of several children with one guid the first is meant; where
/// one of them goes, comes back or took the guid on later, the next search finds out which that is. The
/// children are the only store.
///
/// What a hint can't see is a raw change of the object name of a child that a host has cut off from all
/// its listeners.
class GuidHints
{
public:
    /// To be called with each child event of the owner.
    void familyChanged(const QChildEvent *event);
    /// To be called when an object has taken on a guid, whosever child it is.
    static void renamed(const QObject *object);

    /// The first object of class T below @p owner with that guid, or null; children before all others.
    template<class T>
    T *find(const QObject *owner, const QString &guid)
    {
        const auto hasGuid = [&guid](const T *object) { return object->objectName() == guid; };
        T *child = qobject_cast<T *>(hint(owner, guid, &T::staticMetaObject));
        if (child == nullptr) {
            child = ObjectTree::childWhere<T>(owner, hasGuid);
            remember(guid, child);
        }
        return child != nullptr ? child : ObjectTree::furtherBelowWhere<T>(owner, hasGuid);
    }

private:
    QObject *hint(const QObject *owner, const QString &guid, const QMetaObject *type);
    QObject *verifiedHint(const QObject *owner, const QString &guid) const;
    void startWith(const QObjectList &children);
    void stopWatching();
    void takeIn(QObject *child);
    void remember(const QString &guid, QObject *child);
    bool knows(const QObjectList &children) const;

    struct Hint
    {
        /// The first child with that guid; null if it is gone or not known.
        QPointer<QObject> first;
        /// Whether there may be others.
        bool isShared = false;
    };

    static constexpr int notWatched = -1;

    QHash<QString, Hint> _hints;
    /// Children that were not looked at yet: while they are added they have no guid.
    QList<QPointer<QObject>> _newcomers;
    /// How many children the owner has as far as its events tell.
    int _familySize = notWatched;
    /// The silent renames that were known when watching began.
    unsigned _silentRenames = 0;
    /// Hears of guids that children take on.
    std::unique_ptr<QObject> _listener;
};

} // namespace BCFLib

#endif // BCFLIB_TREE_GUIDINDEX_H
