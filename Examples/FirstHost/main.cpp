// first-host IN OUT: loads an archive in a thread, lists its topics, answers the first one with a comment and
// a view, saves all of it, and prints the topic as JSON. OUT is another file, since IN may hold what no save
// keeps. Docs/ForHosts.md tells the reason of each step.

#include <Core/Utils/BCFLib/BCFLoadingWorker.h>
#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/BCF_2_0_Viewpoint.h>
#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Components.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Version.h>
#include <Core/Utils/BCFLib/Viewpoint.h>
#include <QtCore>
#include <filesystem>
#include <memory>
#include <quazip/quazip.h>
#include <quazip/quazipfile.h>

using Model = QSharedPointer<BCFLib::BCFModel>;

static Model loadInThread(const QString &path)
{
    using BCFLib::BCFLoadingWorker;
    QThread thread;
    QThread *const home = QThread::currentThread();
    QEventLoop loop;
    BCFLoadingWorker worker(path);
    worker.moveToThread(&thread);
    qint64 done = 0;
    qint64 all = 0;
    QObject::connect(&worker, &BCFLoadingWorker::addMaxSig, &loop, [&](qint64 steps) { all += steps; });
    QObject::connect(&worker, &BCFLoadingWorker::addStepsSig, &loop, [&](qint64 steps) {
        done += steps;
        QTextStream(stderr) << "Step " << done << " of " << all << '\n';
    });
    const auto giveAway = [&] {
        worker.model()->moveToThread(home);
        worker.moveToThread(home);
        thread.quit();
    };
    QObject::connect(&worker, &BCFLoadingWorker::loadingFinished, &worker, giveAway, Qt::DirectConnection);
    QObject::connect(&thread, &QThread::started, &worker, &BCFLoadingWorker::doLoad);
    QObject::connect(&thread, &QThread::finished, &loop, &QEventLoop::quit);
    thread.start();
    loop.exec();
    thread.wait();
    return worker.model();
}

/// Reads bcf.version as a load does.
struct VersionFile : BCFLib::Version
{
    using Version::Deserialize;
};

static bool isReadInPart(const QString &path)
{
    QuaZip zip(path);
    if (!zip.open(QuaZip::mdUnzip) || !zip.setCurrentFile("bcf.version")) {
        return false;
    }
    QuaZipFile file(&zip);
    const std::unique_ptr<BCFLib::Version> version(VersionFile::Deserialize(&file));
    return version && !QStringList{"1.0", "2.0", "2.1"}.contains(version->versionId());
}

/// From now on no other load can replace the files that the model attaches.
static bool takeAttachments(const BCFLib::BCFModel &model, const QDir &folder)
{
    QHash<QString, QString> copies;
    for (const BCFLib::Topic *topic : model.topics()) {
        for (BCFLib::File *file : topic->files()) {
            const QString unpacked = file->filename();
            if (file->isExternal() || unpacked.isEmpty()) {
                continue;
            }
            if (!copies.contains(unpacked)) {
                const QString own = QString::number(copies.size());
                const QString copy = folder.filePath(own + '/' + QFileInfo(unpacked).fileName());
                if (!folder.mkpath(own) || !QFile::copy(unpacked, copy)) {
                    return false;
                }
                copies.insert(unpacked, copy);
            }
            file->setFilename(copies.value(unpacked));
        }
    }
    return true;
}

static void answer(BCFLib::Topic *topic, const QString &text, const QByteArray &image)
{
    QSet<QString> taken;
    for (const BCFLib::Viewpoint *viewpoint : topic->viewpoints()) {
        taken << viewpoint->viewpointFilename().toLower() << viewpoint->snapshotFilename().toLower();
    }
    const auto freeName = [&](const QString &base, const QString &suffix) {
        QString name = base + suffix;
        for (int i = 1; taken.contains(name); ++i) {
            name = base + QString::number(i) + suffix;
        }
        return name;
    };
    BCFLib::Viewpoint *const viewpoint = topic->addViewpoint(QString());
    BCFLib::PerspectiveCamera camera;
    camera.cameraViewPoint = osg::Vec3d(2600123.456, 1199456.789, 431.5);
    camera.cameraDirection = osg::Vec3d(0, 1, 0);
    camera.cameraUpVector = osg::Vec3d(0, 0, 1);
    camera.fieldOfView = 60;
    viewpoint->setPerspectiveCamera(camera);
    viewpoint->setSnapshot(image);
    viewpoint->setViewpointFilename(freeName("viewpoint", ".bcfv"));
    viewpoint->setSnapshotFilename(freeName("snapshot", ".png"));

    BCFLib::Comment *const comment = topic->addComment(QString());
    comment->setAuthor("first.host@example.com");
    comment->setDate(QDateTime::currentDateTime());
    comment->setComment(text);
    comment->setViewpoint(viewpoint);
}

