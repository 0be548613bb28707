#include "TestArchive.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QThread>
#include <dlfcn.h>
#include <functional>
#include <zlib.h>

using namespace BCFLib;

namespace {

using Damage = std::function<void(QByteArray *)>;

/// What unpacking has taken.
struct Spent
{
    qint64 entries = 0;
    qint64 packed = 0;
    qint64 unpacked = 0;
};

Spent spent;

/// Overwrites a number of an entry in the archive's directory and, two bytes nearer to its start, in the
/// header in front of the entry. Places are counted in the directory's record.
Damage entryField(const QByteArray &name, int place, quint32 value, int width)
{
    return [=](QByteArray *zip) {
        const int header = zip->indexOf(name) - 30;
        const int record = zip->lastIndexOf(name) - 46;
        for (int i = 0; i < width; ++i) {
            const char byte = static_cast<char>(value >> (8 * i));
            (*zip)[record + place + i] = byte;
            if (place < 28) {
                (*zip)[header + place - 2 + i] = byte;
            }
        }
    };
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// A viewpoint file with one line, and elements beside it that are nested so deep.
QByteArray nested(int depth, const QByteArray &start = QByteArray())
{
    const QByteArray point = "<X>0</X><Y>0</Y><Z>0</Z>";
    return start + "<VisualizationInfo><Lines><Line><StartPoint>" + point + "</StartPoint><EndPoint>" + point
        + "</EndPoint></Line></Lines>" + QByteArray("<a>").repeated(depth)
        + QByteArray("</a>").repeated(depth) + "</VisualizationInfo>";
}

QByteArray attributes(int count)
{
    QByteArray text;
    for (int i = 0; i < count; ++i) {
        text += " a" + QByteArray::number(i) + "=''";
    }
    return text;
}

/// Reading of a version file is for the model alone.
class VersionDoor : public Version
{
public:
    using Version::Deserialize;
};

/// Whether a viewpoint takes a file that holds one line, or reads a long one to its end, asked in a thread
/// with a small stack.
bool isRead(const QByteArray &file)
{
    bool isTaken = false;
    QThread *thread = QThread::create([&file, &isTaken] {
        Viewpoint viewpoint("v", nullptr);
        QBuffer buffer;
        buffer.setData(file);
        viewpoint.deserialize(&buffer);
        isTaken = viewpoint.lines().size() == 1 || (file.size() > 1 << 20 && buffer.atEnd());
    });
    thread->setStackSize(512 * 1024);
    thread->start();
    thread->wait();
    delete thread;
    return isTaken;
}

} // namespace

Q_DECLARE_METATYPE(Damage)
Q_DECLARE_METATYPE(Spent)

// These take the place of the zip library's own.
#define REPLACED extern "C" __attribute__((visibility("default")))

REPLACED int inflateInit2_(z_streamp stream, int windowBits, const char *version, int size)
{
    static auto *const own = reinterpret_cast<decltype(&inflateInit2_)>(dlsym(RTLD_NEXT, "inflateInit2_"));
    ++spent.entries;
    return own(stream, windowBits, version, size);
}

REPLACED int inflate(z_streamp stream, int flush)
{
    static auto *const own = reinterpret_cast<decltype(&inflate)>(dlsym(RTLD_NEXT, "inflate"));
    spent.packed += stream->avail_in;
    spent.unpacked += stream->avail_out;
    const int result = own(stream, flush);
    spent.packed -= stream->avail_in;
    spent.unpacked -= stream->avail_out;
    return result;
}

class TestHostileArchives : public QObject
{
    Q_OBJECT

private slots:
    void damagedArchives_data();
    void damagedArchives();
    void brokenImage();
    void archivesThatTakeTooMuch_data();
    void archivesThatTakeTooMuch();
    void xmlFiles_data();
    void xmlFiles();
    void texts_data();
    void texts();
    void namesThatLeaveTheCache_data();
    void namesThatLeaveTheCache();
    void brokenArchivesOfTools();
};

void TestHostileArchives::damagedArchives_data()
{
    QTest::addColumn<Damage>("damage");
    QTest::addColumn<int>("topics");

    const QByteArray bad = "bad/markup.bcf";
    QTest::newRow("nothing is wrong") << Damage([](QByteArray *) {}) << 2;
    QTest::newRow("an entry claims four gigabytes") << entryField(bad, 24, 0xFFFFFFF0, 4) << 2;
    QTest::newRow("an entry's stream stops early") << entryField(bad, 20, 20, 4) << 1;
    QTest::newRow("an entry's stream goes on behind the file") << entryField(bad, 20, 0x7FFFFFFF, 4) << 1;
    QTest::newRow("an entry's checksum is wrong") << entryField(bad, 16, 0xDEADBEEF, 4) << 2;
    QTest::newRow("an entry is said to be encrypted") << entryField(bad, 8, 1, 2) << 2;
    QTest::newRow("an entry has an unknown method") << entryField(bad, 10, 99, 2) << 1;
    QTest::newRow("an entry has a stream of bzip2 that breaks off") << Damage([bad](QByteArray *zip) {
        entryField(bad, 10, 12, 2)(zip);
        entryField(bad, 20, 10, 4)(zip);
        zip->replace(zip->indexOf(bad) + bad.size(), 10, "BZh91AY&SY");
    }) << 1;
    QTest::newRow("two entries share their bytes") << entryField(bad, 42, 0, 4) << 1;
    QTest::newRow("the directory lies outside of the file")
        << Damage([](QByteArray *zip) { zip->replace(zip->size() - 6, 4, "\x7F\x7F\x7F\x7F"); }) << 0;
    QTest::newRow("the directory is missing") << Damage([](QByteArray *zip) { zip->chop(150); }) << 0;
}

void TestHostileArchives::damagedArchives()
{
    QFETCH(Damage, damage);
    QFETCH(int, topics);

    TestArchive archive;
    archive.addTopic("<Title>good</Title>").add("bad/markup.bcf", "<Markup><Topic Guid='bad'/></Markup>");
    QByteArray zip = TestArchive::file(archive.write());
    damage(&zip);
    writeFile(archive.path(), zip);
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    QCOMPARE(model->topics().size(), topics);
    QCOMPARE(model->isValid(), false);
    QVERIFY(model->serialize(archive.path("saved.bcf")));
}

void TestHostileArchives::brokenImage()
{
    QByteArray image(400000, '\0');
    QRandomGenerator(5).generate(image.begin(), image.end());
    TestArchive archive;
    archive.addTopic("", "<Viewpoints Guid='v'><Snapshot>i.png</Snapshot></Viewpoints>")
        .add("t/i.png", image);
    QByteArray zip = TestArchive::file(archive.write());
    entryField("t/i.png", 20, 300000, 4)(&zip);
    writeFile(archive.path(), zip);
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    const QByteArray kept = *model->topic("t")->snapshot("v");
    QVERIFY2(kept.size() > 250000 && image.startsWith(kept), "what came before the break is kept");
}

void TestHostileArchives::archivesThatTakeTooMuch_data()
{
    QTest::addColumn<QByteArray>("inside");
    QTest::addColumn<int>("times");
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<Spent>("most");

    const QByteArray image = "<Viewpoints Guid='%1'><Snapshot>file</Snapshot></Viewpoints>";
    const QByteArray viewpoint = "<Viewpoints Guid='%1'><Viewpoint>file</Viewpoint></Viewpoints>";
    const qint64 mega = 1 << 20;
    QTest::newRow("bytes") << image << 40 << QByteArray(20 * mega, '\0') << Spent{20, 1 * mega, 290 * mega};
    QTest::newRow("packed bytes that unpack to nothing")
        << image << 1000 << QByteArray() << Spent{60, 5 * mega, mega};
    QTest::newRow("texts that take three times the bytes in memory")
        << viewpoint << 40
        << "<?xml version='1.0' encoding='windows-1252'?><V>" + QByteArray(mega, '\x80').repeated(20)
        << Spent{8, mega, 97 * mega};
    QTest::newRow("entries") << viewpoint << 150000 << QByteArray("<V/>")
                             << Spent{75000, 2 * mega, 20 * mega};
    QTest::newRow("elements") << QByteArray("<Comment/>") << 3000000 << QByteArray()
                              << Spent{3, mega, 40 * mega};
    QTest::newRow("attributes") << QByteArray("<x a='' b='' c=''/>") << 750000 << QByteArray()
                                << Spent{3, mega, 40 * mega};
}

void TestHostileArchives::archivesThatTakeTooMuch()
{
    QFETCH(QByteArray, inside);
    QFETCH(int, times);
    QFETCH(QByteArray, file);
    QFETCH(Spent, most);

    QByteArray rest;
    for (int i = 0; i < times; ++i) {
        rest += inside.contains('%') ? QByteArray(inside).replace("%1", QByteArray::number(i)) : inside;
    }
    // Bytes that can't be packed leave room for blocks of nothing.
    QByteArray noise(file.isEmpty() ? 90000 : 0, '\0');
    QRandomGenerator(5).generate(noise.begin(), noise.end());
    TestArchive archive;
    archive.addTopic("<Title>a</Title>", rest).add("t/file", file + noise);
    archive.add("u/markup.bcf", "<Markup><Topic Guid='u'/></Markup>");
    QByteArray zip = TestArchive::file(archive.write());
    if (file.isEmpty()) {
        const QByteArray nothing = QByteArray::fromHex("0208208000").repeated(noise.size() / 5);
        zip.replace(zip.indexOf("t/file") + 6, nothing.size(), nothing);
        writeFile(archive.path(), zip);
    }
    spent = Spent();
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    QVERIFY2(
        spent.entries <= most.entries && spent.packed <= most.packed && spent.unpacked <= most.unpacked,
        qPrintable(
            QString("%1 entries, %2 bytes to %3").arg(spent.entries).arg(spent.packed).arg(spent.unpacked)));
    QCOMPARE(model->topic("u"), nullptr);
    QVERIFY(!model->isValid() && !model->errorString().isEmpty());
}

void TestHostileArchives::xmlFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<bool>("read");

