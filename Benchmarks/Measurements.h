#pragma once

#include <QString>

namespace Benchmarks {

/// Registers loading, saving, validation and the variant form of all archives, which are made in
/// @p folder. A quick run leaves out the largest.
void registerLoadSave(const QString &folder, bool quick);

/// Registers adding, finding and removing in trees of growing size.
void registerEditing(const QString &folder, bool quick);

} // namespace Benchmarks
