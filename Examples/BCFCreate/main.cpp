// bcf-create OUT: makes an archive with one topic, saves it, loads it again and asks for a verdict.

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Components.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>
#include <Core/Utils/QtCoreTools/ProgressionSignals.h>

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QImage>
#include <QTextStream>

static QByteArray picture(Qt::GlobalColor color)
{
    QImage image(160, 120, QImage::Format_RGB32);
    image.fill(color);
    QBuffer png;
    image.save(&png, "PNG");
    return png.data();
}

static QSharedPointer<BCFLib::BCFModel> createModel()
{
    QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(nullptr);
    // An empty guid asks for a fresh one, here and below.
    BCFLib::Topic *const topic = model->addTopic("Duct runs through beam", "maria.lindqvist@example.com",
                                                 QDateTime::currentDateTime(), QString());

    // The first viewpoint of a topic and its first snapshot get their file names by themselves.
    BCFLib::Viewpoint *const viewpoint = topic->addViewpoint(QString());
    BCFLib::PerspectiveCamera camera;
    camera.cameraViewPoint = osg::Vec3d(-1.5, -3.2, 5.4);
    camera.cameraDirection = osg::Vec3d(0.58, 0.68, -0.45);
    camera.cameraUpVector = osg::Vec3d(0.29, 0.34, 0.89);
    camera.fieldOfView = 60.0;
    viewpoint->setPerspectiveCamera(camera);
    viewpoint->components()->setSelectionComponents({"0BTBFw6f90Nfh9rP1dl_3A"});
    viewpoint->setSnapshot(picture(Qt::red));

    // All others have none, and are not saved before the host gives them some.
    BCFLib::Viewpoint *const close = topic->addViewpoint(QString());
    camera.cameraViewPoint = osg::Vec3d(-0.2, -1.1, 4.3);
    close->setPerspectiveCamera(camera);
    close->setSnapshot(picture(Qt::blue));
    close->setViewpointFilename("viewpoint1.bcfv");
    close->setSnapshotFilename("snapshot1.png");

    BCFLib::Comment *const comment = topic->addComment(QString());
    comment->setAuthor("maria.lindqvist@example.com");
    comment->setDate(QDateTime::currentDateTime());
    comment->setComment("Who moves, the duct or the beam?");
    comment->setViewpoint(close);
    return model;
}

int main(int argc, char *argv[])
{
    QTextStream out(stdout);
    if (argc != 2) {
        out << "Usage: bcf-create OUT\n";
        return 2;
    }
    const QString path = QFile::decodeName(argv[1]);
    if (!createModel()->serialize(path)) {
        out << "Can't save " << path << '\n';
        return 1;
    }
    QString message;
    QString title;
    const bool usable =
        BCFLib::BCFModel::Deserialize(path, Tavrin::ProgressionSignals())->isValid(path, message, title);
    out << path << (usable ? " is usable\n" : " is not usable: " + message + '\n');
    return usable ? 0 : 1;
}
