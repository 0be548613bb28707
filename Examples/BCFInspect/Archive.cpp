#include "Archive.h"

#include <Core/Utils/BCFLib/BCFModel.h>

Archive judged(const QSharedPointer<BCFLib::BCFModel> &model, const QString &path)
{
    Archive archive{path, ArchiveCheck::checkFile(path), model, false, QString(), QString()};
    archive.usable = model->isValid(path, archive.message, archive.title);
    // Without a message the title says nothing: that of a good archive reads "Error" too.
    if (archive.message.isEmpty()) {
        archive.title.clear();
    }
    return archive;
}

QStringList Archive::problems() const
{
    return file.canBeLoaded() ? ArchiveCheck::problems(*model) : QStringList(file.text);
}

QStringList Archive::warnings() const
{
    return ArchiveCheck::warnings(file, *model);
}
