#include "Browser.h"
#include "SnapshotView.h"
#include "TestArchive.h"

#include <Comment.h>
#include <Topic.h>

#include <QComboBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

QByteArray comment(const QByteArray &guid, const QByteArray &answered)
{
    return "<Comment Guid=\"" + guid + "\"><Comment>" + guid + "</Comment><ReplyToComment Guid=\"" + answered
        + "\"/></Comment>";
}

} // namespace

class TestIssueBrowser : public QObject
{
    Q_OBJECT

private slots:
    void sampleIsShownSortedAndFiltered();
    void threads_data();
    void threads();
    void editsAreSavedAndLoadedAgain();
    void closingAsksForUnsavedEdits();
    void unusableArchive();
    void archiveThatIsLoadedInPart();
    void droppedArchiveTakesThePlaceOfTheFirst();
    void closingDuringALoad();
    void badImagesAreNull();
};

void TestIssueBrowser::sampleIsShownSortedAndFiltered()
{
    const Browser browser(sample);
    QVERIFY(browser.message().isEmpty());
    QCOMPARE(browser.topics()->rowCount(), 3);
    QVERIFY(browser.title(0).startsWith("Supply duct"));
    QCOMPARE(browser.part<QLineEdit>("title")->text(), browser.title(0));
    QCOMPARE(browser.part<QAbstractItemView>("viewpoints")->model()->rowCount(), 2);

    browser.topics()->sort(TopicTableModel::Created);
    QVERIFY(browser.title(0).startsWith("Which fire rating"));
    browser.part<QLineEdit>("filter")->setText("DAMPER");
    QCOMPARE(browser.topics()->rowCount(), 1);
    QCOMPARE(browser.part<QLineEdit>("title")->text(), browser.title(0));
    browser.part<QLineEdit>("filter")->setText("no such topic");
    QVERIFY(browser.part<QLineEdit>("title")->text().isEmpty());
}

void TestIssueBrowser::threads_data()
{
    QTest::addColumn<QByteArray>("comments");
    QTest::addColumn<QString>("expected");

    QByteArray chain = comment("1", "");
    for (int number = 2; number <= 9; ++number) {
        chain += comment(QByteArray::number(number), QByteArray::number(number - 1));
    }
    QTest::newRow("an answer may stand before what it answers")
        << comment("b", "a") + comment("a", "") + comment("c", "a") << "a(b c)";
    QTest::newRow("a circle is cut at its first comment")
        << comment("d", "c") + comment("a", "c") + comment("b", "a") + comment("c", "b") << "d a(b(c))";
    QTest::newRow("a comment that answers itself begins a thread")
        << comment("a", "a") + comment("b", "a") << "a(b)";
    QTest::newRow("answers below a certain depth stand side by side") << chain << "1(2(3(4(5(6 7 8 9)))))";
}

void TestIssueBrowser::threads()
{
    QFETCH(const QByteArray, comments);
    QFETCH(const QString, expected);

    const Browser browser(TestArchive().addTopic("<Title>T</Title>", comments).write());
    QCOMPARE(tree(*browser.comments()), expected);
}

void TestIssueBrowser::editsAreSavedAndLoadedAgain()
{
    Browser browser(sample);
    replaceText(browser.part<QLineEdit>("title"), "<b>Duct</b>");
    QCOMPARE(browser.title(0), QString("<b>Duct</b>"));
    replaceText(browser.part<QLineEdit>("title"), " ");
    QCOMPARE(browser.part<QLineEdit>("title")->text(), QString("<b>Duct</b>"));
    replaceText(browser.part<QComboBox>("status")->lineEdit(), "Open again");

    browser.part<QLineEdit>("author")->setText("me");
    QVERIFY(!browser.part<QPushButton>("addComment")->isEnabled());
    browser.part<QPlainTextEdit>("draft")->setPlainText("new");
    browser.part<QPushButton>("addComment")->click();
    browser.part<QPlainTextEdit>("draft")->setPlainText("answer");
    browser.part<QPushButton>("reply")->click();
    QVERIFY(tree(*browser.comments()).endsWith("new(answer)"));
    QVERIFY(browser.isWindowModified());

    const TestArchive folder;
    QVERIFY(browser.save(folder.path()));
    QVERIFY(!browser.isWindowModified());
    const QSharedPointer<BCFLib::BCFModel> saved = TestArchive::load(folder.path());
    const BCFLib::Topic *const topic = saved->topics().first();
    QCOMPARE(topic->title(), QString("<b>Duct</b>"));
    QCOMPARE(topic->topicStatus(), QString("Open again"));
    QCOMPARE(topic->modifiedAuthor(), QString("me"));
    QCOMPARE(topic->comments().last()->replyToComment()->comment(), QString("new"));

    // A failed save tells so and leaves what is there.
    QVERIFY(!browser.save(folder.path("no folder/x.bcf")));
    QVERIFY(browser.message().contains("can't be saved"));
}

