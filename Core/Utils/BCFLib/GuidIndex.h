#ifndef BCFLIB_GUIDINDEX_H
#define BCFLIB_GUIDINDEX_H

#include "ObjectTree.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QVector>

#include <memory>

class QChildEvent;

namespace BCFLib {

/// Finds the children of one class by guid at once, where a family is too large to ask each child.
///
/// The children stay the only store. The index learns of children that come and go from the events
/// that their owner passes on, and of changed guids from the children's own signal.
class GuidIndex
{
public:
    /// An index over the children of @p owner, which owns it, of class @p type.
    GuidIndex(const QObject *owner, const QMetaObject *type);

    /// Makes the index if the owner has so many children that it is worth its cost. False if the
    /// children are to be asked one by one.
    static bool prepare(const QObject *owner, const QMetaObject *type, std::unique_ptr<GuidIndex> &index);

    /// The first child with that guid, or null.
    QObject *find(const QString &guid);

    /// To be called with every child event of the owner.
    void childEvent(QChildEvent *event);

private:
    void rebuild();
    void takeIn(QObject *child);
    void leaveOut(QObject *child);

    const QObject *_owner;
    const QMetaObject *_type;
    QHash<QString, QObject *> _firstByGuid;
    /// Children that have come since the last search. Only by then they are what they will be.
    QVector<QObject *> _newcomers;
    /// Receives the signals of the children that are taken in, and ends with this state of the index.
    std::unique_ptr<QObject> _receiver;
    bool _hasDuplicates = false;
    bool _isStale = true;
};

/// The first object of class T below @p owner with that guid, or null; children before all others.
///
/// @p index is made once the family is large and is kept by the owner, which passes its child events on.
template <class T>
T *findByGuid(const QObject *owner, std::unique_ptr<GuidIndex> &index, const QString &guid)
{
    const auto hasGuid = [&guid](const T *object) { return object->objectName() == guid; };
    T *child = GuidIndex::prepare(owner, &T::staticMetaObject, index) ? static_cast<T *>(index->find(guid))
                                                                      : ObjectTree::childWhere<T>(owner, hasGuid);
    return child != nullptr ? child : ObjectTree::furtherBelowWhere<T>(owner, hasGuid);
}

} // namespace BCFLib

#endif // BCFLIB_GUIDINDEX_H
