#include "TestArchive.h"

#include <BCF_2_0_Viewpoint.h>
#include <Components.h>
#include <Topic.h>
#include <Version.h>

#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QXmlStreamReader>

namespace {

/// An element as a stream reader tells it; its text is all text below.
struct Element
{
    QString name;
    QXmlStreamAttributes attributes;
    QString text;
    QList<Element> children;

    /// The elements at a path of names, parted by "/".
    QList<Element> all(const QString &path) const
    {
        QList<Element> found;
        for (const Element &child : children) {
            if (child.name == path.section('/', 0, 0)) {
                found += path.contains('/') ? child.all(path.section('/', 1)) : QList<Element>{child};
            }
        }
        return found;
    }
    /// The values at some places: "A" is the text of a child, "A@b" its attribute, "@b" an own one.
    QString tell(const QString &places) const
    {
        QStringList texts;
        for (const QString &place : places.split(' ')) {
            const QString child = place.section('@', 0, 0);
            const Element element = child.isEmpty() ? *this : all(child).value(0);
            if (place.contains('@')) {
                texts.append(element.attributes.value(place.section('@', 1)).toString());
            } else if (!element.all("X").isEmpty()) {
                const QStringList point = element.tell("X Y Z").split('|');
                texts.append(number(point.at(0)) + ' ' + number(point.at(1)) + ' ' + number(point.at(2)));
            } else {
                texts.append(element.text);
            }
        }
        return texts.join('|');
    }
    static QString number(const QString &text) { return QString::number(text.toDouble(), 'g', 15); }
};

void readInto(Element *element, QXmlStreamReader *reader)
{
    while (!reader->atEnd() && reader->readNext() != QXmlStreamReader::EndElement) {
        if (reader->isStartElement()) {
            Element child{reader->qualifiedName().toString(), reader->attributes(), {}, {}};
            readInto(&child, reader);
            element->text += child.text;
            element->children.append(child);
        } else if (reader->isCharacters() && !reader->isWhitespace()) {
            element->text += reader->text();
        }
    }
}

/// The document of a file in an archive, empty if there is none or it is malformed.
Element document(const QString &path, const QString &name)
{
    QXmlStreamReader reader(TestArchive::entry(path, name));
    reader.setNamespaceProcessing(false);
    Element result;
    readInto(&result, &reader);
    return reader.hasError() ? Element() : result;
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
QStringList tellElements(const Element &document, const QString &path, const QString &places)
{
    QStringList lines;
    for (const Element &element : document.all(path)) {
        const QString topic = element.tell("Topic@Guid");
        if (topic.isEmpty() || topic == document.tell("Markup/Topic@Guid")) {
            lines.append(element.tell(places));
        }
    }
    lines.removeAll("");
    return lines;
}

/// How the components of a viewpoint stand in its lists.
QStringList tellComponents(const BCFLib::Viewpoint *viewpoint)
{
    const QString fields = "objectName _originatingSystem _authoringToolId";
    QStringList lines;
    if (const auto *list = qobject_cast<const BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        const QStringList words{"true", "false", ""};
        for (const BCF_2_0_Lib::Component *component : list->components()) {
            lines.append(tell(component, fields + " _color") + '|' + words.at(component->selected()) + '|'
                         + words.at(component->visible()));
        }
        return lines;
    }
    BCFLib::Components *sets = viewpoint->components();
    // The rest of them is coloured.
    return tellAll(sets, "BCFLib::Component", fields)
        << QString("%1 selected, %2 excepted, default %3")
               .arg(sets->getSelectionComponents().size())
               .arg(sets->getVisibilityExceptionComponents().size())
               .arg(sets->getDefaultVisibility() ? "" : "false");
}

/// The same as the file has it.
QStringList tellComponents(const Element &file, bool isListForm)
{
    const QString components = "VisualizationInfo/Components/";
    const QString fields = "@IfcGuid OriginatingSystem AuthoringToolId";
    if (isListForm) {
        QStringList lines =
            tellElements(file, components + "Component", fields + " @Color @Selected @Visible");
        lines.sort();
        return lines;
    }
    const QStringList selected = tellElements(file, components + "Selection/Component", fields);
    const QStringList excepted = tellElements(file, components + "Visibility/Exceptions/Component", fields);
    return selected + excepted + tellElements(file, components + "Coloring/Color/Component", fields)
        << QString("%1 selected, %2 excepted, default %3")
               .arg(selected.size())
               .arg(excepted.size())
               .arg(file.tell(components + "Visibility@DefaultVisibility").remove("true"));
}

QDir corpus()
{
    return QDir(qEnvironmentVariable("BCF_CORPUS_DIR", "/dev/null"), "*.bcf;*.bcfzip", QDir::Name,
                QDir::Files);
}

} // namespace

class TestCorpus : public QObject
{
    Q_OBJECT

private slots:
    void theTreeSaysWhatTheFilesSay_data();
    void theTreeSaysWhatTheFilesSay();
    void theCorpusIsThere();
};

void TestCorpus::theTreeSaysWhatTheFilesSay_data()
{
    QTest::addColumn<QString>("path");

    QTest::newRow("the sample archive") << QFINDTESTDATA("../Examples/Samples/coordination.bcf");
    for (const QFileInfo &file : corpus().entryInfoList()) {
        QTest::newRow(qPrintable(file.fileName())) << file.filePath();
    }
}

void TestCorpus::theTreeSaysWhatTheFilesSay()
{
    QFETCH(QString, path);

    const QSharedPointer<BCFLib::BCFModel> model = TestArchive::load(path);
    const bool isListForm =
        tellElements(document(path, "bcf.version"), "Version", "@VersionId") == QStringList("2.0");
    const QStringList markups =
        TestArchive::entryNames(path).filter(QRegularExpression("^[^/]+/markup\\.bcf$"));
    QCOMPARE(model->topics().size(), markups.size());
    QVERIFY(!markups.isEmpty());
    const auto compare = [](const QObject *object, const Element &file) {
        for (const Rule &rule : rules) {
            if (QString(rule.path).startsWith(file.children.value(0).name + '/')) {
                QCOMPARE(tellAll(object, rule.className, rule.properties),
                         tellElements(file, rule.path, rule.places));
            }
        }
    };
    for (int i = 0; i < markups.size(); ++i) {
        const BCFLib::Topic *topic = model->topics().at(i);
        const Element markup = document(path, markups.at(i));
        compare(topic, markup);
        const QList<Element> viewpoints = markup.all("Markup/Viewpoints");
        for (int j = 0; j < viewpoints.size() && !QTest::currentTestFailed(); ++j) {
            const BCFLib::Viewpoint *viewpoint = topic->viewpoints().at(j);
            const QString folder = markups.at(i).section('/', 0, 0) + '/';
            const Element file = document(path, folder + viewpoints.at(j).tell("Viewpoint"));
            compare(viewpoint, file);
            QCOMPARE(tellComponents(viewpoint), tellComponents(file, isListForm));
            const QString view = file.tell("VisualizationInfo/PerspectiveCamera/FieldOfView");
            const QString scale = file.tell("VisualizationInfo/OrthogonalCamera/ViewToWorldScale");
            QCOMPARE(viewpoint->whichCameraIsSet(), (view.isEmpty() ? 0 : 1) + (scale.isEmpty() ? 0 : 2));
            QCOMPARE(viewpoint->perspectiveCamera().fieldOfView, view.isEmpty() ? -1.0 : view.toDouble());
            QCOMPARE(viewpoint->orthogonalCamera().viewToWorldScale, scale.toDouble());
            const QByteArray *image = topic->snapshot(viewpoint->guid());
            QCOMPARE(image != nullptr ? *image : QByteArray(),
                     TestArchive::entry(path, folder + viewpoints.at(j).tell("Snapshot")));
        }
    }
}

void TestCorpus::theCorpusIsThere()
{
    if (!qEnvironmentVariableIsSet("BCF_CORPUS_DIR")) {
        QSKIP("BCF_CORPUS_DIR names no folder of archives: only the sample archive was tried");
    }
    QVERIFY2(corpus().count() > 30, qPrintable(corpus().path()));
}

QTEST_GUILESS_MAIN(TestCorpus)

#include "TestCorpus.moc"
