#ifndef BCFLIB_STOREDDATE_H
#define BCFLIB_STOREDDATE_H

#include <QDateTime>
#include <QString>

#include <utility>

namespace BCFLib {

/// A date of a record, as a host has set it or as it stands in a file.
///
/// Dates of files are given out in local time. They are turned into it when they are asked for: it takes
/// longer than all else that is done with a date, and most are never asked for.
class StoredDate
{
public:
    /// No date.
    StoredDate() = default;
    /// A date that is given out as it is. Not explicit, so that a record takes one like any other value.
    StoredDate(QDateTime date) // NOLINT(google-explicit-constructor)
        : _date(std::move(date))
    {
    }

    /// The date that an ISO text of a file tells; invalid if it tells none.
    static StoredDate fromFile(const QString &text)
    {
        StoredDate result(QDateTime::fromString(text, Qt::ISODate));
        result._isOfFile = true;
        return result;
    }

    /// The date for a host: in local time if it comes from a file, else as it was set.
    QDateTime value() const { return _isOfFile ? _date.toLocalTime() : _date; }
    /// The same moment as a file is to tell it.
    QDateTime inUtc() const { return _date.toUTC(); }
    /// Whether there is a date; a text that tells none leaves an invalid one.
    bool isValid() const { return _date.isValid(); }

private:
    QDateTime _date;
    bool _isOfFile = false;
};

} // namespace BCFLib

#endif // BCFLIB_STOREDDATE_H
