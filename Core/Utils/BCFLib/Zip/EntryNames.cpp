#include "EntryNames.h"

#include <algorithm>
#include <limits>
#include <set>

namespace BCFLib {

namespace {

/// What file systems take.
constexpr int longestName = 255;

const QChar separator = QLatin1Char('/');

QString folded(const QString &name)
{
    // By way of capitals, as "ß" is "SS" then.
    const QString letters = name.normalized(QString::NormalizationForm_D).toUpper().toCaseFolded();
    return letters.normalized(QString::NormalizationForm_D);
}

bool isHarmful(QChar c)
{
    // A backslash parts folders and a colon follows a drive on some systems.
    return c == QLatin1Char('\\') || c == QLatin1Char(':') || c.category() == QChar::Other_Control;
}

bool isHarmless(const QString &name)
{
    if (name.toUtf8().size() > longestName || std::any_of(name.begin(), name.end(), isHarmful)) {
        return false;
    }
    const QStringList steps = name.split(separator);
    // Dots and blanks at the end are dropped by some systems; "." and ".." are among these names.
    return std::none_of(steps.begin(), steps.end(), [](const QString &step) {
        return step.isEmpty() || step.back() == QLatin1Char('.') || step.back().isSpace();
    });
}

/// "a.b" becomes "a7.b".
QString numbered(const QString &name, int number)
{
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return QString(name).insert(dot > 0 ? dot : name.size(), QString::number(number));
}

/// What a wish that can't be is replaced by, apart from the number.
QString pattern(const EntryNames::Wish &wish)
{
    const bool canBeNumbered = !wish.name.contains(separator) && isHarmless(wish.name)
        && isHarmless(numbered(wish.name, std::numeric_limits<int>::max()));
    return canBeNumbered ? wish.name : wish.substitute;
}

/// The names that are given away, folded. No hash: names can be chosen such that all hash alike.
class TakenNames
{
public:
    /// False if the name is given away already.
    bool take(const QString &name)
    {
        const QString file = folded(name);
        QStringList folders;
        for (int i = file.indexOf(separator); i >= 0; i = file.indexOf(separator, i + 1)) {
            folders.append(file.left(i));
        }
        const auto isFile = [this](const QString &folder) { return _files.count(folder) > 0; };
        if (_folders.count(file) > 0 || std::any_of(folders.begin(), folders.end(), isFile)
            || !_files.insert(file).second) {
            return false;
        }
        _folders.insert(folders.begin(), folders.end());
        return true;
    }

private:
    std::set<QString> _files;
    std::set<QString> _folders;
};

} // namespace

QStringList EntryNames::distinct(const QVector<Wish> &wishes, const QStringList &taken)
{
    TakenNames takenNames;
    for (const QString &name : taken) {
        takenNames.take(name);
    }
    QStringList names;
    for (const Wish &wish : wishes) {
        const bool isGranted = isHarmless(wish.name) && takenNames.take(wish.name);
        names.append(isGranted ? wish.name : QString());
    }
    // One number for all, so that no name is tried in vain more than once.
    int number = 0;
    for (int i = 0; i < wishes.size(); ++i) {
        while (names.at(i).isEmpty() && !wishes.at(i).substitute.isEmpty()) {
            const QString name = numbered(pattern(wishes.at(i)), ++number);
            names[i] = takenNames.take(name) ? name : QString();
        }
    }
    return names;
}

bool EntryNames::areAlike(const QString &name, const QString &other)
{
    return folded(name) == folded(other);
}

} // namespace BCFLib
