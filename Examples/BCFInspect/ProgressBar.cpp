#include "ProgressBar.h"

#include "Report.h"

#include <cstdio>
#include <unistd.h>

namespace {

constexpr int barCells = 24;
constexpr int titleCells = 20;

QString shortened(const QString &title)
{
    return title.size() <= titleCells ? title : QStringLiteral("…") + title.right(titleCells - 1);
}

} // namespace

ProgressBar::ProgressBar(const QString &title)
    : _onTerminal(isatty(STDERR_FILENO) == 1)
    , _title(shortened(printableLine(title)))
{
    _time.start();
}

void ProgressBar::addMax(qint64 steps)
{
    _max += steps;
}

void ProgressBar::addSteps(qint64 steps)
{
    _done += steps;
}

void ProgressBar::draw()
{
    if (!_onTerminal) {
        return;
    }
    const int filled = _max > 0 ? static_cast<int>(barCells * _done / _max) : 0;
    const QString bar = QString(filled, QLatin1Char('#')) + QString(barCells - filled, QLatin1Char('.'));
    const QString line = QStringLiteral("%1 [%2] %3 of %4 steps, %5 s")
                             .arg(_title, bar)
                             .arg(_done)
                             .arg(_max)
                             .arg(static_cast<double>(_time.elapsed()) / 1000.0, 0, 'f', 1);
    std::fprintf(stderr, "\r%s", line.toUtf8().constData());
    std::fflush(stderr);
}

void ProgressBar::finish()
{
    draw();
    if (_onTerminal) {
        std::fputc('\n', stderr);
    }
}