    QTest::newRow("as deep as may be") << nested(99) << true;
    QTest::newRow("one deeper") << nested(100) << false;
    QTest::newRow("ten million deep") << nested(10000000) << false;
    QTest::newRow("257 megabytes") << nested(1) + QByteArray(257 << 20, ' ') << false;
    // In an element that is packed, where they take little memory.
    const auto inLine = [](const QByteArray &inside) {
        const QByteArray others = QByteArray("<Line/>").repeated(500);
        return nested(1).replace("</Lines>", others + "<Line>" + inside + "</Line></Lines>");
    };
    const QByteArray references = QByteArray("&e;").repeated(11000000);
    QTest::newRow("eleven million references to nothing") << inLine(references) << false;

    const auto addDocumentType = [](const char *name, const QByteArray &type, bool isRead) {
        QTest::newRow(name) << nested(1, "<!DOCTYPE a " + type + ">").replace("</a>", "&e;</a>") << isRead;
    };
    addDocumentType("a document type elsewhere", "SYSTEM 'file:///etc/passwd'", true);
    addDocumentType("declared elements", "[<!ELEMENT a ((a|b)*,(c?))> <!-- ' -->]", true);
    addDocumentType("a million groups in a declared element", "[<!ELEMENT a " + QByteArray(1000000, '('),
                    false);
    addDocumentType("entities that grow", "[<!ENTITY f 'xxx'><!ENTITY e '&f;&f;'>]", false);
    addDocumentType("an entity that is a file", "[<!ENTITY e SYSTEM 'file:///etc/passwd'>]", false);
    addDocumentType("a parameter entity", "[<!ENTITY % p SYSTEM 'file:///etc/passwd'> %p;]", false);
    addDocumentType("declared attributes", "[<!ATTLIST a b CDATA #IMPLIED c ID #REQUIRED>]", true);
    addDocumentType("default attributes", "[<!ATTLIST a b CDATA 'c'>]", false);

