#include "Browser.h"

#include <csignal>
#include <sys/resource.h>

namespace {

/// Below this limit on the size of a file, writing fails as on a full disk.
class DiskLimit
{
public:
    explicit DiskLimit(qint64 bytes)
        : _handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit{static_cast<rlim_t>(bytes), _before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiskLimit()
    {
        setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handler);
    }

private:
    void (*_handler)(int);
    rlimit _before{};
};

const QByteArray fields = "<Title>T</Title><CreationAuthor>a</CreationAuthor>"
                          "<CreationDate>2024-01-01T00:00:00Z</CreationDate>";

/// The head of a markup that names an attachment.
const QByteArray attachment = "<Header><File isExternal=\"false\"><Filename>a.txt</Filename></File></Header>";

QString withAttachment(TestArchive &archive, const QByteArray &content)
{
    return archive.addTopic(fields, attachment).add("a.txt", content).write();
}

QString notice(const Browser &browser)
{
    const auto *const label = browser.part<QLabel>("notice");
    return label->isVisible() ? label->text() : QString();
}

void edit(const Browser &browser)
{
    replaceText(browser.part<QLineEdit>("title"), "edited");
}

} // namespace

class TestIssueBrowserFiles : public QObject
{
    Q_OBJECT

private slots:
    void unusableFiles_data() { addRows("Browser/unusable.json"); }
    void unusableFiles();
    void notices_data() { addRows("Browser/notices.json"); }
    void notices();
    void failedSaves_data() { addRows("Browser/failed-saves.json"); }
    void failedSaves();
    void savesInPlaceAndUnderOtherNames();
    void closingAsksOnce_data() { addRows("Browser/closing.json"); }
    void closingAsksOnce();
    void closingDuringALoadOrASave();
    void windowsKeepTheirAttachmentsApart();
    void filesElsewhereStayThere();
};

void TestIssueBrowserFiles::unusableFiles()
{
    QFETCH(const QVariantMap, row);

    const TestArchive odd("2.1\"");
    QByteArray content = row["content"].toByteArray();
    content.replace("{sample}", TestArchive::file(sample).left(5000));
    content.replace("{odd}", TestArchive::file(odd.write()));
    const TestArchive folder;
    QFile file(folder.path("<i>.bcf"));
    QVERIFY(!row.contains("content") || (file.open(QIODevice::WriteOnly) && file.write(content) >= 0));
    file.close();
    Browser browser(sample);
    browser.openAndWait(file.fileName());
    QVERIFY2(browser.message().contains(row["said"].toString()), qPrintable(browser.message()));
    // What was there stays there.
    QCOMPARE(browser.topics()->rowCount(), 3);
    QVERIFY(browser.centralWidget()->isEnabled());
}

void TestIssueBrowserFiles::notices()
{
    QFETCH(const QVariantMap, row);

    const QString expected = row["said"].toString();
    const bool canEdit = row["canEdit"].toBool();
    const QByteArray topic = QByteArray(fields).replace("<Title>T", "<Title>" + row["title"].toByteArray());
    TestArchive archive(row["version"].toString());
    Browser browser(archive.addTopic(topic, row["rest"].toByteArray()).write());
    browser.part<QLineEdit>("author")->setText("me");
    QCOMPARE(notice(browser).isEmpty(), expected.isEmpty());
    QVERIFY2(notice(browser).contains(expected), qPrintable(notice(browser)));
    for (const char *action : {"save", "saveAs", "newTopic", "deleteTopic"}) {
        QCOMPARE(browser.part<QAction>(action)->isEnabled(), canEdit);
    }
    edit(browser);
    browser.part<QPlainTextEdit>("draft")->setFocus();
    QTest::keyClicks(browser.part<QPlainTextEdit>("draft"), "draft");
    QCOMPARE(browser.title(0) == "edited", canEdit);
    QVERIFY(row["version"] != "3.0" || !browser.save(archive.path()));
    QCOMPARE(browser.save(archive.path("saved.bcf")), canEdit);
    // Where nothing can be saved, nothing is asked.
    QVERIFY(canEdit || browser.close());
}

