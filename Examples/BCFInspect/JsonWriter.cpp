#include "JsonWriter.h"

#include "Archive.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Project.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Version.h>

#include <QDateTime>
#include <QIODevice>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QVariant>

namespace {

QJsonValue toJson(const QVariant &value);

/// An invalid date is an empty text.
QString toUtc(const QString &date)
{
    return QDateTime::fromString(date, Qt::ISODate).toUTC().toString(Qt::ISODate);
}

QJsonObject toJsonObject(const QVariantMap &map)
{
    QJsonObject object;
    for (QVariantMap::const_iterator it = map.cbegin(); it != map.cend(); ++it) {
        const bool isDate = it.key().endsWith(QLatin1String("date"));
        object.insert(it.key(), isDate ? toUtc(it.value().toString()) : toJson(it.value()));
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

QJsonValue textOrNull(const QString &text)
{
    return text.isNull() ? QJsonValue() : QJsonValue(text);
}

QJsonValue toJson(const BCFLib::Version *version)
{
    if (version == nullptr) {
        return QJsonValue();
    }
    return QJsonObject{{QStringLiteral("version_id"), version->versionId()},
                       {QStringLiteral("detailed_version"), version->detailedVersion()}};
}

QByteArray compact(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

void writeJson(const Archive &archive, QIODevice &out)
{
    const BCFLib::Project *const project = archive.model->project();
    const QByteArray head = compact({
        {QStringLiteral("path"), archive.path},
        {QStringLiteral("written_version"), textOrNull(archive.file.version)},
        {QStringLiteral("version"), toJson(archive.model->version())},
        {QStringLiteral("project"), project ? toJson(project->toQVariant()) : QJsonValue()},
        {QStringLiteral("usable"), archive.usable},
        {QStringLiteral("title"), archive.title},
        {QStringLiteral("message"), archive.message},
        {QStringLiteral("error"), archive.model->errorString()},
        {QStringLiteral("problems"), QJsonArray::fromStringList(archive.problems())},
        {QStringLiteral("warnings"), QJsonArray::fromStringList(archive.warnings())},
    });
    // The topics are the last member, written one by one.
    out.write(head.left(head.size() - 1) + ",\"topics\":[");
    const char *separator = "";
    for (const BCFLib::Topic *topic : archive.model->topics()) {
        out.write(separator);
        out.write(compact(toJsonObject(topic->toQVariant().toMap())));
        separator = ",";
    }
    out.write("]}\n");
}
