#include "Browser.h"

namespace {

using Step = std::function<void(Browser &)>;

/// What the archive would be saved as.
QMap<QString, QByteArray> saved(Browser &browser)
{
    const TestArchive folder;
    browser.save(folder.path());
    QMap<QString, QByteArray> entries;
    for (const QString &name : TestArchive::entryNames(folder.path())) {
        entries[name] = TestArchive::entry(folder.path(), name);
    }
    return entries;
}

QLineEdit *line(const Browser &browser, const char *name)
{
    const auto *const choices = browser.part<QComboBox>(name);
    return choices ? choices->lineEdit() : browser.part<QLineEdit>(name);
}

void pick(const Browser &browser, int row)
{
    browser.part<QAbstractItemView>("topics")->setCurrentIndex(browser.topics()->index(row, 0));
}

/// Goes to a comment of the first thread as its author.
void goTo(const Browser &browser, bool toAnswer)
{
    const QModelIndex first = browser.comments()->index(0, 0);
    const QModelIndex index = toAnswer ? browser.comments()->index(0, 0, first) : first;
    browser.part<QLineEdit>("author")->setText("me");
    browser.part<QAbstractItemView>("comments")->setCurrentIndex(index);
}

QString archiveWithThread(TestArchive &archive)
{
    const QByteArray comments =
        "<Comment Guid=\"1\"><Author>me</Author><Comment>one</Comment></Comment>"
        "<Comment Guid=\"2\"><Author>me</Author><Comment>two</Comment><ReplyToComment Guid=\"1\"/></Comment>"
        "<Comment Guid=\"3\"><Author>you</Author><Comment>three</Comment></Comment>"
        "<Viewpoints Guid=\"v\"><Viewpoint>viewpoint.bcfv</Viewpoint></Viewpoints>";
    const QByteArray rest =
        "<CreationAuthor>a</CreationAuthor><CreationDate>2024-01-01T00:00:00Z</CreationDate>";
    return archive.addTopic("<Title>T</Title><Labels>a</Labels>" + rest, comments)
        .add("u/markup.bcf",
             "<Markup><Topic Guid=\"u\"><Title>U</Title><Priority>x,y</Priority>" + rest
                 + "</Topic></Markup>")
        .write();
}

} // namespace

Q_DECLARE_METATYPE(Step)

class TestIssueBrowserEditing : public QObject
{
    Q_OBJECT

private slots:
    void editsAreUndoneAndRedone_data();
    void editsAreUndoneAndRedone();
    void escapeGivesBackTheField();
    void draftsStayWithTheirTopics();
    void editedTopicStaysInTheTable();
    void undoBelongsToTheFieldWhileItHasSomething();
};

void TestIssueBrowserEditing::editsAreUndoneAndRedone_data()
{
    QTest::addColumn<Step>("edit");

    for (const char *field : {"title", "status", "type", "priority", "assignedTo", "labels"}) {
        QTest::newRow(field) << Step([field](Browser &browser) { replaceText(line(browser, field), "x,y"); });
    }
    QTest::newRow("description") << Step([](Browser &browser) {
        browser.part<QPlainTextEdit>("description")->setFocus();
        QTest::keyClicks(browser.part<QPlainTextEdit>("description"), "x");
        browser.part<QLineEdit>("filter")->setFocus();
    });
    for (const char *button : {"addComment", "reply"}) {
        QTest::newRow(button) << Step([button](Browser &browser) {
            goTo(browser, false);
            browser.part<QPlainTextEdit>("draft")->setPlainText("x");
            browser.part<QPushButton>(button)->click();
        });
    }
    QTest::newRow("comment") << Step([](Browser &browser) {
        goTo(browser, true);
        browser.part<QLineEdit>("author")->setText("you");
        QVERIFY(!browser.part<QAction>("editComment")->isEnabled());
        browser.part<QLineEdit>("author")->setText("me");
        browser.trigger("editComment");
        auto *const editor = browser.part<QPlainTextEdit>("commentEditor");
        QTest::keyClicks(editor, "x");
        QTest::keyClick(editor, Qt::Key_Return, Qt::ControlModifier);
    });
    QTest::newRow("a comment with answers goes") << Step([](Browser &browser) {
        goTo(browser, false);
        browser.trigger("deleteComment");
        QCOMPARE(tree(*browser.comments()), QString("two three"));
    });
    QTest::newRow("a topic comes") << Step([](Browser &browser) { browser.trigger("newTopic"); });
    QTest::newRow("a topic goes") << Step([](Browser &browser) { browser.trigger("deleteTopic"); });
}

