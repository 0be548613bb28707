#include "EntryWriter.h"

#include "Io/ReadBudget.h"

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>

namespace BCFLib {

namespace {

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
        budget()->spend(maxSize);
        return QuaZipFile::writeData(data, maxSize);
    }
};

} // namespace

bool EntryWriter::write(QuaZip *zip, const QString &name, QIODevice::OpenMode mode,
                        const std::function<bool(QIODevice *)> &writeTo, QFileDevice::Permissions permissions)
{
    QuaZipNewInfo info(name);
    if (permissions != noPermissions) {
        info.setPermissions(permissions);
    }
    WrittenEntry entry(zip);
    entry.budget()->lookUp(name);
    entry.budget()->openEntry();
    if (!entry.open(mode, info) || !writeTo(&entry) || !entry.isOpen()) {
        return false;
    }
    entry.close();
    return entry.getZipError() == ZIP_OK;
}

} // namespace BCFLib
