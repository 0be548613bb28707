#include "TestArchive.h"

#include <QRandomGenerator>
#include <cerrno>
#include <cstdio>
#include <dlfcn.h>

using namespace BCFLib;

namespace {

enum Call { Allocation, Read, Write, Close, CallCount };

/// The call of a kind that fails, counted from when the counting begins.
struct Fault
{
    bool isCounting = false;
    Call call = Allocation;
    long at = 0;
    bool isForGood = false;
    /// Happens in place of the failure.
    std::function<void()> event;
    long count[CallCount] = {};
};

Fault fault;

bool fails(Call call)
{
    const long count = fault.isCounting ? ++fault.count[call] : 0;
    const bool isHit = count > 0 && call == fault.call && count == fault.at;
    if (isHit && fault.event) {
        fault.event();
        return false;
    }
    return isHit || (count > fault.at && call == fault.call && fault.isForGood);
}

template<class Function>
Function *real(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

} // namespace

// These take the place of the system's for Qt and for all libraries that go with it.
#define REPLACED extern "C" __attribute__((visibility("default")))
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool allocationsFail = false; // The sanitizers have allocations of their own.
#else
constexpr bool allocationsFail = true;
extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_calloc(size_t count, size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);

REPLACED void *malloc(size_t size)
{
    return fails(Allocation) ? nullptr : __libc_malloc(size);
}

REPLACED void *calloc(size_t count, size_t size)
{
    return fails(Allocation) ? nullptr : __libc_calloc(count, size);
}

REPLACED void *realloc(void *block, size_t size)
{
    return fails(Allocation) ? nullptr : __libc_realloc(block, size);
}
#endif

REPLACED ssize_t read(int file, void *data, size_t size)
{
    static auto *const system = real<ssize_t(int, void *, size_t)>("read");
    errno = EIO;
    return fails(Read) ? -1 : system(file, data, size);
}

REPLACED ssize_t write(int file, const void *data, size_t size)
{
    static auto *const system = real<ssize_t(int, const void *, size_t)>("write");
    errno = ENOSPC;
    return fails(Write) ? -1 : system(file, data, size);
}

REPLACED int close(int file)
{
    static auto *const system = real<int(int)>("close");
    const int result = system(file);
    errno = EIO;
    return fails(Close) ? -1 : result;
}

Q_DECLARE_METATYPE(std::function<void()>)

/// What becomes of a load and of a save when the system fails them, at any point.
class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void anyCallFails_data();
    void anyCallFails();
    void archivesThatChange_data();
    void archivesThatChange();

private:
    QString path(const char *name) const { return _folder.path(name); }

    TestArchive _folder;
    QSharedPointer<BCFModel> _model;
};

namespace {

/// Everything that a save must not lose.
QStringList contents(const BCFModel *model)
{
    QStringList all = dump(model);
    for (const File *file : model->findChildren<const File *>()) {
        all += TestArchive::file(file->filename());
    }
    return all;
}

} // namespace

void TestFaults::initTestCase()
{
    QFile attachment(path("storey.ifc"));
    QVERIFY(attachment.open(QIODevice::WriteOnly) && attachment.write(QByteArray(40000, 'i')) == 40000);
    attachment.close();
    _model = BCFModel::Create(nullptr);
    _model->addProject("p")->setName("Project");
    for (const char *guid : {"a", "b"}) {
        Topic *topic = _model->addTopic("T", "A", QDateTime(QDate(2024, 1, 1), QTime(), Qt::UTC), guid);
        File *file = topic->addFile();
        file->setIsExternal(false);
        file->setFilename(attachment.fileName());
        Viewpoint *viewpoint = topic->addViewpoint("v");
        // Of several blocks of the archive.
        QByteArray image(40000, '\0');
        QRandomGenerator(guid[0]).generate(image.begin(), image.end());
        viewpoint->setSnapshot(image);
        viewpoint->addLine();
        viewpoint->addBitmap()->setReference("r");
        viewpoint->bitmaps().constFirst()->setBitmapFormat(PNG);
        for (int i = 0; i < 3; ++i) {
            Comment *comment = topic->addComment(QString::number(i));
            comment->setComment("text");
            comment->setViewpoint(viewpoint);
        }
    }
    QVERIFY(_model->serialize(path("good.bcf")));
    const QStringList whole = contents(_model.data());
    _model = TestArchive::load(path("good.bcf"));
    QCOMPARE(contents(_model.data()).size(), whole.size());
}

void TestFaults::anyCallFails_data()
{
    QTest::addColumn<bool>("isLoad");
    QTest::addColumn<int>("call");
    QTest::addColumn<bool>("isForGood");

    const char *const calls[] = {"allocation", "read", "write", "close"};
    for (const bool isLoad : {true, false}) {
        for (int call = 0; call < CallCount; ++call) {
            for (const bool isForGood : {false, true}) {
                QTest::addRow("%s, %s %s", isLoad ? "load" : "save", calls[call],
                              isForGood ? "for good" : "once")
                    << isLoad << call << isForGood;
            }
        }
    }
}

