#ifndef BCFLIB_ZIP_ENTRYNAMES_H
#define BCFLIB_ZIP_ENTRYNAMES_H

#include <QString>
#include <QStringList>
#include <QVector>

namespace BCFLib {

/// Names under which the entries of a folder can be told apart, read back and unpacked anywhere.
namespace EntryNames {

struct Wish
{
    /// A name of a file, which may stand in folders of its own.
    QString name;
    /// What a name is made of where the wish can't be; empty where there is then to be none.
    QString substitute;
};

/// A name for each wish: the wished one where it is harmless, and neither among the @p taken ones nor wished
/// before; else a numbered one.
///
/// Names that differ in case alone, or in how an accent is encoded, count as one, as on many file systems. So
/// do a file and a folder of one name. Harmless is what leads nowhere else on any system, and fits there.
QStringList distinct(const QVector<Wish> &wishes, const QStringList &taken);

/// Whether two names are one on some file systems.
bool areAlike(const QString &name, const QString &other);

} // namespace EntryNames
} // namespace BCFLib

#endif // BCFLIB_ZIP_ENTRYNAMES_H
