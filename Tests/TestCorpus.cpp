#include "TestArchive.h"

#include <QDomDocument>

using namespace BCFLib;

namespace {

/// The elements at a path of names below another, parted by "/".
QList<QDomElement> elements(const QDomNode &parent, const QString &path)
{
    QList<QDomElement> found;
    const QString name = path.section('/', 0, 0);
    for (QDomElement child = parent.firstChildElement(name); !child.isNull();
         child = child.nextSiblingElement(name)) {
        found += path.contains('/') ? elements(child, path.section('/', 1)) : QList<QDomElement>{child};
    }
    return found;
}

/// The values at some places of an element: "A" is the text of a child, "A@b" its attribute, "@b" an own one.
QString tell(const QDomNode &parent, const QString &places)
{
    const auto number = [](const QDomElement &e) { return QString::number(e.text().toDouble(), 'g', 15); };
    QStringList texts;
    for (const QString &place : places.split(' ')) {
        const QString child = place.section('@', 0, 0);
        const QDomElement element = child.isEmpty() ? parent.toElement() : elements(parent, child).value(0);
        if (place.contains('@')) {
            texts.append(element.attribute(place.section('@', 1)));
        } else if (!element.firstChildElement("X").isNull()) {
            texts.append(number(element.firstChildElement("X")) + ' ' + number(element.firstChildElement("Y"))
                         + ' ' + number(element.firstChildElement("Z")));
        } else {
            texts.append(element.text());
        }
    }
    return texts.join('|');
}

/// A file of an archive as Qt's own parser reads it; empty if there is none or it is malformed.
QDomDocument document(const QString &path, const QString &name)
{
    QDomDocument result;
    result.setContent(TestArchive::entry(path, name));
    return result;
}

/// What the elements at a path say, and the objects of a class.
struct Rule
{
    const char *path;
    const char *places;
    const char *className;
    const char *properties;
};

const Rule rules[] = {
    {"Markup/Topic", "@Guid @TopicType @TopicStatus Title Description CreationAuthor AssignedTo",
     "BCFLib::Topic", "objectName _topicType _topicStatus _title _description _creationAuthor _assignedTo"},
    {"Markup/Header/File", "@IfcProject Reference", "BCFLib::File", "_ifcProject _reference"},
    {"Markup/Topic/RelatedTopics", "@Guid", "BCFLib::RelatedTopic", "_guid"},
    {"Markup/Viewpoints", "@Guid Viewpoint", "BCFLib::Viewpoint", "objectName _viewpointFilename"},
    {"Markup/Comment", "@Guid Author Comment Viewpoint@Guid ReplyToComment@Guid", "BCFLib::Comment",
     "objectName _author _comment _viewpoint _replyToComment"},
    {"VisualizationInfo/Lines/Line", "StartPoint EndPoint", "BCFLib::Line", "_startPoint _endPoint"},
    {"VisualizationInfo/ClippingPlanes/ClippingPlane", "Location Direction", "BCFLib::ClippingPlane",
     "_location _direction"},
    {"VisualizationInfo/Bitmaps", "Reference Location Normal Up", "BCFLib::Bitmap",
     "_reference _location _normal _up"},
};

/// What the elements at a path say, as far as they say anything and are not about another topic.
QStringList tellElements(const QDomDocument &document, const QString &path, const QString &places)
{
    QStringList lines;
    for (const QDomElement &element : elements(document, path)) {
        const QString topic = tell(element, "Topic@Guid");
        if (topic.isEmpty() || topic == tell(document, "Markup/Topic@Guid")) {
            lines.append(tell(element, places));
        }
    }
    lines.removeAll("");
    return lines;
}

/// What the file of a viewpoint says of its components, in any order.
QStringList tellComponents(const QDomDocument &file, bool isListForm)
{
    const QString components = "VisualizationInfo/Components/";
    const QStringList places = isListForm
        ? QStringList{"Component"}
        : QStringList{"Selection/Component", "Visibility/Exceptions/Component", "Coloring/Color/Component"};
    QStringList lines;
    for (const QString &place : places) {
        lines += tellElements(file, components + place, "@IfcGuid OriginatingSystem AuthoringToolId");
    }
    lines.sort();
    return lines;
}

} // namespace

class TestCorpus : public QObject
{
    Q_OBJECT

private slots:
    void theTreeSaysWhatTheFilesSay_data();
    void theTreeSaysWhatTheFilesSay();
    void saves_data() { theTreeSaysWhatTheFilesSay_data(); }
    void saves();

private:
    QSharedPointer<BCFModel> load(const QString &path) const;

    QTemporaryDir _folder;
};

void TestCorpus::theTreeSaysWhatTheFilesSay_data()
{
    QTest::addColumn<QString>("path");

    QFileInfoList archives = QDir(QFINDTESTDATA("../Examples/Samples")).entryInfoList({"*.bcf"});
    if (!qEnvironmentVariableIsSet("BCF_CORPUS_DIR")) {
        qWarning("BCF_CORPUS_DIR names no folder of archives: only the samples are tried");
    } else {
        const QDir corpus(qEnvironmentVariable("BCF_CORPUS_DIR"));
        archives += corpus.entryInfoList({"*.bcf", "*.bcfzip"});
        QVERIFY2(archives.size() > 30, qPrintable(corpus.path()));
    }
    for (const QFileInfo &archive : qAsConst(archives)) {
        QTest::newRow(qPrintable(archive.completeBaseName())) << archive.filePath();
    }
}

