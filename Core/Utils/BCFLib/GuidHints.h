#ifndef BCFLIB_GUIDHINTS_H
#define BCFLIB_GUIDHINTS_H

#include "ObjectTree.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>

namespace BCFLib {

/// Remembers which child of a large family bears which guid, so that not every search asks every child.
///
/// A hint is never trusted: a search looks whether the child is still there and still bears the guid,
/// and asks all children where a hint fails. Hints learn nothing by themselves; the children are the
/// only store.
class GuidHints
{
public:
    /// The first object of class T below @p owner with that guid, or null; children before all others.
    template<class T>
    T *find(const QObject *owner, const QString &guid)
    {
        const auto hasGuid = [&guid](const T *object) { return object->objectName() == guid; };
        T *child = qobject_cast<T *>(hint(owner, guid, &T::staticMetaObject));
        if (child == nullptr) {
            child = ObjectTree::childWhere<T>(owner, hasGuid);
            remember(child);
        }
        return child != nullptr ? child : ObjectTree::furtherBelowWhere<T>(owner, hasGuid);
    }

    /// To be called when any child takes on that guid, as it may stand before the one that bears it.
    void forget(const QString &guid);

private:
    QObject *hint(const QObject *owner, const QString &guid, const QMetaObject *type);
    QObject *verifiedHint(const QObject *owner, const QString &guid) const;
    void takeInNewcomers(const QObject *owner, const QMetaObject *type);
    void remember(QObject *child);

    QHash<QString, QPointer<QObject>> _hints;
    /// How many of the children, from the first one on, were looked at.
    int _lookedAt = 0;
};

} // namespace BCFLib

#endif // BCFLIB_GUIDHINTS_H
