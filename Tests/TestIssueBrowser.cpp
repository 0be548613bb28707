#include "Browser.h"
#include "SnapshotView.h"
#include "TestArchive.h"

#include <Comment.h>
#include <Topic.h>

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
    void sampleIsShown();
    void threads_data();
    void threads();
    void droppedArchiveTakesThePlaceOfTheFirst();
    void badImagesAreNull();
};

void TestIssueBrowser::sampleIsShown()
{
    const Browser browser(sample);
    QVERIFY(browser.message().isEmpty());
    QCOMPARE(browser.topics()->rowCount(), 3);
    QVERIFY(browser.title(0).startsWith("Supply duct"));
    QCOMPARE(browser.part<QLineEdit>("title")->text(), browser.title(0));
    QCOMPARE(browser.part<QAbstractItemView>("viewpoints")->model()->rowCount(), 2);
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