void TestCorpus::theTreeSaysWhatTheFilesSay()
{
    QFETCH(QString, path);

    const QSharedPointer<BCFModel> model = TestArchive::load(path);
    const bool isListForm =
        tellElements(document(path, "bcf.version"), "Version", "@VersionId") == QStringList("2.0");
    const QStringList markups =
        TestArchive::entryNames(path).filter(QRegularExpression("^[^/]+/markup\\.bcf$"));
    QCOMPARE(model->topics().size(), markups.size());
    QVERIFY(!markups.isEmpty());
    const auto compare = [](const QObject *object, const QDomDocument &file) {
        for (const Rule &rule : rules) {
            if (QString(rule.path).startsWith(file.documentElement().tagName() + '/')) {
                QCOMPARE(tellAll(object, rule.className, rule.properties),
                         tellElements(file, rule.path, rule.places));
            }
        }
    };
    for (int i = 0; i < markups.size(); ++i) {
        const Topic *topic = model->topics().at(i);
        const QDomDocument markup = document(path, markups.at(i));
        compare(topic, markup);
        const QList<QDomElement> viewpoints = elements(markup, "Markup/Viewpoints");
        for (int j = 0; j < viewpoints.size() && !QTest::currentTestFailed(); ++j) {
            const Viewpoint *viewpoint = topic->viewpoints().at(j);
            const QString folder = markups.at(i).section('/', 0, 0) + '/';
            const QDomDocument file = document(path, folder + tell(viewpoints.at(j), "Viewpoint"));
            compare(viewpoint, file);
            QStringList components =
                tellAll(viewpoint, "BCFLib::Component", "objectName _originatingSystem _authoringToolId");
            components.sort();
            QCOMPARE(components, tellComponents(file, isListForm));
            const QString view = tell(file, "VisualizationInfo/PerspectiveCamera/FieldOfView");
            const QString scale = tell(file, "VisualizationInfo/OrthogonalCamera/ViewToWorldScale");
            QCOMPARE(viewpoint->whichCameraIsSet(), (view.isEmpty() ? 0 : 1) + (scale.isEmpty() ? 0 : 2));
            QCOMPARE(viewpoint->perspectiveCamera().fieldOfView, view.isEmpty() ? -1.0 : view.toDouble());
            QCOMPARE(viewpoint->orthogonalCamera().viewToWorldScale, scale.toDouble());
            const QByteArray *image = topic->snapshot(viewpoint->guid());
            QCOMPARE(image != nullptr ? *image : QByteArray(),
                     TestArchive::entry(path, folder + tell(viewpoints.at(j), "Snapshot")));
        }
    }
}

QSharedPointer<BCFModel> TestCorpus::load(const QString &path) const
{
    const QSharedPointer<BCFModel> model = TestArchive::load(path);
    if (!QFileInfo(path).fileName().startsWith("3.0")) {
        return model;
    }
    // Read into one family of classes and saved as 2.0, it is read into the other from then on.
    model->serialize(_folder.filePath("2.0.bcf"));
    return TestArchive::load(_folder.filePath("2.0.bcf"));
}

void TestCorpus::saves()
{
    QFETCH(QString, path);

    const QString saved = _folder.filePath("saved.bcf");
    const QString again = _folder.filePath("again.bcf");
    const QSharedPointer<BCFModel> model = load(path);
    QVERIFY(!model->topics().isEmpty());
    for (File *file : model->findChildren<File *>()) {
        // The load stopped at a file that could not be unpacked.
        file->setIsExternal(file->isExternal() || !QFile::exists(file->filename()));
    }
    QVERIFY(model->serialize(saved));
    const QSharedPointer<BCFModel> loaded = TestArchive::load(saved);
    for (int i = 0; i < model->topics().size(); ++i) {
        // The load names the first image of a topic, which may take the name of another. That one is saved
        // under a free name.
        QSet<QString> names{QString()};
        const QList<Viewpoint *> all = model->topics().at(i)->viewpoints();
        for (int j = 0; j < all.size(); ++j) {
            if (names.contains(all.at(j)->snapshotFilename())) {
                all.at(j)->setSnapshotFilename(
                    loaded->topics().at(i)->viewpoints().at(j)->snapshotFilename());
            }
            names.insert(all.at(j)->snapshotFilename());
        }
    }
    QCOMPARE(dump(loaded.data()), dump(model.data()));

    QVERIFY(loaded->serialize(again));
    const QStringList names = TestArchive::entryNames(saved);
    QCOMPARE(TestArchive::entryNames(again), names);
    for (const QString &name : names) {
        QVERIFY2(TestArchive::entry(again, name) == TestArchive::entry(saved, name), qPrintable(name));
    }

    QCOMPARE(TestArchive::complaints(saved), QString());
}

QTEST_GUILESS_MAIN(TestCorpus)

#include "TestCorpus.moc"
