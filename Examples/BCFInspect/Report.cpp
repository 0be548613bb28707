#include "Report.h"

#include <QLocale>
#include <QTextStream>
#include <QVector>

#include <cwchar>

namespace {

constexpr int lineColumns = 80;
constexpr int nameColumns = 14;
constexpr int indentColumns = 2;

bool isLineEnd(QChar c)
{
    return c == QLatin1Char('\n') || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
}

bool changesDirection(QChar c)
{
    const ushort code = c.unicode();
    return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

/// Columns of the terminal that a character takes: two for a wide one, none for a combining one.
int columns(char32_t character)
{
    const int width = wcwidth(static_cast<wchar_t>(character));
    return width < 0 ? 1 : width;
}

int columns(const QString &text)
{
    int sum = 0;
    for (const char32_t character : text.toUcs4()) {
        sum += columns(character);
    }
    return sum;
}

/// Cuts a word that is longer than a line, such as a link, into pieces that fit.
QStringList pieces(const QString &word, int width)
{
    QStringList result;
    QString piece;
    int used = 0;
    for (const char32_t character : word.toUcs4()) {
        const int more = columns(character);
        if (used + more > width) {
            result << piece;
            piece.clear();
            used = 0;
        }
        piece += QString::fromUcs4(&character, 1);
        used += more;
    }
    return result << piece;
}

QStringList wrapped(const QString &paragraph, int width)
{
    QStringList lines;
    QString line;
    int used = 0;
    for (const QString &word : paragraph.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        for (const QString &piece : pieces(word, width)) {
            const int more = columns(piece);
            if (!line.isEmpty() && used + 1 + more > width) {
                lines << line;
                line.clear();
                used = 0;
            }
            if (!line.isEmpty()) {
                line += QLatin1Char(' ');
                ++used;
            }
            line += piece;
            used += more;
        }
    }
    return lines << line;
}

QStringList linesOf(const QString &text, int width)
{
    QStringList lines;
    for (const QString &paragraph : printable(text).trimmed().split(QLatin1Char('\n'))) {
        lines << wrapped(paragraph, width);
    }
    return lines;
}

QString blanks(int count)
{
    return QString(qMax(0, count), QLatin1Char(' '));
}

} // namespace

QString printable(const QString &text)
{
    QString result = text;
    result.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    for (QChar &c : result) {
        if (isLineEnd(c) || c == QLatin1Char('\r')) {
            c = QLatin1Char('\n');
        } else if (c == QLatin1Char('\t')) {
            c = QLatin1Char(' ');
        } else if (c.category() == QChar::Other_Control || changesDirection(c)) {
            c = QChar::ReplacementCharacter;
        }
    }
    return result;
}

QString printableLine(const QString &text)
{
    return printable(text).simplified();
}

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

QString countText(qint64 count)
{
    return QLocale(QLocale::English).toString(count);
}

QString yesOrNo(bool value)
{
    return value ? QStringLiteral("yes") : QStringLiteral("no");
}

void printVerdict(const QStringList &problems, Report &report)
{
    report.field(QStringLiteral("Usable"), yesOrNo(problems.isEmpty()));
    for (const QString &problem : problems) {
        report.field(QStringLiteral("Problem"), problem);
    }
}

Report::Report(QTextStream &out)
    : _out(out)
{
}

void Report::heading(const QString &text, QChar underline)
{
    if (_begun) {
        _out << '\n';
    }
    _begun = true;
    int width = 0;
    for (const QString &line : wrapped(printableLine(text), lineColumns)) {
        _out << line << '\n';
        width = qMax(width, columns(line));
    }
    _out << QString(width, underline) << '\n';
}

void Report::field(const QString &name, const QString &value)
{
    const int hang = _indent + nameColumns;
    const QString shown = value.trimmed().isEmpty() ? QStringLiteral("-") : value;
    QString start = blanks(_indent) + name;
    start += blanks(qMax(1, hang - start.size()));
    for (const QString &line : linesOf(shown, lineColumns - hang)) {
        // Nothing after the last word, so that a blank line of a text is an empty one here too.
        _out << (line.isEmpty() ? QString() : start + line) << '\n';
        start = blanks(hang);
    }
}

void Report::indent()
{
    _indent += indentColumns;
}

void Report::outdent()
{
    _indent -= indentColumns;
}
