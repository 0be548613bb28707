#include "Boolean.h"

namespace Tavrin {

namespace {

bool isNumber(int type)
{
    switch (type) {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Float:
    case QMetaType::Double:
        return true;
    default:
        return false;
    }
}

bool isWord(const QString &trimmed, QLatin1String word)
{
    return trimmed.compare(word, Qt::CaseInsensitive) == 0;
}

}

bool toBool(Boolean value)
{
    return value == BooleanTrue;
}

bool toBool(const QString &text)
{
    return toBool(toBoolean(text));
}

Boolean toBoolean(bool value)
{
    return value ? BooleanTrue : BooleanFalse;
}

Boolean toBoolean(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (isWord(trimmed, QLatin1String("true")) || trimmed == QLatin1String("1")) {
        return BooleanTrue;
    }
    if (isWord(trimmed, QLatin1String("false")) || trimmed == QLatin1String("0")) {
        return BooleanFalse;
    }
    return BooleanUnset;
}

Boolean fromVariant(const QVariant &variant)
{
    if (variant.isNull()) {
        return BooleanUnset;
    }
    const int type = variant.userType();
    if (type == qMetaTypeId<Boolean>()) {
        return variant.value<Boolean>();
    }
    if (type == QMetaType::Bool) {
        return toBoolean(variant.toBool());
    }
    if (type == QMetaType::QString) {
        return toBoolean(variant.toString());
    }
    if (isNumber(type)) {
        return toBoolean(variant.toDouble() != 0.0);
    }
    return BooleanUnset;
}

}
