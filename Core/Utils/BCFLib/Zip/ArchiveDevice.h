#pragma once

#include "Directory.h"
#include "Io/ReadBudget.h"

#include <QDateTime>
#include <QFile>
#include <QIODevice>
#include <QString>

#include <array>
#include <vector>

class QuaZip;

namespace BCFLib {

/// An archive on disk, for reading here and there at the cost of its budget.
///
/// For each entry a zip reader goes to the archive's directory, to the entry and back. A QFile forgets
/// what it has read with each such leap, and reads the same part of the directory again and again; this
/// device keeps a megabyte of what was read last. It reads no more once the budget is spent.
class ArchiveDevice : public QIODevice, public BudgetedDevice
{
public:
    explicit ArchiveDevice(const QString &path);

    /// The device that an archive was opened by; null if that was a device of another kind.
    static ArchiveDevice *of(const QuaZip *zip);

    bool open(OpenMode mode) override;
    void close() override;
    bool isSequential() const override { return _file.isSequential(); }
    qint64 size() const override { return _size; }

    /// Empty until Directory::read() has filled it.
    Directory &directory() { return _directory; }

    /// Whether all reads so far went well, and the file is still the one that was opened.
    bool isSound() const;

protected:
    qint64 readData(char *data, qint64 maxSize) override;
    qint64 writeData(const char * /*data*/, qint64 /*maxSize*/) override { return -1; }

private:
    static constexpr qint64 blockSize = 16LL * 1024;

    struct Block
    {
        qint64 number = -1;
        qint64 size = 0;
        std::array<char, blockSize> bytes;
    };

    /// The block of that number; smaller than others at the end of the file.
    const Block &block(qint64 number);

    QFile _file;
    /// None is allocated later on, as a zip reader may not be thrown through.
    std::vector<Block> _blocks{64};
    Directory _directory;
    /// What the file was like when it was opened.
    qint64 _size = 0;
    QDateTime _modified;
    QDateTime _statusChanged;
    bool _isSound = true;
};

} // namespace BCFLib
