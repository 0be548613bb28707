#include "TestArchive.h"

#include <QRandomGenerator>
#include <QThread>
#include <dlfcn.h>
#include <zlib.h>

using namespace BCFLib;

namespace {

/// What unpacking has taken.
struct Spent
{
    qint64 entries = 0;
    qint64 packed = 0;
    qint64 unpacked = 0;
};

Spent spent;

/// Overwrites a number of an entry in the archive's directory and, two bytes nearer to its
/// start, in the header in front of the entry. Places are counted in the directory's record.
void setField(QByteArray *zip, const QByteArray &name, int place, quint32 value, int width)
{
    const int header = zip->indexOf(name) - 30;
    const int record = zip->lastIndexOf(name) - 46;
    for (int i = 0; i < width; ++i) {
        const char byte = static_cast<char>(value >> (8 * i));
        (*zip)[record + place + i] = byte;
        if (place < 28) {
            (*zip)[header + place - 2 + i] = byte;
        }
    }
}

void writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

/// The bytes of a text in Latin-1, in which "{3*ab#}" stands for "ab0ab1ab2".
QByteArray expanded(const QVariant &text)
{
    QByteArray bytes;
    const QRegularExpression repetition("\\{(\\d+)\\*([^}]*)\\}|[^{]+");
    for (auto found = repetition.globalMatch(text.toString()); found.hasNext();) {
        const QRegularExpressionMatch match = found.next();
        const QByteArray inside = match.captured(2).toLatin1();
        const int times = match.captured(1).toInt();
        bytes += times == 0 ? match.captured().toLatin1() : inside.repeated(inside.contains('#') ? 0 : times);
        for (int i = 0; i < times && inside.contains('#'); ++i) {
            bytes += QByteArray(inside).replace("#", QByteArray::number(i));
        }
    }
    return bytes;
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
    void damagedArchives_data() { addRows("Loading/damages.json"); }
    void damagedArchives();
    void brokenImage();
    /// What was read of each in the end, in megabytes.
    void archivesThatTakeTooMuch_data() { addRows("Loading/too-much.json"); }
    void archivesThatTakeTooMuch();
    void xmlFiles_data() { addRows("Loading/documents.json"); }
    void xmlFiles();
    /// Texts but for those that are expected stand for the bytes that they are in Latin-1.
    void texts_data() { addRows("Loading/texts.json"); }
    void texts();
    /// {up} leads to the folder of the secret.
    void namesThatLeaveTheCache_data() { addRows("Loading/names-that-leave-the-cache.json"); }
    void namesThatLeaveTheCache();
};

void TestHostileArchives::damagedArchives()
{
    QFETCH(QVariantMap, row);

    const QByteArray bad = "bad/markup.bcf";
    TestArchive archive;
    archive.addTopic("<Title>good</Title>").add(bad, "<Markup><Topic Guid='bad'/></Markup>");
    QByteArray zip = TestArchive::file(archive.write());
    for (const QVariant &field : row["fields"].toList()) {
        const QVariantList numbers = field.toList();
        setField(&zip, bad, numbers[0].toInt(), numbers[1].toUInt(), numbers[2].toInt());
    }
    const QByteArray content = row["content"].toByteArray();
    zip.replace(zip.indexOf(bad) + bad.size(), content.size(), content);
    const QByteArray place = row["placeOfDirectory"].toByteArray();
    zip.replace(zip.size() - 6, place.size(), place);
    zip.chop(row["missing"].toInt());
    writeFile(archive.path(), zip);
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    QCOMPARE(model->topics().size(), row["topics"].toInt());
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
    setField(&zip, "t/i.png", 20, 300000, 4);
    writeFile(archive.path(), zip);
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    const QByteArray kept = *model->topic("t")->snapshot("v");
    QVERIFY2(kept.size() > 250000 && image.startsWith(kept), "what came before the break is kept");
}

void TestHostileArchives::archivesThatTakeTooMuch()
{
    QFETCH(QVariantMap, row);

    const QByteArray file = expanded(row["file"]);
    // Bytes that can't be packed leave room for blocks of nothing.
    QByteArray noise(file.isEmpty() ? 90000 : 0, '\0');
    QRandomGenerator(5).generate(noise.begin(), noise.end());
    TestArchive archive;
    archive.addTopic("<Title>a</Title>", expanded(row["rest"])).add("t/file", file + noise);
    archive.add("u/markup.bcf", "<Markup><Topic Guid='u'/></Markup>");
    QByteArray zip = TestArchive::file(archive.write());
    if (file.isEmpty()) {
        const QByteArray nothing = QByteArray::fromHex("0208208000").repeated(noise.size() / 5);
        zip.replace(zip.indexOf("t/file") + 6, nothing.size(), nothing);
        writeFile(archive.path(), zip);
    }
    spent = Spent();
    const QSharedPointer<BCFModel> model = TestArchive::load(archive.path());
    const auto most = [&row](const char *key) { return row[key].toLongLong(); };
    const bool isLittle = spent.entries <= most("entries") && spent.packed >> 20 < most("packed")
        && spent.unpacked >> 20 < most("unpacked");
    QVERIFY2(
        isLittle,
        qPrintable(
            QString("%1 entries, %2 bytes to %3").arg(spent.entries).arg(spent.packed).arg(spent.unpacked)));
    QCOMPARE(model->topic("u"), nullptr);
    QVERIFY(!model->isValid() && !model->errorString().isEmpty());
}

void TestHostileArchives::xmlFiles()
{
    QFETCH(QVariantMap, row);

    const QByteArray point = "<X>0</X><Y>0</Y><Z>0</Z>";
    const QByteArray file = expanded(row["before"]) + "<VisualizationInfo><Lines><Line><StartPoint>" + point
        + "</StartPoint><EndPoint>" + point + "</EndPoint></Line>" + expanded(row["lines"]) + "</Lines>"
        + expanded(row["inside"]) + "</VisualizationInfo>" + expanded(row["behind"]);
    QCOMPARE(isRead(file), row["isRead"].toBool());
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

void TestHostileArchives::namesThatLeaveTheCache()
{
    QFETCH(QVariantMap, row);

    QString name = row["entry"].toString();
    TestArchive archive;
    const QDir outside = QFileInfo(archive.path()).dir();
    writeFile(outside.filePath("secret.txt"), "secret");
    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    QDir(cache).removeRecursively();
    QVERIFY(QDir().mkpath(cache.filePath("folder")) && QDir().mkpath(cache.path() + "-beside"));
    QVERIFY(QFile::link(outside.filePath("secret.txt"), cache.filePath("link")));
    QVERIFY(QFile::link(outside.filePath("nothing"), cache.filePath("dangling")));
    QVERIFY(QFile::link(outside.path(), cache.filePath("outside")));
    name.replace("{up}", cache.relativeFilePath(outside.path()) + '/').replace("{..}", "../");
    name.replace("{root}", outside.path() + '/').replace("{name}", outside.dirName());
    name.replace("{cache}", cache.dirName());
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

QTEST_GUILESS_MAIN(TestHostileArchives)

#include "TestHostileArchives.moc"