    QTest::newRow("more attributes than any element has")
        << nested(1).replace("<a>", "<a" + attributes(300) + ">") << false;
    QTest::newRow("a tag of nearly a megabyte")
        << nested(1).replace("<a>", "<a b='" + QByteArray(1000000, 'x') + "'>") << true;
    QTest::newRow("a longer one") << nested(1).replace("<a>", "<a b='" + QByteArray(1100000, 'x') + "'>")
                                  << false;
    QTest::newRow("an attribute twice") << nested(1).replace("<a>", "<a b='' b=''>") << false;
    QTest::newRow("a text behind the root") << nested(1) + "a\x1A" << false;
    QTest::newRow("deep in an encoding of its own")
        << "<?xml version='1.0' encoding='UTF-7'?>" + nested(200).replace('<', "+ADw-").replace('>', "+AD4-")
        << false;
}

void TestHostileArchives::xmlFiles()
{
    QFETCH(QByteArray, file);
    QFETCH(bool, read);

    QCOMPARE(isRead(file), read);
}

/// Texts but for those that are expected stand for the bytes that they are in Latin-1.
void TestHostileArchives::texts_data()
{
    addRows("Loading/texts.json");
}

void TestHostileArchives::texts()
{
    QFETCH(QVariantMap, row);

    const auto bytes = [&row](const char *key) { return row[key].toString().toLatin1(); };
    QByteArray content = "<Version><DetailedVersion>" + bytes("inside") + "</DetailedVersion></Version>";
    if (row.contains("encoding")) {
        content.prepend(" \n<?xml version='1.0'" + QByteArray(900, ' ') + "encoding='" + bytes("encoding")
                        + "'?>");
    }
    QByteArray file = bytes("mark");
    for (const char c : content + bytes("behind")) {
        file += QByteArray(row.value("width", 1).toInt(), '\0').replace(row["place"].toInt(), 1, &c, 1);
    }
    // Wherever it stands against the blocks in which a file is read.
    const bool isMovable = file.startsWith("<V");
    for (int i = isMovable ? 16200 : 0; i <= (isMovable ? 16384 : 0); ++i) {
        QBuffer buffer;
        buffer.setData(isMovable ? "<!--" + QByteArray(i, ' ') + "-->" + file : file);
        const QScopedPointer<Version> version(VersionDoor::Deserialize(&buffer));
        QCOMPARE(version == nullptr ? QString() : version->detailedVersion(), row["text"].toString());
    }
}

