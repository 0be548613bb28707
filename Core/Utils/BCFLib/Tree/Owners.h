#ifndef BCFLIB_TREE_OWNERS_H
#define BCFLIB_TREE_OWNERS_H

class QChildEvent;
class QObject;
class QString;

namespace BCFLib {

/// Notifies the owners above an object, which index guids, of added and removed children and of renames.
struct Owners
{
    /// To be called with each child event of @p parent.
    static void childEvent(const QObject *parent, const QChildEvent *event);
    /// To be called before @p child takes on a guid.
    static void aboutToRename(const QObject *child, const QString &guid);
    /// To be called as @p child is destroyed.
    static void aboutToGo(const QObject *child);
    /// Whether an object tells of its children.
    static bool areToldBy(const QObject *object);
};

} // namespace BCFLib

#endif // BCFLIB_TREE_OWNERS_H
