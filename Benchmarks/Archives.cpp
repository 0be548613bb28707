#include "Archives.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/BCF_2_0_Component.h>
#include <Core/Utils/BCFLib/BCF_2_0_Viewpoint.h>
#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Component.h>
#include <Core/Utils/BCFLib/Components.h>
#include <Core/Utils/BCFLib/File.h>
#include <Core/Utils/BCFLib/Line.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>
#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <algorithm>

namespace Benchmarks {

namespace {

const QDateTime start(QDate(2023, 3, 6), QTime(8, 30), Qt::UTC);

/// Makes what archives of the field are full of, always in the same way.
class Generator
{
public:
    int below(int bound) { return _random.bounded(bound); }

    QString ofLength(int length, const QByteArray &alphabet)
    {
        QString text;
        for (int i = 0; i < length; ++i) {
            text.append(QLatin1Char(alphabet.at(below(alphabet.size()))));
        }
        return text;
    }

    QString ifcGuid()
    {
        return QString::number(below(4))
            + ofLength(21, "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_$");
    }

    QString guid()
    {
        const QByteArray digits = "0123456789abcdef";
        return ofLength(8, digits) + '-' + ofLength(4, digits) + "-4" + ofLength(3, digits) + "-a"
            + ofLength(3, digits) + '-' + ofLength(12, digits);
    }

    QString text(int words)
    {
        static const QStringList vocabulary =
            QStringLiteral("the duct beam wall crosses opening too low level two check with structure move "
                           "clearance pipe against slab is missing Stütze höher fire rating door grid B-4")
                .split(' ');
        QStringList chosen;
        for (int i = 0; i < words; ++i) {
            chosen.append(vocabulary.at(below(vocabulary.size())));
        }
        return chosen.join(' ');
    }

    QString person() { return QStringLiteral("coordinator%1@example.com").arg(below(12)); }
    QDateTime date() { return start.addSecs(below(60 * 60 * 24 * 365)); }
    double metres() { return _random.generateDouble() * 400 - 200; }

    osg::Vec3d point()
    {
        const double x = metres();
        const double y = metres();
        return {x, y, metres()};
    }

