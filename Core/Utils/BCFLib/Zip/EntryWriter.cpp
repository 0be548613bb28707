#include "EntryWriter.h"

#include "Io/ReadBudget.h"

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>
#include <zlib.h>

namespace BCFLib {

namespace {

constexpr int windowBits = -15;
constexpr int memoryLevel = 8;

/// An entry that whoever makes it closes, or the zip. Where memory has ended, QuaZipFile's own destructor
/// throws.
class WrittenEntry : public QuaZipFile, public BudgetedDevice
{
public:
    explicit WrittenEntry(QuaZip *zip)
        : QuaZipFile(zip)
        , BudgetedDevice(budgetOf(zip->getIoDevice()))
    {
    }
    ~WrittenEntry() override { setOpenMode(NotOpen); }

protected:
    qint64 writeData(const char *data, qint64 maxSize) override
    {
        if (budget() != nullptr) {
            budget()->spend(maxSize);
        }
        return QuaZipFile::writeData(data, maxSize);
    }
};

} // namespace

bool EntryWriter::write(QuaZip *zip, const QString &name, QIODevice::OpenMode mode,
                        QFileDevice::Permissions permissions, const std::function<bool(QIODevice *)> &writeTo)
{
    QuaZipNewInfo info(name);
    if (permissions != noPermissions) {
        info.setPermissions(permissions);
    }
    WrittenEntry entry(zip);
    if (ReadBudget *budget = entry.budget()) {
        budget->lookUp(name);
        budget->openEntry();
    }
    if (!entry.open(mode, info, nullptr, 0, Z_DEFLATED, Z_DEFAULT_COMPRESSION, false, windowBits, memoryLevel,
                    Z_DEFAULT_STRATEGY)
        || !writeTo(&entry) || !entry.isOpen()) {
        return false;
    }
    entry.close();
    return entry.getZipError() == ZIP_OK;
}

bool EntryWriter::writeText(QuaZip *zip, const QString &name, const std::function<bool(QIODevice *)> &writeTo)
{
    return write(zip, name, QIODevice::WriteOnly | QIODevice::Text, readPermissions, writeTo);
}

bool EntryWriter::writeBytes(QuaZip *zip, const QString &name,
                             const std::function<bool(QIODevice *)> &writeTo)
{
    return write(zip, name, QIODevice::WriteOnly, readPermissions, writeTo);
}

} // namespace BCFLib
