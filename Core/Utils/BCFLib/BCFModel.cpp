#include "BCFModel.h"

#include "DOMXml.h"
#include "Project.h"
#include "Topic.h"
#include "Tree/GuidIndex.h"
#include "Tree/Owners.h"
#include "Tree/Search.h"
#include "Version.h"

#include <Core/Utils/Utility/NewId.h>

namespace BCFLib {

BCFModel::BCFModel(QObject *parent)
    : QObject(parent)
{
}

BCFModel::~BCFModel() = default;

bool BCFModel::event(QEvent *event)
{
    Owners::event(this, event);
    return QObject::event(event);
}

QSharedPointer<BCFModel> BCFModel::Create(const QString &version, QObject *parent)
{
    QSharedPointer<BCFModel> model(new BCFModel(parent));
    model->createVersion(version);
    return model;
}

QSharedPointer<BCFModel> BCFModel::Create(QObject *parent)
{
    return Create(QString(), parent);
}

QString BCFModel::currentBCFVersion()
{
    return QStringLiteral("2.1");
}

bool BCFModel::isBCF_1_0(const QString &version)
{
    return version == QLatin1String("1.0");
}

bool BCFModel::isBCF_2_0(const QString &version)
{
    return version == QLatin1String("2.0");
}

bool BCFModel::isBCF_2_0(QObject *object)
{
    return isBCF_2_0(getVersion(object));
}

QString BCFModel::getVersion(QObject *object)
{
    for (const QObject *current = object; current != nullptr; current = current->parent()) {
        if (const BCFModel *model = qobject_cast<const BCFModel *>(current)) {
            const Version *version = model->version();
            return version != nullptr ? version->versionId() : QString();
        }
    }
    return QString();
}

int BCFModel::numberPrecision()
{
    return Tavrin::DOMXml::numberPrecision();
}

Version *BCFModel::version() const
{
    return Search::first<Version>(this);
}

Version *BCFModel::addVersion()
{
    return new Version(this);
}

Version *BCFModel::createVersion(const QString &version)
{
    const bool is2_0 = isBCF_2_0(version);
    Version *record = addVersion();
    record->setVersionId(is2_0 ? version : currentBCFVersion());
    record->setDetailedVersion(is2_0 ? QStringLiteral("2.0 RC") : currentBCFVersion());
    return record;
}

Project *BCFModel::project() const
{
    return Search::first<Project>(this);
}

Project *BCFModel::addProject(const QString &guid)
{
    if (guid.isEmpty()) {
        return new Project(Tavrin::NewId(), this);
    }
    delete Search::firstWhere<Project>(this,
                                       [&guid](const Project *record) { return record->guid() == guid; });
    return new Project(guid, this);
}

QList<Topic *> BCFModel::topics() const
{
    return Search::all<Topic>(this);
}

Topic *BCFModel::topic(const QString &guid) const
{
    return GuidIndex::find<Topic>(this, guid, &_topicIndex);
}

Topic *BCFModel::addTopic(const QString &title, const QString &creationAuthor, const QDateTime &creationDate,
                          const QString &guid)
{
    return new Topic(title, creationAuthor, creationDate, guid, this);
}

void BCFModel::removeTopic(const QString &guid)
{
    delete topic(guid);
}

bool BCFModel::isValid() const
{
    QString message;
    QString title;
    return isValid(QString(), message, title);
}

bool BCFModel::isValid(const QString &filename, QString &message, QString &title) const
{
    title = tr("Error");
    const Version *record = version();
    if (record == nullptr || !record->isValid()) {
        message = tr("Invalid bcf version for \"%1\" file").arg(filename);
        return false;
    }
    if (!_errorString.isEmpty()) {
        message = _errorString;
        return false;
    }
    const QList<Topic *> all = topics();
    if (all.isEmpty()) {
        message = tr("\"%1\" file have no topics in it").arg(filename);
        title = tr("Warning");
        return true;
    }
    for (const Topic *topic : all) {
        if (!topic->isValid()) {
            const QString name = topic->title().isEmpty() ? topic->guid() : topic->title();
            message = tr("Invalid file \"%1\" because of topic \"%2\"").arg(filename, name);
            return false;
        }
    }
    return true;
}

} // namespace BCFLib
