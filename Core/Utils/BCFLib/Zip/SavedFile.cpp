#include "SavedFile.h"

#include <new>

namespace BCFLib {

SavedFile::SavedFile(const QString &path)
    : QFile(path)
{
}

bool SavedFile::seek(qint64 position)
{
    // Writes what is in the buffer first, as closing does.
    return note([=] { return QFile::seek(position); });
}

void SavedFile::close()
{
    if (isOpen()) {
        note([=] { return flush(); });
        QFile::close();
        _isSound = _isSound && error() == NoError;
    }
}

qint64 SavedFile::writeData(const char *data, qint64 size)
{
    return note([=] { return QFile::writeData(data, size) == size; }) ? size : -1;
}

/// A zip writer may not be thrown through.
template<class Work>
bool SavedFile::note(const Work &work)
{
    bool isDone = false;
    try {
        isDone = work();
    } catch (const std::bad_alloc &) {
    }
    _isSound = _isSound && isDone;
    return isDone;
}

} // namespace BCFLib
