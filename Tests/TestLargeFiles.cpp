#include "TestArchive.h"

#include <QDomDocument>
#include <malloc.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace BCFLib;

namespace {

/// What comes of some work in a process that may take only so much more memory.
int outcomeWithin(qint64 kilobytes, const std::function<int()> &work)
{
    return outcomeOf([&] {
        const qint64 pages = TestArchive::file("/proc/self/statm").split(' ').value(5).toLongLong();
        const auto bytes = static_cast<rlim_t>(pages * sysconf(_SC_PAGESIZE) + kilobytes * 1024);
        const rlimit limit{bytes, bytes};
        return setrlimit(RLIMIT_DATA, &limit) == 0 ? work() : 4;
    });
}

/// A file in which an element of that path, as in "Markup/Topic", holds this.
QByteArray fileWith(const QByteArray &path, const QByteArray &inside)
{
    QByteArray file = inside;
    const QList<QByteArray> names = path.split('/');
    for (auto name = names.rbegin(); name != names.rend(); ++name) {
        file = '<' + *name + '>' + file + "</" + *name + '>';
    }
    return file;
}

/// An element for each number of five digits from 10000 on, which %1 stands for.
QByteArray numbered(const QByteArray &element, int count, const QByteArray &afterEachTenth = QByteArray())
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += QByteArray(element).replace("%1", QByteArray::number(10000 + i));
        text += i % 10 == 0 ? afterEachTenth : QByteArray();
    }
    return text;
}

void addFile(TestArchive *archive, const QByteArray &file)
{
    file.startsWith("<Markup>") ? archive->add("t/markup.bcf", file) : archive->addViewpoint(file);
}

} // namespace

/// What a load does with files that hold more of a kind than others do, and with the memory for it.
class TestLargeFiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    // First, as what others have freed would serve in place of new memory.
    void memoryIsThatOfTheTree_data() { addRows("Large/memory.json"); }
    void memoryIsThatOfTheTree();
    void savesTakeLittleMemory();
    void savesThatNobodyCouldRead();
    void manyElements_data() { addRows("Large/elements.json"); }
    void manyElements();
    void longListsAreSavedAsShortOnesAre();
    void hostsThatLookIntoDocuments();
    void documentsThatRefuseNames();
};

void TestLargeFiles::initTestCase()
{
    // Large blocks go back to the system at once, not to the loads that are measured.
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
}

namespace {

const QByteArray element = "<Component IfcGuid='0123456789abcdefg%1'><OriginatingSystem>s</OriginatingSystem>"
                           "<AuthoringToolId>%1</AuthoringToolId></Component>";

} // namespace

void TestLargeFiles::memoryIsThatOfTheTree()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers take memory of their own");
#endif
    QFETCH(QVariantMap, row);

    constexpr int count = 50000;
    TestArchive archive(row["version"].toString());
    addFile(&archive, fileWith(row["path"].toByteArray(), numbered(row["element"].toByteArray(), count)));
    const QString name = archive.write();
    // Objects take more memory in Qt 6.
    const double perByte = QT_VERSION < QT_VERSION_CHECK(6, 0, 0) ? 1.0 : 1.6;
    const qint64 tree = qint64(perByte * row["bytes"].toInt() * count / 1024);
    const auto load = [&name] { return TestArchive::load(name)->errorString().isEmpty() ? 0 : 1; };
    QCOMPARE(outcomeWithin(1024 + tree + tree / 4, load), 0);
}

void TestLargeFiles::manyElements()
{
    QFETCH(QVariantMap, row);

    const QString version = row["version"].toString();
    const QByteArray className = row["class"].toByteArray();
    const QString properties = row["properties"].toString();
    const QByteArray element = row["element"].toByteArray();
    const int count = 1500;
    const QByteArray others =
        "text<!-- --><?Component x?><?Line?>&nothing;<Other a='&nothing;'>" + element + "</Other>";
    const QByteArray file = fileWith(row["path"].toByteArray(), numbered(element, count, others));
    TestArchive archive(version);
    addFile(&archive, file);
    QStringList all;
    for (int i = 0; i < count; ++i) {
        all.append(row["expected"].toString().replace("%1", QString::number(10000 + i)));
    }
    QCOMPARE(tellAll(archive.load().data(), className, properties), all);

    TestArchive malformed(version);
    addFile(&malformed, file.chopped(1));
    QCOMPARE(tellAll(malformed.load().data(), className, properties), QStringList());
}

namespace {

/// A model with so many of each kind that stands in lists.
QSharedPointer<BCFModel> modelWith(const QString &version, int count)
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(version, nullptr);
    Topic *topic = model->addTopic("T", "A", QDateTime(QDate(2024, 1, 1), QTime()), "t");
    BCFLib::Viewpoint *viewpoint = topic->addViewpoint("v");
    auto *list = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint);
    QStringList guids;
    for (int i = 0; i < count; ++i) {
        guids.append(QString::number(10000 + i) + "<&");
        topic->addComment(guids.last())->setComment("c");
        viewpoint->addLine();
        viewpoint->addClippingPlane();
        viewpoint->addBitmap()->setReference("r");
        if (list != nullptr) {
            list->addComponent(guids.last())->setOriginatingSystem("s");
        }
    }
    viewpoint->BCFLib::Viewpoint::components()->setSelectionComponents(guids);
    return model;
}

} // namespace

