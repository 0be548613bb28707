// Runs the built bcf-inspect on the sample archive.

#include "TestArchive.h"

#include <Core/Utils/BCFLib/BCFModel.h>
#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run
{
    int status;
    QString out, err;
};

QString program()
{
    return QCoreApplication::applicationDirPath() + "/../bin/bcf-inspect";
}

/// Runs the program in the plainest locale.
Run inspect(const QStringList &arguments)
{
    qputenv("LC_ALL", "C");
    QProcess process;
    process.start(program(), arguments);
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

}

class TestInspect : public QObject
{
    Q_OBJECT

private slots:
    void exitStatus_data();
    void exitStatus();
    void report();
    void hostileTexts();
    void save();

private:
    const QString _sample = QFINDTESTDATA("../Examples/Samples/coordination.bcf");
    const QString _noArchive = program();
    QTemporaryDir _folder;
};

void TestInspect::exitStatus_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("status");
    const QString lost = _folder.filePath("no folder/out.bcf");
    QTest::newRow("a good archive") << QStringList{_sample} << 0;
    QTest::newRow("a question for help") << QStringList{"--help"} << 0;
    QTest::newRow("a bad archive among good ones") << QStringList{_sample, _noArchive, _sample} << 1;
    QTest::newRow("a bad archive as JSON") << QStringList{"--json", _noArchive} << 1;
    QTest::newRow("a save into a folder that is not there") << QStringList{"--save", lost, _sample} << 1;
    QTest::newRow("no archive") << QStringList{"--json"} << 2;
    QTest::newRow("a save of two archives") << QStringList{"--save", lost, _sample, _sample} << 2;
}

void TestInspect::exitStatus()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, status);
    const Run run = inspect(arguments);
    QCOMPARE(run.status, status);
    QCOMPARE(run.err.isEmpty(), status == 0);
    QCOMPARE(run.err.contains("Usage: "), status == 2);
}

void TestInspect::report()
{
    const QString out = inspect({_sample}).out;
    for (const QString &line : out.split('\n')) {
        QVERIFY2(line.size() <= 80, qPrintable(line));
    }
    QVERIFY(out.contains(QRegularExpression("\nMessage +-\n")));
    QVERIFY(out.contains(QStringLiteral("zoë.o’brien@example.com")));
    QVERIFY(out.contains(QRegularExpression("Reply to +comment 1\n")));
}

void TestInspect::hostileTexts()
{
    const QString path = _folder.filePath("hostile.bcf");
    const QSharedPointer<BCFLib::BCFModel> model = BCFLib::BCFModel::Create(nullptr);
    BCFLib::PerspectiveCamera camera;
    camera.cameraViewPoint = osg::Vec3d(2600123.456, 1200000.0, -0.1);
    const QString title = QStringLiteral("\u009b31m\u007f\u202eder ") + QString(200, QChar(0x6F22));
    model->addTopic(title, "a", QDateTime::currentDateTime(), QString())
        ->addViewpoint(QString())
        ->setPerspectiveCamera(camera);
    QVERIFY(model->serialize(path));
    const QString out = inspect({path}).out;
    QVERIFY(out.contains("at (2600123.456, 1200000, -0.1)"));
    QVERIFY(out.contains(QStringLiteral("\ufffd31m\ufffd\ufffdder")));
    QVERIFY(!out.contains(QRegularExpression("[\\x00-\\x09\\x0b-\\x1f\\x7f-\\x9f\\x{202e}]")));
    QVERIFY(!out.contains(QString(41, QChar(0x6F22)))); // 40 wide characters fill a line
}

void TestInspect::save()
{
    const QString saved = _folder.filePath("saved.bcf");
    QCOMPARE(inspect({"--save", saved, _sample}).status, 0);
    const auto topics = [](const Run &run) { return run.out.mid(run.out.indexOf("\"topics\"")); };
    QCOMPARE(topics(inspect({"--json", saved})), topics(inspect({"--json", _sample})));

    // What could not be loaded must not take the place of a good archive, nor must what was loaded in part.
    QCOMPARE(inspect({"--save", saved, _noArchive}).status, 1);
    const QByteArray header = "<Header><File isExternal=\"false\"><Filename>a.txt</Filename></File></Header>";
    TestArchive whole, torso;
    inspect({whole.addTopic("", header).add("a.txt", "stays in the cache").write()});
    QCOMPARE(inspect({"--save", saved, torso.addTopic("", header).write()}).status, 1);
    QCOMPARE(inspect({saved}).status, 0);

    // What a newer version holds elsewhere would be gone for good.
    TestArchive newer("3.0");
    const QString path = newer.addTopic("<Title>T</Title>").write();
    QCOMPARE(inspect({"--save", path, path}).status, 1);
    QVERIFY(TestArchive::entry(path, "bcf.version").contains("3.0"));
}

QTEST_GUILESS_MAIN(TestInspect)
#include "TestInspect.moc"
