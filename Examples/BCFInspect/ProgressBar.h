#pragma once

#include <QElapsedTimer>
#include <QString>

/// The progress of one load, as a line that is drawn over itself on stderr.
///
/// Draws nothing where stderr is no terminal, so that a log file or a pipe stays clean.
class ProgressBar
{
public:
    explicit ProgressBar(const QString &title);

    void addMax(qint64 steps);
    void addSteps(qint64 steps);

    void draw();
    /// Draws the last state and leaves it on a line of its own.
    void finish();

private:
    const bool _onTerminal;
    const QString _title;
    QElapsedTimer _time;
    qint64 _max = 0;
    qint64 _done = 0;
};
