#pragma once

#include <QSharedPointer>
#include <QString>
#include <vector>

namespace BCFLib {
class BCFModel;
}

namespace Benchmarks {

/// What an archive holds: how many of each, per topic or per viewpoint, in a version.
struct Contents
{
    int topics;
    int viewpoints; ///< per topic
    int components; ///< per viewpoint
    int lines; ///< per viewpoint
    int comments; ///< per topic; each but the first answers an earlier one
    int files; ///< per topic; each travels in the archive
    bool snapshots; ///< whether each viewpoint has an image of 30 kB
    QString version = QStringLiteral("2.1");
};

/// One of a family of archives that differ in size alone.
struct Archive
{
    const char *family; ///< plural of what is counted
    int size;
    bool isLarge; ///< left out of a quick run
    Contents contents;

    QString name() const { return QStringLiteral("%1/%2").arg(family).arg(size); }
};

/// The archives that loading, saving, validation and the variant form are measured on.
std::vector<Archive> archives();

/// A model with these contents, the same at every call but for the guids that the library makes.
///
/// Files are written into @p folder, which has to outlive the model.
QSharedPointer<BCFLib::BCFModel> makeModel(const Contents &contents, const QString &folder);

} // namespace Benchmarks
