#pragma once

#include <BCFModel.h>

#include <QSharedPointer>
#include <QString>

#include <cstdlib>

/// What the fuzz targets have in common.
namespace Exercise {

/// Ends the program, and so makes a finding, if @p holds is false.
inline void require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A path in a folder that goes with the program.
QString scratchPath(const QString &name);

/// Loads the archive at @p path.
QSharedPointer<BCFLib::BCFModel> load(const QString &path);

/// Validates the model, turns its topics into variants and back, saves it and loads what was saved.
///
/// Gives the reloaded model; null if the model could not be saved.
QSharedPointer<BCFLib::BCFModel> everything(BCFLib::BCFModel *model);

} // namespace Exercise