void TestFaults::anyCallFails()
{
    QFETCH(bool, isLoad);
    QFETCH(int, call);
    QFETCH(bool, isForGood);
    if (QT_VERSION >= QT_VERSION_CHECK(6, 0, 0) && call == Allocation) {
        QSKIP("Qt 6.4 itself crashes where memory ends, as in QList's and QDomElement's own functions");
    }
    if (!allocationsFail && call == Allocation) {
        QSKIP("The sanitizers make the allocations");
    }

    const QStringList expected = contents(_model.data());
    // 0 for all is there, 1 for a failure that is told, 2 for one that is not.
    const Tavrin::ProgressionSignals progress(nullptr);
    const QString good = path("good.bcf");
    const QString saved = path("saved.bcf");
    const auto load = [&] {
        fault.isCounting = true;
        const QSharedPointer<BCFModel> model = BCFModel::Deserialize(good, progress);
        fault.isCounting = false;
        return model == nullptr || !model->isValid() ? 1 : contents(model.data()) == expected ? 0 : 2;
    };
    const auto save = [&] {
        fault.isCounting = true;
        const bool isSaved = _model->serialize(saved);
        fault.isCounting = false;
        return !isSaved ? 1 : contents(TestArchive::load(saved).data()) == expected ? 0 : 2;
    };
    const std::function<int()> work = isLoad ? std::function<int()>(load) : save;

    // All of them take minutes.
    const bool isThorough = qEnvironmentVariableIsSet("BCF_THOROUGH");
    QSet<int> outcomes;
    for (long at = 1; !outcomes.contains(10); at += call != Allocation || isThorough || at < 100 ? 1 : 7) {
        const int code = outcomeOf([&] {
            fault.call = static_cast<Call>(call);
            fault.at = at;
            fault.isForGood = isForGood;
            const int result = work();
            return fault.count[call] < at ? 10 + result : result;
        });
        QVERIFY2(code < 2 || code == 10, qPrintable(QStringLiteral("the %1th gives %2").arg(at).arg(code)));
        outcomes.insert(code);
    }
    // Also where later writes go well.
    QVERIFY(call != Write || !outcomes.contains(0));
    // What was read is complete before it is closed.
    QCOMPARE(outcomes.contains(isLoad && call == Close ? 0 : 1), true);
}

void TestFaults::archivesThatChange_data()
{
    QTest::addColumn<std::function<void()>>("event");

    const QString name = path("changing.bcf");
    const QString other = path("other.bcf");
    const auto cutTo = [name](qint64 size) {
        return std::function<void()>([=] { QFile::resize(name, size); });
    };
    QTest::newRow("shortened") << cutTo(QFileInfo(path("good.bcf")).size() - 1);
    QTest::newRow("emptied") << cutTo(0);
    QTest::newRow("overwritten, with its time put back") << std::function<void()>([=] {
        // As slow as the clock of the file system.
        QTest::qSleep(10);
        const QDateTime time = QFileInfo(name).lastModified();
        QFile archive(name);
        QVERIFY(archive.open(QIODevice::ReadWrite) && archive.write("X") == 1 && archive.flush()
                && archive.setFileTime(time, QFileDevice::FileModificationTime));
    });
    QTest::newRow("replaced") << std::function<void()>(
        [=] { std::rename(QFile::encodeName(other), QFile::encodeName(name)); });
}

void TestFaults::archivesThatChange()
{
    QFETCH(std::function<void()>, event);

    const QString name = path("changing.bcf");
    int reads = 0;
    for (fault.at = 1; fault.at == 1 || reads >= fault.at; ++fault.at) {
        QFile::remove(name);
        QVERIFY(QFile::copy(path("good.bcf"), name));
        // As old as archives are that come by e-mail: the clock of some file systems ticks slowly.
        QFile archive(name);
        QVERIFY(archive.open(QIODevice::ReadWrite)
                && archive.setFileTime(QDateTime::currentDateTime().addSecs(-60),
                                       QFileDevice::FileModificationTime));
        archive.close();
        QVERIFY(_model->addProject("other") != nullptr && _model->serialize(path("other.bcf")));
        fault.call = Read;
        fault.event = event;
        fault.count[Read] = 0;
        fault.isCounting = true;
        const QSharedPointer<BCFModel> model = TestArchive::load(name);
        fault.isCounting = false;
        reads = static_cast<int>(fault.count[Read]);
        QVERIFY(!model->isValid());
        QCOMPARE(model->errorString(),
                 QString("File \"%1\" changed or could not be read to its end").arg(name));
    }
    QVERIFY(reads > 0);
}

QTEST_GUILESS_MAIN(TestFaults)

#include "TestFaults.moc"
