#ifndef ISSUEBROWSER_ARCHIVELOADER_H
#define ISSUEBROWSER_ARCHIVELOADER_H

#include <Core/Utils/BCFLib/BCFLoadingWorker.h>

#include <QThread>

#include <memory>

/// Loads one archive at a time in a thread of its own, while the window stays alive.
///
/// The library can't break off a load: destroying the loader waits for the one that runs.
class ArchiveLoader : public QObject
{
    Q_OBJECT

public:
    explicit ArchiveLoader(QObject *parent = nullptr);
    ~ArchiveLoader() override;

    bool isLoading() const { return _worker != nullptr; }
    /// Starts a load; there must be none under way.
    void load(const QString &path);

signals:
    void progressed(int percent);
    /// The load has ended, well or badly. The model is never null and lives in the loader's thread.
    void loaded(const QSharedPointer<BCFLib::BCFModel> &model, const QString &path);

private:
    void tellProgress();
    void finish();

    QThread _thread;
    std::unique_ptr<BCFLib::BCFLoadingWorker> _worker;
    qint64 _total = 0;
    qint64 _done = 0;
    int _percent = 0;
};

#endif
