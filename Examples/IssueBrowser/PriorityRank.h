#pragma once

class QString;

/// Where a priority stands among others, the most urgent first: numbers by value ("P2", "10", "1 - high"),
/// the usual words of several languages from 1 for critical to 5 for the least, other texts behind them,
/// and none at the end.
double priorityRank(const QString &priority);
