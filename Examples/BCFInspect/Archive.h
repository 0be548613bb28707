#pragma once

#include "ArchiveCheck.h"

#include <QSharedPointer>

/// One archive as it was found and loaded.
struct Archive
{
    QString path;
    ArchiveCheck::File file;
    /// Never null.
    QSharedPointer<BCFLib::BCFModel> model;
    /// What BCFModel::isValid() says. The texts are empty where it has nothing to tell.
    bool usable;
    QString title;
    QString message;

    /// Each reason why the archive can't be used, the file's own if it holds nothing to load.
    QStringList problems() const;
    /// What is missing although the archive can be used.
    QStringList warnings() const;
};

/// Judges a @p model that was loaded from @p path.
Archive judged(const QSharedPointer<BCFLib::BCFModel> &model, const QString &path);
