#include "Exercise.h"

#include <Topic.h>

#include <Core/Utils/QtCoreTools/ProgressionSignals.h>
#include <QCoreApplication>
#include <QTemporaryDir>
#include <log4cplus/logger.h>

namespace {

/// Goes with the program.
const QTemporaryDir &scratch()
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/bcf-fuzz-XXXXXX"));
    return folder;
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    // Never deleted, as what Qt keeps for it is gone when static objects go.
    static const QCoreApplication *const application = new QCoreApplication(*argc, *argv);
    Q_UNUSED(application)
    qputenv("XDG_CACHE_HOME", scratch().path().toUtf8());
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    log4cplus::Logger::getRoot().setLogLevel(log4cplus::OFF_LOG_LEVEL);
    return 0;
}

QString Exercise::scratchPath(const QString &name)
{
    return scratch().filePath(name);
}

QSharedPointer<BCFLib::BCFModel> Exercise::load(const QString &path)
{
    return BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals(nullptr));
}

QSharedPointer<BCFLib::BCFModel> Exercise::everything(BCFLib::BCFModel *model)
{
    QString message;
    QString title;
    require(model->isValid(QStringLiteral("a"), message, title) == model->isValid());

    const QString path = scratchPath(QStringLiteral("saved.bcf"));
    const bool isSaved = model->serialize(path);
    const QSharedPointer<BCFLib::BCFModel> reloaded = load(path);
    require(!isSaved || model->version() == nullptr || reloaded->version() != nullptr);

    for (BCFLib::Topic *topic : model->topics()) {
        const QVariant form = topic->toQVariant();
        require(BCFLib::Topic(form, model).guid() == topic->guid() || topic->guid().isEmpty());
        topic->fromQVariant(form);
    }
    return isSaved ? reloaded : QSharedPointer<BCFLib::BCFModel>();
}