void TestIssueBrowserEditing::editsAreUndoneAndRedone()
{
    QFETCH(const Step, edit);

    TestArchive archive;
    Browser browser(archiveWithThread(archive));
    const auto before = saved(browser);
    edit(browser);
    QVERIFY(browser.isWindowModified());
    const auto after = saved(browser);
    QVERIFY(after != before);
    for (int round = 0; round < 2; ++round) {
        browser.trigger("undo");
        pick(browser, 0);
        QCOMPARE(browser.title(0), QString("T"));
        QCOMPARE(tree(*browser.comments()), QString("one(two) three"));
        QCOMPARE(saved(browser), before);
        browser.trigger("redo");
        QCOMPARE(saved(browser), after);
    }
}

void TestIssueBrowserEditing::escapeGivesBackTheField()
{
    TestArchive archive;
    const Browser browser(archiveWithThread(archive));
    for (const char *field : {"title", "status", "labels", "description"}) {
        auto *const widget = browser.part<QWidget>(field);
        const QVariant old = widget->property(widget->metaObject()->userProperty().name());
        QTest::keyClicks(widget, "!");
        QTest::keyClick(widget, Qt::Key_Escape);
        QCOMPARE(widget->property(widget->metaObject()->userProperty().name()), old);
        QTest::keyClick(widget, Qt::Key_Tab);
        QVERIFY(!browser.isWindowModified());
    }
}

void TestIssueBrowserEditing::draftsStayWithTheirTopics()
{
    TestArchive archive;
    Browser browser(archiveWithThread(archive));
    auto *const draft = browser.part<QPlainTextEdit>("draft");
    browser.part<QLineEdit>("author")->setText("me");
    auto *const view = browser.part<QComboBox>("viewpointChooser");
    draft->setPlainText("of T");
    view->setCurrentIndex(1);
    pick(browser, 1);
    QVERIFY(draft->toPlainText().isEmpty());
    draft->setPlainText("of U");
    pick(browser, 0);
    QCOMPARE(draft->toPlainText(), QString("of T"));
    QCOMPARE(view->currentIndex(), 1);

    // That of a topic that goes is none any more, and comes back with it.
    browser.trigger("deleteTopic");
    browser.trigger("undo");
    pick(browser, 0);
    QCOMPARE(draft->toPlainText(), QString("of T"));

    // A shortcut doesn't go past what is being typed elsewhere.
    auto *const title = browser.part<QLineEdit>("title");
    title->setFocus();
    QTest::keyClicks(title, "!");
    QTest::keyClick(title, Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(browser.title(0), QString("!T"));

    answer(QMessageBox::Save);
    QVERIFY(browser.close());
    QVERIFY(TestArchive::entry(archive.path(), "t/markup.bcf").contains("of T"));
    QVERIFY(TestArchive::entry(archive.path(), "u/markup.bcf").contains("of U"));
}

void TestIssueBrowserEditing::editedTopicStaysInTheTable()
{
    Browser browser(sample);
    browser.part<QComboBox>("statusFilter")->setCurrentText("Open");
    replaceText(line(browser, "status"), "Closed");
    QCOMPARE(browser.topics()->rowCount(), 1);
    QCOMPARE(line(browser, "status")->text(), QString("Closed"));
    browser.part<QLineEdit>("filter")->setText("beam");
    QCOMPARE(browser.topics()->rowCount(), 0);
}

void TestIssueBrowserEditing::undoBelongsToTheFieldWhileItHasSomething()
{
    TestArchive archive;
    Browser browser(archiveWithThread(archive));
    auto *const title = browser.part<QLineEdit>("title");
    replaceText(title, "one");
    QTest::keyClicks(title, "!");
    QTest::keyClick(title, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(title->text(), QString("one"));
    QTest::keyClick(title, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(title->text(), QString("T"));
    QVERIFY(!browser.isWindowModified());
}

QTEST_MAIN(TestIssueBrowserEditing)

#include "TestIssueBrowserEditing.moc"
