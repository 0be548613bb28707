#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

/// Names under which the entries of a folder can be told apart, read back and unpacked anywhere.
namespace BCFLib::EntryNames {

struct Wish
{
    /// A name of a file, which may stand in folders of its own.
    QString name;
    /// The name that gets a number where the wished one is not to be had; empty where there is to be none.
    QString substitute;
};

/// A name for each wish: the wished one where it is harmless and free, else a numbered one.
///
/// Free is what is neither among the @p taken names nor granted to an earlier wish. Names that differ in case
/// alone, or in how an accent is encoded, count as one, as on many file systems. So do a file and a folder of
/// one name. Harmless is what can be unpacked on any system and leads out of the folder on none.
QStringList distinct(const QVector<Wish> &wishes, const QStringList &taken);

/// Whether two names are one on some file systems.
bool areAlike(const QString &name, const QString &other);

} // namespace BCFLib::EntryNames