void TestIssueBrowser::closingAsksForUnsavedEdits()
{
    Browser browser(sample);
    // Typed, but not yet taken over by leaving the field.
    QTest::keyClicks(browser.part<QLineEdit>("title"), "!");
    answer(QMessageBox::Cancel);
    QVERIFY(!browser.close());
    QVERIFY(browser.title(0).contains('!'));
    answer(QMessageBox::Discard);
    QVERIFY(browser.close());
}

void TestIssueBrowser::unusableArchive()
{
    const TestArchive archive;
    QFile file(archive.path("<i>.bcf"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    Browser browser(file.fileName());
    QCOMPARE(browser.message(), QString("Error: \"%1\" is empty.").arg(file.fileName()));
    QVERIFY(!browser.centralWidget()->isEnabled());
}

void TestIssueBrowser::archiveThatIsLoadedInPart()
{
    const QByteArray header = "<Header><File isExternal=\"false\"><Filename>a.txt</Filename></File></Header>";
    TestArchive whole;
    TestArchive torso;
    Browser browser(whole.addTopic("<Title>T</Title>", header).add("a.txt", "stays in the cache").write());
    QVERIFY(browser.save(whole.path("saved.bcf")));
    browser.openAndWait(torso.addTopic("<Title>T</Title>", header).write());
    QCOMPARE(browser.topics()->rowCount(), 1);
    QVERIFY(!browser.save(whole.path("saved.bcf")));
    QVERIFY(!TestArchive::entry(whole.path("saved.bcf"), "a.txt").isEmpty());
}

void TestIssueBrowser::droppedArchiveTakesThePlaceOfTheFirst()
{
    Browser browser(sample);
    TestArchive second;
    second.addTopic("<Title>T</Title>", comment("a", ""));
    browser.dropAndWait(browser.part<QLineEdit>("filter"), second.write());
    QCOMPARE(browser.windowTitle(), QString("test.bcf[*]"));
    QCOMPARE(browser.topics()->rowCount(), 1);
    QCOMPARE(browser.part<QLineEdit>("title")->text(), QString("T"));
    QCOMPARE(tree(*browser.comments()), QString("a"));
    QCOMPARE(browser.part<QAbstractItemView>("viewpoints")->model()->rowCount(), 0);
}

void TestIssueBrowser::closingDuringALoad()
{
    Browser browser(sample);
    browser.open(sample);
    QVERIFY(browser.close());
}

void TestIssueBrowser::badImagesAreNull()
{
    const QByteArray png = TestArchive::png();
    const QByteArray torso = png.left(20);
    const QByteArray drawing = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\"/>";
    QByteArray huge = png;
    huge[18] = huge[22] = '\x01';
    QCOMPARE(readSnapshot(&png, QSize(9, 9)).size(), QSize(1, 1));
    QVERIFY(readSnapshot(nullptr, QSize(9, 9)).isNull());
    for (const QByteArray &bytes : {torso, drawing, huge}) {
        QVERIFY(readSnapshot(&bytes, QSize(9, 9)).isNull());
    }
}

QTEST_MAIN(TestIssueBrowser)

#include "TestIssueBrowser.moc"
