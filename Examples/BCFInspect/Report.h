#pragma once

#include <QString>
#include <QStringList>

class QTextStream;

/// A text from a stranger's archive, made safe for a terminal.
///
/// Control characters could move the cursor, recolour the screen or rewrite what stands above, and
/// bidirectional overrides could make a text read as another: each becomes a replacement character.
/// Line ends of all kinds become "\n", tabs become blanks.
QString printable(const QString &text);

/// The same on one line.
QString printableLine(const QString &text);

/// The parts that are there, with commas between them.
QString joined(QStringList parts);

/// A number with its digits in groups, whatever the locale says.
QString countText(qint64 count);

QString yesOrNo(bool value);

class Report;

/// The field "Usable", and if there are @p problems a field for each.
void printVerdict(const QStringList &problems, Report &report);

/// Named values in two columns, no line longer than 80 columns of a terminal.
///
/// Long values wrap with a hanging indent, an absent one is shown as "-". All texts pass through
/// printable(). The stream stays the caller's.
class Report
{
public:
    explicit Report(QTextStream &out);

    /// A heading, underlined with @p underline, and a blank line before all but the first.
    void heading(const QString &text, QChar underline);
    void field(const QString &name, const QString &value);

    /// The fields that follow are part of the last one, until outdent().
    void indent();
    void outdent();

private:
    QTextStream &_out;
    bool _begun = false;
    int _indent = 0;
};
