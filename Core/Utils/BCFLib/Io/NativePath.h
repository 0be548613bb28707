#pragma once

#include <QFile>
#include <QString>

#include <filesystem>

namespace BCFLib {

/// A path as the standard library takes it.
inline std::filesystem::path nativePath(const QString &path)
{
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return QFile::encodeName(path).toStdString();
#endif
}

} // namespace BCFLib
