#pragma once

#include <QDateTime>
#include <QString>
#include <QVariantMap>
#include <functional>

/// Helpers shared by all conversions to and from variants.
namespace BCFLib::Variants {

/// A text or a list.
template<class T>
void insertIfNotEmpty(QVariantMap &map, const QString &key, const T &value)
{
    if (!value.isEmpty()) {
        map.insert(key, value);
    }
}

/// What @p form gives for each of @p objects.
template<class T, class Form>
QVariantList formsOf(const QList<T *> &objects, const Form &form)
{
    QVariantList forms;
    forms.reserve(objects.size());
    for (const T *object : objects) {
        forms.append(std::invoke(form, object));
    }
    return forms;
}

/// The list that a value holds. Of a text, which Qt 6 takes for a list of characters, nothing.
inline QVariantList toList(const QVariant &value)
{
    const bool isText = value.userType() == QMetaType::QString || value.userType() == QMetaType::QByteArray;
    return isText ? QVariantList() : value.toList();
}

/// Dates keep the time zone that they are in, to whole seconds.
inline QString fromDate(const QDateTime &date)
{
    return date.toString(Qt::ISODate);
}

inline QDateTime toDate(const QVariant &value)
{
    return QDateTime::fromString(value.toString(), Qt::ISODate);
}

} // namespace BCFLib::Variants
