#pragma once

#include <QSharedPointer>

namespace BCFLib {
class BCFModel;
}

class ProgressBar;
class QString;

/// Loads the archive at @p path in a thread of its own and keeps @p bar moving meanwhile.
///
/// Needs a QCoreApplication, whose events are handled until the load has ended. The model is never
/// null and belongs to the calling thread.
QSharedPointer<BCFLib::BCFModel> loadInThread(const QString &path, ProgressBar &bar);