void TestLargeFiles::savesTakeLittleMemory()
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    QSKIP("The sanitizers take memory of their own");
#endif
    constexpr int count = 10000;
    const TestArchive archive;
    const QSharedPointer<BCFModel> model = modelWith("2.0", count);
    const auto save = [&] { return model->serialize(archive.path()) ? 0 : 1; };
    QCOMPARE(outcomeWithin(1024 + 5 * count * 200 / 1024, save), 0);
}

void TestLargeFiles::savesThatNobodyCouldRead()
{
    constexpr int mega = 1 << 20;
    const TestArchive archive;
    const QSharedPointer<BCFModel> model = modelWith("2.1", 1);
    Topic *topic = model->topics().first();
    const auto check = [&](const std::function<void(int)> &set, int most) {
        set(most + most / 200);
        QVERIFY(!model->serialize(archive.path()));
        set(most);
        QVERIFY(model->serialize(archive.path()));
        set(1);
    };
    // In a file each of these takes six bytes.
    check([=](int count) { topic->setTopicType(QString(count, '"')); }, 256 * mega / 6 - mega / 6);
    check([=](int count) { topic->viewpoint("v")->setSnapshot(QByteArray(count, '\0')); }, 256 * mega);
    // Of labels the archive as a whole can hold fewer than a file.
    check([=](int count) { topic->setLabels(QVector<QString>(count, "a").toList()); }, 2250000);
    QCOMPARE(TestArchive::load(archive.path())->topic("t")->labels().size(), 2250000);
}

void TestLargeFiles::longListsAreSavedAsShortOnesAre()
{
    const auto save = [](const char *version, int count) {
        const TestArchive archive;
        modelWith(version, count)->serialize(archive.path());
        return TestArchive::entry(archive.path(), "t/markup.bcf")
            + TestArchive::entry(archive.path(), "t/viewpoint.bcfv");
    };
    const auto lines = [](const QByteArray &file) {
        const QStringList all = QString(file).replace(QRegularExpression("\\d{5}&lt;"), "#").split('\n');
        return QSet<QString>(all.begin(), all.end());
    };
    for (const char *version : {"2.1", "2.0"}) {
        const QByteArray file = save(version, 1500);
        QCOMPARE(lines(file), lines(save(version, 3)));
        for (const char *tag : {"<Comment Guid", "<Line>", "<ClippingPlane>", "<Bitmaps>", "<Component "}) {
            QCOMPARE(file.count(tag), 1500);
        }
        QVERIFY(file.lastIndexOf("10201&lt;") < file.lastIndexOf("11499&lt;"));
    }
}

namespace {

/// A viewpoint that counts the elements of a file and reads others.
class HostViewpoint : public BCF_2_0_Lib::Viewpoint
{
public:
    using BCF_2_0_Lib::Viewpoint::Viewpoint;

    int elements = 0;

protected:
    void readComponents(QDomElement &root) override
    {
        elements = root.firstChildElement("Components").childNodes().size();
        QDomDocument other;
        other.setContent(
            QByteArray("<a><Components><?Component x?><Component IfcGuid='a'/></Components></a>"));
        QDomDocument copy;
        QDomElement otherRoot = copy.importNode(other.documentElement(), true).toElement();
        BCF_2_0_Lib::Viewpoint::readComponents(otherRoot);
    }
    void writeComponents(QDomDocument &document, QDomElement &root) override
    {
        BCF_2_0_Lib::Viewpoint::writeComponents(document, root);
        elements = root.elementsByTagName("Component").size();
    }
};

} // namespace

void TestLargeFiles::hostsThatLookIntoDocuments()
{
    HostViewpoint viewpoint("v", nullptr);
    readViewpoint(&viewpoint, fileWith("Components", numbered(element, 600)));
    QCOMPARE(viewpoint.elements, 600);
    QCOMPARE(viewpoint.components().size(), 1);
    for (int i = 0; i < 599; ++i) {
        viewpoint.addComponent(QString::number(i));
    }
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    viewpoint.serialize(&device);
    QCOMPARE(viewpoint.elements, 600);
}

void TestLargeFiles::documentsThatRefuseNames()
{
    // A strict document takes no runs, whose names are none.
    BCF_2_0_Lib::Viewpoint viewpoint("v", nullptr);
    QDomImplementation::setInvalidDataPolicy(QDomImplementation::ReturnNullNode);
    readViewpoint(&viewpoint, fileWith("Components", numbered(element, 600)));
    // Those of Qt 5 take nothing beyond U+FFFF either. Such a file is refused as a whole.
    BCF_2_0_Lib::Viewpoint other("w", nullptr);
    readViewpoint(&other,
                  "<Components><Component IfcGuid='g'><AuthoringToolId>&#x1F525;</AuthoringToolId>"
                  "</Component></Components>");
    QDomImplementation::setInvalidDataPolicy(QDomImplementation::AcceptInvalidChars);
    QCOMPARE(viewpoint.components().size(), 600);
    QCOMPARE(other.components().size(), QT_VERSION_MAJOR > 5 ? 1 : 0);
}

QTEST_GUILESS_MAIN(TestLargeFiles)

#include "TestLargeFiles.moc"
