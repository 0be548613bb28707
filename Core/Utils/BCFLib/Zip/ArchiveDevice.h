#ifndef BCFLIB_ZIP_ARCHIVEDEVICE_H
#define BCFLIB_ZIP_ARCHIVEDEVICE_H

#include <QByteArray>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <array>

namespace BCFLib {

/// An archive on disk, for reading here and there.
///
/// For each entry a zip reader goes to the archive's directory, to the entry and back. A QFile forgets
/// what it has read with each such leap, and reads the same part of the directory again and again; this
/// device keeps a megabyte of what was read last.
class ArchiveFile : public QIODevice
{
public:
    explicit ArchiveFile(const QString &path);
    ~ArchiveFile() override;

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override;
    qint64 size() const override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char *data, qint64 maxSize) override;

private:
    struct Slot
    {
        qint64 block = -1;
        QByteArray bytes;
    };

    /// The bytes of the block of that number; fewer than a whole block at the end of the file.
    const QByteArray &block(qint64 number);

    QFile _file;
    std::array<Slot, 64> _slots;
};

} // namespace BCFLib

#endif // BCFLIB_ZIP_ARCHIVEDEVICE_H
