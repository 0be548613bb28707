#ifndef BCFLIB_ZIP_ENTRYREADER_H
#define BCFLIB_ZIP_ENTRYREADER_H

#include <quazip/quazipfile.h>

namespace BCFLib {

/// How much the entries of an archive may still bring together, see Limits.
class ReadBudget
{
public:
    explicit ReadBudget(qint64 archiveSize);
    virtual ~ReadBudget();

    void spend(qint64 bytes);
    bool isSpent() const;

private:
    qint64 _bytesLeft;
};

/// The file of an archive, with the budget of its entries.
template<class File>
class Budgeted : public File, public ReadBudget
{
public:
    explicit Budgeted(const QString &path)
        : File(path)
        , ReadBudget(File::size())
    {
    }
};

/// An entry that is read against the budget of its archive, and fails once that is spent.
///
/// Only stored and deflated entries open. The zip library also knows bzip2, which the format does not, and
/// never comes back from a bzip2 stream that ends early.
///
/// Where the zip library lacks memory, std::bad_alloc is thrown: an entry that is there must not pass for one
/// that is broken.
class ArchiveEntry : public QuaZipFile
{
public:
    explicit ArchiveEntry(QuaZip *zip);

    bool open(OpenMode mode) override;

protected:
    qint64 readData(char *data, qint64 maxSize) override;

private:
    void throwIfOutOfMemory() const;

    /// Null where the device of the archive has none.
    ReadBudget *_budget;
};

} // namespace BCFLib

#endif // BCFLIB_ZIP_ENTRYREADER_H
