#pragma once

#include "Io/ReadBudget.h"

#include <quazip/quazipfile.h>

namespace BCFLib {

/// The current entry of an archive, read at the cost of the archive's budget; it fails once that is spent.
///
/// Only stored and deflated entries open. The zip library also knows bzip2, which the format does not, and
/// never comes back from a bzip2 stream that ends early.
///
/// Where the zip library lacks memory, std::bad_alloc is thrown: an entry that is there must not pass for one
/// that is broken.
class EntryReader : public QuaZipFile, public BudgetedDevice
{
public:
    explicit EntryReader(QuaZip *zip);
    ~EntryReader() override;

    bool open(OpenMode mode) override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    void throwIfOutOfMemory() const;
};

} // namespace BCFLib