static bool save(BCFLib::BCFModel &model, const QString &path)
{
    const QString beside = path + ".part";
    std::error_code error = std::make_error_code(std::errc::io_error);
    if (model.version() && model.errorString().isEmpty() && model.serialize(beside)) {
        std::filesystem::rename(beside.toStdU16String(), path.toStdU16String(), error);
    }
    return !error || (QFile::remove(beside), false);
}

/// The variant form of a topic for Topic::fromQVariant() in a model of version 2.0 (the list form) or 2.1.
static QVariantMap wholeForm(const BCFLib::Topic &topic, bool forListForm)
{
    QVariantMap form = topic.toQVariant().toMap();
    QVariantList viewpoints;
    for (BCFLib::Viewpoint *viewpoint : topic.viewpoints()) {
        QVariantMap map = viewpoint->toQVariant().toMap();
        QVariantMap components = map.value("components").toMap();
        QVariantMap visibility = components.value("visibility").toMap();
        if (auto *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
            if (visibility.value("default_visibility").toBool()) {
                // Elements without a mark stand among the hidden ones, and are not.
                QVariantList hidden;
                for (const BCF_2_0_Lib::Component *element : list->components()) {
                    if (element->visible() == Tavrin::BooleanFalse) {
                        hidden << element->toQVariant();
                    }
                }
                visibility.insert("exceptions", hidden);
            }
        } else {
            visibility.insert("default_visibility", viewpoint->components()->getDefaultVisibility());
            visibility.insert("view_setup_hints", components.take("view_setup_hints"));
        }
        components.insert("visibility", visibility);
        if (!forListForm) {
            QVariantMap colours;
            for (const QVariant &group : components.value("coloring").toList()) {
                colours.insert(group.toMap().value("color").toString(), group.toMap().value("components"));
            }
            components.insert("coloring", colours);
        }
        map.insert("components", components);
        viewpoints << map;
    }
    form.insert("viewpoints", viewpoints);
    return form;
}

static QJsonValue toJson(const QVariant &value, const QString &key = QString())
{
    if (value.userType() == QMetaType::QVariantMap) {
        QJsonObject object;
        const QVariantMap map = value.toMap();
        for (auto it = map.begin(); it != map.end(); ++it) {
            object.insert(it.key(), toJson(it.value(), it.key()));
        }
        return object;
    }
    if (value.userType() == QMetaType::QVariantList) {
        QJsonArray array;
        for (const QVariant &entry : value.toList()) {
            array.append(toJson(entry));
        }
        return array;
    }
    if (value.userType() == QMetaType::QByteArray) {
        return "data:image/png;base64," + QString::fromLatin1(value.toByteArray().toBase64());
    }
    return key.endsWith("date")
        ? QDateTime::fromString(value.toString(), Qt::ISODate).toUTC().toString(Qt::ISODate)
        : QJsonValue::fromVariant(value);
}

int main(int argc, char *argv[])
{
    QCoreApplication::setApplicationName("first-host");
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    const QString in = arguments.value(1);
    const QString out = arguments.value(2);
    if (arguments.size() != 3 || QFileInfo(in) == QFileInfo(out)) {
        QTextStream(stderr) << "Usage: first-host IN OUT, which are two files\n";
        return 2;
    }
    if (isReadInPart(in)) {
        QTextStream(stderr) << "Comments, viewpoints and more of this version are not read.\n";
    }
    const QTemporaryDir folder;
    const Model model = loadInThread(in);
    QString message;
    QString title;
    if (!model->isValid(in, message, title) || model->topics().isEmpty()
        || !takeAttachments(*model, QDir(folder.path()))) {
        QTextStream(stderr) << message << '\n';
        return 1;
    }
    for (const BCFLib::Topic *topic : model->topics()) {
        QTextStream(stderr) << topic->title() << ", " << topic->creationAuthor() << '\n';
    }
    BCFLib::Topic *const topic = model->topics().first();
    answer(topic, "Seen from here it fits.", QByteArray::fromBase64("iVBORw0KGgr/AIB/"));
    const QVariantMap form = wholeForm(*topic, BCFLib::BCFModel::isBCF_2_0(model.data()));
    QTextStream(stdout) << QJsonDocument(toJson(form).toObject()).toJson();
    return save(*model, out) ? 0 : 1;
}
