#pragma once

#include <QObject>
#include <QThread>

#include <memory>

namespace BCFLib {
class BCFModel;
}

/// Saves one archive in a thread of its own, while the window stays alive.
class ArchiveSaver : public QObject
{
    Q_OBJECT

public:
    /// @p archive goes to the other thread until saved(): nothing may use it meanwhile.
    ArchiveSaver(BCFLib::BCFModel &archive, const QString &path);
    ~ArchiveSaver() override;

    /// Waits for the end of the save. The result is empty if all went well, otherwise it is what stopped
    /// it, and what stands at the path is as it was.
    QString finish();

signals:
    /// So much is written.
    void progressed(qint64 bytes);
    void saved();

private:
    void save(BCFLib::BCFModel &archive, const QString &path);
    void watch(const QString &unfinished);

    /// While the thread runs, it alone uses this.
    QString _problem;
    std::unique_ptr<QThread> _thread;
};
