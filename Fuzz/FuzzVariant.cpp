#include "Exercise.h"

#include <Topic.h>

#include <QJsonDocument>
#include <QVariant>
#include <sanitizer/lsan_interface.h>

namespace {

QVariant fromJson(const QByteArray &json)
{
    // Qt's parser leaks the first of two values under one key.
    const __lsan::ScopedDisabler noLeaksHere;
    return QJsonDocument::fromJson(json).toVariant();
}

} // namespace

/// The input is the variant form of a topic as JSON, in which any value may stand under any key.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QVariant form = fromJson(json);
    if (!form.isValid()) {
        return 0;
    }
    for (const QString &version : {QStringLiteral("2.0"), QStringLiteral("2.1")}) {
        const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(version, nullptr);
        BCFLib::Topic topic(form, model.data());
        topic.fromQVariant(topic.toQVariant());
        topic.removeFiles();
        topic.setGuid(QStringLiteral("t"));
        const QSharedPointer<BCFLib::BCFModel> reloaded = Exercise::everything(model.data());
        Exercise::require(reloaded == nullptr || reloaded->topics().size() == 1);
    }
    return 0;
}