/// {up} leads to the folder of the secret.
void TestHostileArchives::namesThatLeaveTheCache_data()
{
    addRows("Loading/names-that-leave-the-cache.json");
}

void TestHostileArchives::namesThatLeaveTheCache()
{
    QFETCH(QVariantMap, row);

    QString name = row["entry"].toString();
    TestArchive archive;
    const QDir outside = QFileInfo(archive.path()).dir();
    writeFile(outside.filePath("secret.txt"), "secret");
    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    QDir(cache).removeRecursively();
    QVERIFY(QDir().mkpath(cache.filePath("folder")));
    QVERIFY(QFile::link(outside.filePath("secret.txt"), cache.filePath("link")));
    QVERIFY(QFile::link(outside.filePath("nothing"), cache.filePath("dangling")));
    QVERIFY(QFile::link(outside.path(), cache.filePath("outside")));
    name.replace("{up}", cache.relativeFilePath(outside.path()) + '/').replace("{..}", "../");
    name.replace("{root}", outside.path() + '/').replace("{name}", outside.dirName());
    // A step up that survives the removal of all steps up.
    const QString disguised = QString(name).replace("../", "....//");
    archive.add(name, "hostile")
        .addTopic("<Title>a</Title>",
                  "<Header><File isExternal='false'><Filename>" + disguised.toUtf8()
                      + "</Filename></File></Header>");
    const QSharedPointer<BCFModel> model = archive.load();
    QCOMPARE(model->errorString(), QString("Can't write in cache path \"%1\"").arg(cache.absolutePath()));
    QCOMPARE(TestArchive::file(outside.filePath("secret.txt")), QByteArray("secret"));
    QVERIFY(!outside.exists("nothing") && !outside.exists("new.txt"));

    // Nor does what lies outside get into an archive that is saved all the same.
    QCOMPARE(model->serialize(outside.filePath("saved.bcf")), false);
    for (const QString &entry : TestArchive::entryNames(outside.filePath("saved.bcf"))) {
        QVERIFY(TestArchive::entry(outside.filePath("saved.bcf"), entry) != "secret");
    }
}

void TestHostileArchives::brokenArchivesOfTools()
{
    const QString corpus = qEnvironmentVariable("BCF_CORPUS_DIR");
    if (corpus.isEmpty()) {
        QSKIP("BCF_CORPUS_DIR names no folder of archives");
    }
    // All of them take minutes.
    const int places = qEnvironmentVariableIsSet("BCF_THOROUGH") ? 200 : 10;
    TestArchive scratch;
    QRandomGenerator random(1);
    const auto tryOut = [&scratch](const QByteArray &bytes) {
        writeFile(scratch.path(), bytes);
        const QSharedPointer<BCFModel> model = TestArchive::load(scratch.path());
        model->isValid();
        model->serialize(scratch.path("saved.bcf"));
    };
    for (QDirIterator files(corpus, {"*.bcf", "*.bcfzip"}); files.hasNext();) {
        const QByteArray whole = TestArchive::file(files.next());
        for (int i = 0; i < places; ++i) {
            tryOut(whole.left(static_cast<int>(qint64(whole.size()) * i / places)));
            QByteArray changed = whole;
            changed[random.bounded(changed.size())] = static_cast<char>(random.bounded(256));
            tryOut(changed);
        }
    }
}

QTEST_GUILESS_MAIN(TestHostileArchives)

#include "TestHostileArchives.moc"
