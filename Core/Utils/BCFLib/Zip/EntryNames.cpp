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
    // By way of small letters and capitals, as Qt folds neither "ẞ" to "ß" nor that to "ss".
    const QString letters = name.normalized(QString::NormalizationForm_D).toLower().toUpper().toCaseFolded();
    return letters.normalized(QString::NormalizationForm_D);
}

/// Whether Windows takes the name for a device, as it does with any suffix.
bool isDevice(const QString &name)
{
    const QString stem = name.left(name.indexOf(QLatin1Char('.'))).trimmed().toUpper();
    if (stem.startsWith(QLatin1String("COM")) || stem.startsWith(QLatin1String("LPT"))) {
        return stem.size() == 4 && stem.back().digitValue() >= 0;
    }
    const QStringList others{QStringLiteral("AUX"),     QStringLiteral("CON"), QStringLiteral("CONIN$"),
                             QStringLiteral("CONOUT$"), QStringLiteral("NUL"), QStringLiteral("PRN")};
    return others.contains(stem);
}

/// Whether a name can be unpacked on any system and leads nowhere else there.
bool isHarmless(const QString &name)
{
    // Windows has no names with these; to it "\\" parts folders, and ":" follows a drive.
    const QString forbidden = QStringLiteral("\\:<>\"|?*");
    for (const uint c : name.toUcs4()) {
        // Of two names some systems ignore format characters, and users don't see them.
        const QChar::Category category = QChar::category(c);
        if (category == QChar::Other_Control || category == QChar::Other_Format
            || (c < 0x80 && forbidden.contains(QChar(c)))) {
            return false;
        }
    }
    for (const QString &step : name.split(separator)) {
        // Windows drops dots and blanks at the end. "." and ".." are among these names.
        if (step.isEmpty() || step.back() == QLatin1Char('.') || step.back().isSpace() || isDevice(step)) {
            return false;
        }
    }
    return name.toUtf8().size() <= longestName;
}

/// "a.b" becomes "a7.b".
QString numbered(const QString &name, int number)
{
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return QString(name).insert(dot > 0 ? dot : name.size(), QString::number(number));
}

/// What gets a number where a wish is not granted: the wished name itself, if it can take one.
QString base(const EntryNames::Wish &wish)
{
    const bool canBeNumbered = !wish.name.contains(separator) && isHarmless(wish.name)
        && isHarmless(numbered(wish.name, std::numeric_limits<int>::max()));
    return canBeNumbered ? wish.name : wish.substitute;
}

/// The names that are given away, folded. Not in a hash: names can be chosen such that all hash alike.
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
            const QString name = numbered(base(wishes.at(i)), ++number);
            names[i] = isHarmless(name) && takenNames.take(name) ? name : QString();
        }
    }
    return names;
}

bool EntryNames::areAlike(const QString &name, const QString &other)
{
    return folded(name) == folded(other);
}

} // namespace BCFLib
