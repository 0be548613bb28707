#include "JsonWriter.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Topic.h>

#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

namespace {

QJsonValue toJson(const QVariant &value);

QJsonObject toJsonObject(const QVariantMap &map)
{
    QJsonObject object;
    for (QVariantMap::const_iterator it = map.cbegin(); it != map.cend(); ++it) {
        object.insert(it.key(), toJson(it.value()));
    }
    return object;
}

QJsonArray toJsonArray(const QVariantList &list)
{
    QJsonArray array;
    for (const QVariant &value : list) {
        array.append(toJson(value));
    }
    return array;
}

/// The only bytes in the variant form are those of snapshots.
QJsonValue toDataUrl(const QByteArray &image)
{
    return QLatin1String("data:image/png;base64,") + QString::fromLatin1(image.toBase64());
}

QJsonValue toJson(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QVariantMap:
        return toJsonObject(value.toMap());
    case QMetaType::QVariantList:
        return toJsonArray(value.toList());
    case QMetaType::QByteArray:
        return toDataUrl(value.toByteArray());
    default:
        return QJsonValue::fromVariant(value);
    }
}

} // namespace

void writeJson(const BCFLib::BCFModel &model, QIODevice &out)
{
    const char *separator = "[";
    for (const BCFLib::Topic *topic : model.topics()) {
        out.write(separator);
        out.write(QJsonDocument(toJsonObject(topic->toQVariant().toMap())).toJson(QJsonDocument::Compact));
        separator = ",";
    }
    out.write(model.topics().isEmpty() ? "[]\n" : "]\n");
}
