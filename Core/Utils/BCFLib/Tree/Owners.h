#pragma once

class QChildEvent;
class QEvent;
class QObject;
class QString;

namespace BCFLib {

class GuidIndex;

/// Notifies the owners above an object, which index guids, of added and removed children and of renames.
///
/// The source stands in Lookup, as only the classes of hosts know who keeps an index.
struct Owners
{
    /// To be called with each event of @p parent, if it keeps an index.
    static void event(const QObject *parent, const QEvent *event);
    /// To be called with each child event of @p parent.
    static void childEvent(const QObject *parent, const QChildEvent *event);
    /// To be called at the end of the constructor of @p child.
    static void hasBeenMade(QObject *child);
    /// To be called before @p child takes on a guid.
    static void aboutToRename(const QObject *child, const QString &guid);
    /// To be called as @p child is destroyed.
    static void aboutToGo(const QObject *child);

private:
    template<class Work>
    static void withIndexesOf(const QObject *owner, const Work &work);
};

/// Whether the object's class is one of the library. One of a host may keep child events to itself, and may
/// look at documents while they are read and written.
bool isOwnClass(const QObject *object);

} // namespace BCFLib
