#ifndef BCFLIB_GUIDHINTS_H
#define BCFLIB_GUIDHINTS_H

#include "ObjectTree.h"

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
/// and asks all children where a hint fails. A guid that a second child was ever seen with, or that a
/// child took on later, has no hint any more, since the order of the children then decides. The children
/// are the only store.
class GuidHints
{
public:
    /// To be called with each child event of the owner.
    void familyChanged(const QChildEvent *event);

    /// The first object of class T below @p owner with that guid, or null; children before all others.
    template<class T>
    T *find(const QObject *owner, const QString &guid)
    {
        const auto hasGuid = [&guid](const T *object) { return object->objectName() == guid; };
        T *child = qobject_cast<T *>(hint(owner, guid, &T::staticMetaObject));
        if (child == nullptr) {
            child = ObjectTree::childWhere<T>(owner, hasGuid);
        }
        return child != nullptr ? child : ObjectTree::furtherBelowWhere<T>(owner, hasGuid);
    }

private:
    QObject *hint(const QObject *owner, const QString &guid, const QMetaObject *type);
    QObject *verifiedHint(const QObject *owner, const QString &guid) const;
    void startWith(const QObjectList &children);
    void stopWatching();
    void takeIn(QObject *child);

    static constexpr int notWatched = -1;

    /// Null where the child is gone; the listener for a guid that is to have no hint any more.
    QHash<QString, QPointer<QObject>> _hints;
    /// Children that were not looked at yet: while they are added they have no guid.
    QList<QPointer<QObject>> _newcomers;
    /// How many children the owner has as far as its events tell.
    int _familySize = notWatched;
    /// Hears of guids that children take on.
    std::unique_ptr<QObject> _listener;
};

} // namespace BCFLib

#endif // BCFLIB_GUIDHINTS_H
