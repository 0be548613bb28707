#pragma once

#include <QString>

namespace Benchmarks {

/// Does to the archive at @p path what no load on these libraries gets around, and nothing else:
/// inflates every entry once, and builds a document of every XML file once and drops it.
void loadFloor(const QString &path);

/// Does what no save gets around, to @p target: serialises the documents of the XML files of the
/// archive at @p path, and deflates all of its bytes once.
///
/// Gives the seconds that this took, without those for reading the archive.
double saveFloor(const QString &path, const QString &target);

} // namespace Benchmarks
