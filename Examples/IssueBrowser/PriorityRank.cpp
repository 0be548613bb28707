#include "PriorityRank.h"

#include <QHash>
#include <QRegularExpression>

namespace {

constexpr double unknown = 1e300;

QHash<QString, int> wordRanks()
{
    // English, German, French.
    const char *const lines[] = {
        "critical,urgent,blocker,blocking,immediate,highest,very high,"
        "kritisch,dringend,sofort,sehr hoch,höchste,critique,urgente,bloquant,bloquante,immédiate,très haute",
        "high,major,important,hoch,wichtig,haute,élevée,majeure,importante",
        "medium,normal,moderate,average,mittel,moyenne,normale,modérée",
        "low,minor,niedrig,gering,basse,faible,mineure",
        "lowest,trivial,very low,none,sehr niedrig,sehr gering,keine,très basse,très faible,aucune",
    };
    QHash<QString, int> ranks;
    int rank = 0;
    for (const char *const line : lines) {
        ++rank;
        for (const QString &word : QString::fromUtf8(line).split(QLatin1Char(','))) {
            ranks.insert(word, rank);
        }
    }
    return ranks;
}

} // namespace

double priorityRank(const QString &priority)
{
    static const QHash<QString, int> words = wordRanks();
    static const QRegularExpression number(QStringLiteral("^\\D{0,2}(\\d{1,9}([.,]\\d{1,9})?)(?!\\d)"));

    const QString text = priority.left(40).simplified().toLower();
    if (text.isEmpty()) {
        return 2 * unknown;
    }
    const QRegularExpressionMatch match = number.match(text);
    if (match.hasMatch()) {
        return match.captured(1).replace(QLatin1Char(','), QLatin1Char('.')).toDouble();
    }
    const auto word = words.constFind(text);
    return word != words.constEnd() ? *word : unknown;
}