    /// Images and packed models are compressed already: no byte of them can be foretold.
    QByteArray packedFile()
    {
        QByteArray bytes(30000, Qt::Uninitialized);
        std::generate(bytes.begin(), bytes.end(), [this] { return char(below(256)); });
        return bytes;
    }

private:
    QRandomGenerator _random{20230306};
};

/// Three elements in four say where they come from.
void describe(BCFLib::Component *component, Generator &generator)
{
    if (generator.below(4) > 0) {
        component->setOriginatingSystem(generator.below(3) > 0 ? "Structural Modeller 12"
                                                               : "Building Services 2023");
        component->setAuthoringToolId(QString::number(100000 + generator.below(9900000)));
    }
}

/// A tenth is selected, half is hidden, the others are coloured in sixteen colours.
void fillSets(BCFLib::Components *sets, int count, Generator &generator)
{
    QStringList guids;
    for (int i = 0; i < count; ++i) {
        guids.append(generator.ifcGuid());
    }
    sets->setSelectionComponents(guids.mid(0, count / 10));
    sets->setVisibilityExceptionComponents(guids.mid(count / 10, count / 2));
    const int colored = count / 10 + count / 2;
    for (int group = 0; group < 16; ++group) {
        const int from = colored + (count - colored) * group / 16;
        const int to = colored + (count - colored) * (group + 1) / 16;
        sets->addColoringComponents(QColor(255 - group * 16, group * 16, 64), guids.mid(from, to - from));
    }
    for (QObject *child : sets->children()) {
        describe(qobject_cast<BCFLib::Component *>(child), generator);
    }
}

void fillList(BCF_2_0_Lib::Viewpoint *viewpoint, int count, Generator &generator)
{
    for (int i = 0; i < count; ++i) {
        BCF_2_0_Lib::Component *component = viewpoint->addComponent(generator.ifcGuid());
        describe(component, generator);
        component->setSelected(generator.below(10) == 0 ? Tavrin::BooleanTrue : Tavrin::BooleanFalse);
        component->setVisible(generator.below(2) == 0 ? Tavrin::BooleanTrue : Tavrin::BooleanFalse);
        if (generator.below(3) == 0) {
            component->setColor(QStringLiteral("FF%1").arg(generator.below(16) * 4096, 6, 16, QChar('0')));
        }
    }
}

void fillViewpoint(BCFLib::Viewpoint *viewpoint, int position, const Contents &contents, Generator &generator)
{
    // Guids that the generator makes are distinct; asking for them at once would have each looked for.
    viewpoint->setGuid(generator.guid());
    BCFLib::PerspectiveCamera camera;
    camera.cameraViewPoint = generator.point();
    camera.cameraDirection = generator.point();
    camera.cameraUpVector = generator.point();
    camera.fieldOfView = 60;
    viewpoint->setPerspectiveCamera(camera);
    const QString number = position == 0 ? QString() : QString::number(position);
    viewpoint->setViewpointFilename(QStringLiteral("viewpoint%1.bcfv").arg(number));
    if (contents.snapshots) {
        viewpoint->setSnapshot(generator.packedFile());
        viewpoint->setSnapshotFilename(QStringLiteral("snapshot%1.png").arg(number));
    }
    if (BCF_2_0_Lib::Viewpoint *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        fillList(list, contents.components, generator);
    } else {
        fillSets(viewpoint->components(), contents.components, generator);
    }
    for (int i = 0; i < contents.lines; ++i) {
        BCFLib::Line *line = viewpoint->addLine();
        line->setStartPoint(generator.point());
        line->setEndPoint(generator.point());
    }
}

void fillTopic(BCFLib::Topic *topic, const Contents &contents, const QString &folder, Generator &generator)
{
    topic->setTopicType(generator.below(2) == 0 ? "Clash" : "Request");
    topic->setTopicStatus(generator.below(3) == 0 ? "Closed" : "Open");
    topic->setDescription(generator.text(25));
    topic->setLabels({generator.text(1), generator.text(1)});
    topic->setAssignedTo(generator.person());
    QList<BCFLib::Viewpoint *> viewpoints;
    for (int i = 0; i < contents.viewpoints; ++i) {
        viewpoints.append(topic->addViewpoint(QString()));
        fillViewpoint(viewpoints.last(), i, contents, generator);
    }
    QList<BCFLib::Comment *> comments;
    for (int i = 0; i < contents.comments; ++i) {
        BCFLib::Comment *comment = topic->addComment(QString());
        comment->setGuid(generator.guid());
        comment->setAuthor(generator.person());
        comment->setDate(generator.date());
        comment->setComment(generator.text(3 + generator.below(40)));
        if (!viewpoints.isEmpty()) {
            comment->setViewpoint(viewpoints.at(generator.below(viewpoints.size())));
        }
        if (!comments.isEmpty()) {
            comment->setReplyToComment(comments.at(generator.below(comments.size())));
        }
        comments.append(comment);
    }
    for (int i = 0; i < contents.files; ++i) {
        QFile copy(QDir(folder).absoluteFilePath(QStringLiteral("level%1.ifczip").arg(i)));
        copy.open(QIODevice::WriteOnly);
        copy.write(generator.packedFile());
        BCFLib::File *file = topic->addFile();
        file->setIsExternal(false);
        file->setFilename(copy.fileName());
        file->setIfcProject(generator.ifcGuid());
        file->setDate(generator.date());
    }
}

} // namespace

std::vector<Archive> archives()
{
    std::vector<Archive> all;
    for (const int size : {1000, 4000, 16000}) {
        all.push_back({"topics", size, size > 4000, {size, 1, 50, 0, 5, 0, true}});
    }
    for (const QString &version : {QStringLiteral("2.1"), QStringLiteral("2.0")}) {
        const char *family = version == "2.1" ? "components in sets" : "components in a list";
        for (const int size : {10000, 100000, 308000}) {
            all.push_back({family, size, size > 100000, {1, 1, size, 0, 0, 0, false, version}});
        }
    }
    all.push_back({"lines", 80000, true, {1, 1, 0, 80000, 0, 0, false}});
    all.push_back({"comments", 10000, false, {1, 0, 0, 0, 10000, 0, false}});
    all.push_back({"viewpoints", 1000, false, {1, 1000, 500, 0, 0, 0, true}});
    all.push_back({"attachments", 2000, false, {1, 0, 0, 0, 0, 2000, false}});
    return all;
}

QSharedPointer<BCFLib::BCFModel> makeModel(const Contents &contents, const QString &folder)
{
    Generator generator;
    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(contents.version, nullptr);
    for (int i = 0; i < contents.topics; ++i) {
        BCFLib::Topic *topic =
            model->addTopic(generator.text(6), generator.person(), generator.date(), generator.guid());
        fillTopic(topic, contents, folder, generator);
    }
    return model;
}

} // namespace Benchmarks
