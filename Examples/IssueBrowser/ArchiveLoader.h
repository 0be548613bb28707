#pragma once

#include <ArchiveCheck.h>
#include <Core/Utils/BCFLib/BCFModel.h>

#include <QSharedPointer>
#include <QTemporaryDir>
#include <QThread>

#include <memory>

/// What came of a load.
struct LoadedArchive
{
    QString path;
    ArchiveCheck::File file{};
    /// Null if the file can't be loaded at all.
    QSharedPointer<BCFLib::BCFModel> model;
    /// Why the model is not valid.
    QStringList problems;
    /// The folder that holds the attachments; null without any.
    std::shared_ptr<QTemporaryDir> attachments;
};

/// Loads one archive at a time in a thread of its own, while the window stays alive.
///
/// The library can't break off a load: destroying the loader waits for the one that runs.
class ArchiveLoader : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~ArchiveLoader() override;

    bool isLoading() const { return _thread != nullptr; }
    /// Starts a load; there must be none under way.
    void load(const QString &path);

signals:
    void progressed(int percent);
    /// The load has ended, well or badly. The model lives in the loader's thread.
    void loaded(const LoadedArchive &archive);

private:
    void run();
    void count(qint64 &steps, qint64 more);
    void finish();

    /// While the thread runs, it alone uses this.
    LoadedArchive _archive;
    std::unique_ptr<QThread> _thread;
    qint64 _total = 0;
    qint64 _done = 0;
    int _percent = 0;
};