void TestIssueBrowserFiles::failedSaves()
{
    QFETCH(const QVariantMap, row);

    const QString goal = row["goal"].toString();
    TestArchive archive;
    Browser browser(archive.addTopic(fields, row["rest"].toByteArray()).add("a.txt", "a").write());
    const QDir cache(QStandardPaths::writableLocation(QStandardPaths::CacheLocation));
    for (const QString &folder : cache.entryList({"window-*"}, QDir::Dirs)) {
        QFile::remove(cache.filePath(folder + "/a.txt"));
    }
    const DiskLimit limit(goal == "full.bcf" ? 100 : 1000000);
    edit(browser);
    QVERIFY(!browser.save(QDir(archive.path(".")).filePath(goal)));
    QVERIFY2(browser.message().contains(row["said"].toString()), qPrintable(browser.message()));
    QVERIFY(browser.isWindowModified());
    QCOMPARE(QDir(archive.path(".")).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
             QStringList("test.bcf"));
}

void TestIssueBrowserFiles::savesInPlaceAndUnderOtherNames()
{
    TestArchive archive;
    Browser browser(archive.addTopic(fields).write());
    edit(browser);
    browser.trigger("save");
    QVERIFY(!browser.isWindowModified());
    QCOMPARE(TestArchive::load(archive.path())->topics().first()->title(), QString("edited"));
    choose(archive.path("other"));
    browser.trigger("saveAs");
    QVERIFY(QFile::exists(archive.path("other.bcf")));
    QCOMPARE(browser.windowTitle(), QString("other.bcf[*]"));

    // An archive that was not read wholly doesn't take the place of its file.
    TestArchive newer("3.0");
    browser.openAndWait(newer.addTopic(fields).write());
    edit(browser);
    choose(newer.path("copy.bcf"));
    browser.trigger("save");
    QVERIFY(QFile::exists(newer.path("copy.bcf")));
    QVERIFY(notice(browser).isEmpty());
}

void TestIssueBrowserFiles::closingAsksOnce()
{
    QFETCH(const QVariantMap, row);
    const QMap<QString, QMessageBox::StandardButton> buttons{
        {"save", QMessageBox::Save}, {"discard", QMessageBox::Discard}, {"cancel", QMessageBox::Cancel}};
    const QMessageBox::StandardButton button = buttons.value(row["answer"].toString());

    TestArchive archive;
    Browser browser(archive.addTopic(fields).write());
    browser.part<QLineEdit>("author")->setText("me");
    if (row["isDraft"].toBool()) {
        browser.part<QPlainTextEdit>("draft")->setPlainText("typed");
    } else {
        // Not yet taken over by leaving the field.
        QTest::keyClicks(browser.part<QLineEdit>("title"), "typed");
    }
    answer(button);
    QCOMPARE(browser.close(), button != QMessageBox::Cancel);
    const QByteArray markup = TestArchive::entry(archive.path(), "t/markup.bcf");
    QCOMPARE(markup.contains("typed"), button == QMessageBox::Save);
}

void TestIssueBrowserFiles::closingDuringALoadOrASave()
{
    TestArchive archive;
    archive.addTopic(fields).write();
    Browser loading(sample);
    loading.open(sample);
    QVERIFY(loading.close());

    Browser saving(archive.path());
    edit(saving);
    bool isClosed = true;
    QTimer::singleShot(0, &saving, [&] { isClosed = saving.close(); });
    saving.trigger("save");
    QVERIFY(!isClosed);
    QTRY_VERIFY(!saving.isVisible());
    QCOMPARE(TestArchive::load(archive.path())->topics().first()->title(), QString("edited"));
}

void TestIssueBrowserFiles::windowsKeepTheirAttachmentsApart()
{
    TestArchive first;
    TestArchive second;
    Browser one(withAttachment(first, "one"));
    Browser two(withAttachment(second, "two"));
    QVERIFY(one.save(first.path("saved.bcf")));
    QVERIFY(two.save(second.path("saved.bcf")));
    QCOMPARE(TestArchive::entry(first.path("saved.bcf"), "a.txt"), QByteArray("one"));
    QCOMPARE(TestArchive::entry(second.path("saved.bcf"), "a.txt"), QByteArray("two"));
}

void TestIssueBrowserFiles::filesElsewhereStayThere()
{
    QFile mine(QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/../mine.txt");
    QVERIFY(mine.open(QIODevice::WriteOnly));
    TestArchive archive;
    const QByteArray header = QByteArray(attachment).replace("a.txt", "....//mine.txt");
    const Browser browser(archive.addTopic(fields, header).add("../mine.txt", "theirs").write());
    QVERIFY(mine.exists());
    QVERIFY(!browser.part<QAction>("save")->isEnabled());
}

QTEST_MAIN(TestIssueBrowserFiles)

#include "TestIssueBrowserFiles.moc"
