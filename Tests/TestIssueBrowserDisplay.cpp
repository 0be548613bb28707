#include "Browser.h"
#include "CommentTreeModel.h"
#include "SnapshotView.h"
#include "TopicArea.h"
#include "Translators.h"
#include "ViewpointPanel.h"

#include <QClipboard>
#include <QDialog>
#include <QHeaderView>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QSplitter>
#include <QTranslator>

using BCFLib::BCFModel;
using BCFLib::Topic;

namespace {

/// The texts of a column from top to bottom.
QStringList texts(const QAbstractItemModel &model, int column = 0)
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(); ++row) {
        texts << model.index(row, column).data().toString();
    }
    return texts;
}

QSharedPointer<BCFModel> manyTopics(int count)
{
    const QSharedPointer<BCFModel> model = BCFModel::Create(nullptr);
    for (int number = 0; number < count; ++number) {
        model->addTopic(QString::number(number), "me", QDateTime::currentDateTime(), QString());
    }
    return model;
}

QByteArray comment(const QByteArray &guid, const QByteArray &answered)
{
    return "<Comment Guid=\"" + guid + "\"><Comment>" + guid + "</Comment><ReplyToComment Guid=\"" + answered
        + "\"/></Comment>";
}

} // namespace

class TestIssueBrowserDisplay : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void threads_data() { addRows("Browser/threads.json"); }
    void threads();
    void droppedArchiveTakesThePlaceOfTheFirst();
    void badImagesAreNull();
    void filters_data() { addRows("Browser/filters.json"); }
    void filters();
    void sorting_data() { addRows("Browser/sorting.json"); }
    void sorting();
    void pickedTopicStaysInView();
    void attachments();
    void elements_data() { addRows("Browser/elements.json"); }
    void elements();
    void snapshotIsEnlargedAndSaved();
    void commentLeadsToItsView();
    void focusIsVisible();
    void sizesAndNamesAreRemembered();
    void languages_data() { addRows("Browser/languages.json"); }
    void languages();
};

void TestIssueBrowserDisplay::init()
{
    QSettings(QSettings::IniFormat, QSettings::UserScope, "Tavrin", "issue-browser").clear();
}

void TestIssueBrowserDisplay::threads()
{
    QFETCH(const QVariantMap, row);

    QByteArray comments;
    for (const QVariant &pair : row["comments"].toList()) {
        comments += comment(pair.toList()[0].toByteArray(), pair.toList()[1].toByteArray());
    }
    const Browser browser(TestArchive().addTopic("<Title>T</Title>", comments).write());
    QCOMPARE(tree(*browser.comments()), row["shown"].toString());
}

void TestIssueBrowserDisplay::droppedArchiveTakesThePlaceOfTheFirst()
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

void TestIssueBrowserDisplay::badImagesAreNull()
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

void TestIssueBrowserDisplay::filters()
{
    QFETCH(const QVariantMap, row);

    const Browser browser(sample);
    for (const QString name : {"status", "assignee"}) {
        auto *const field = browser.part<QComboBox>((name + "Filter").toLatin1());
        const QString wanted = row[name].toString();
        field->setCurrentIndex(wanted.isEmpty() ? 0 : field->findText(wanted));
    }
    QTest::keyClicks(browser.part<QLineEdit>("filter"), row["search"].toString());
    const QString numbers = texts(*browser.topics(), TopicTableModel::Index).join(' ');
    QCOMPARE(numbers, row["numbers"].toString());
    QCOMPARE(browser.part<QLabel>("count")->text(), row["count"].toString());
    QCOMPARE(browser.part<QLineEdit>("title")->text(), browser.title(0));
    QCOMPARE(browser.part<QLabel>("nothing")->isVisible(), numbers.isEmpty());
}

void TestIssueBrowserDisplay::sorting()
{
    QFETCH(const QVariantMap, row);

    const QByteArray property = row["property"].toByteArray();
    const QStringList sorted = row["sorted"].toStringList();
    const QSharedPointer<BCFModel> model = manyTopics(sorted.size());
    const QList<Topic *> all = model->topics();
    for (int place = 0; place < all.size(); ++place) {
        all.at(place)->setProperty(property, sorted.at(all.size() - 1 - place));
    }
    TopicTableModel topics;
    const TopicArea area(&topics);
    topics.setArchive(model);
    area.table()->sortByColumn(row["column"].toInt(), Qt::AscendingOrder);
    QStringList shown;
    for (int place = 0; place < all.size(); ++place) {
        area.table()->selectRow(place);
        shown << area.topic()->property(property).toString();
    }
    QCOMPARE(shown, sorted);
}

void TestIssueBrowserDisplay::pickedTopicStaysInView()
{
    const QSharedPointer<BCFModel> model = manyTopics(300);
    const Topic *const wanted = model->topics().at(77);
    TopicTableModel topics;
    TopicArea area(&topics);
    topics.setArchive(model);
    area.resize(900, 300);
    area.show();
    area.pick(wanted);
    const auto isInView = [&area] {
        const QTableView &table = *area.table();
        return table.viewport()->rect().contains(table.visualRect(table.currentIndex()).center());
    };
    auto *const search = area.findChild<QLineEdit *>("filter");

    area.table()->sortByColumn(TopicTableModel::Title, Qt::DescendingOrder);
    QCOMPARE(area.topic(), wanted);
    QVERIFY(isInView());
    search->setText("9");
    QCOMPARE(area.topic()->title(), QString("299"));
    search->setText("7");
    QCOMPARE(area.topic(), wanted);
    QVERIFY(isInView());
    search->clear();
    QCOMPARE(area.topic(), wanted);
    QVERIFY(isInView());
    search->setText("9");
    area.pick(wanted);
    QCOMPARE(area.topic(), wanted);
}

void TestIssueBrowserDisplay::attachments()
{
    Browser browser(sample);
    auto *const list = browser.part<QAbstractItemView>("attachments");
    auto *const pages = browser.part<QTabWidget>("topicPages");
    pages->setCurrentIndex(1);
    QStringList rows = texts(*list->model());
    QCOMPARE(rows.size(), 5);
    for (const char *const text : {"clashes/204\nLink", "structure.ifc\nModel file outside",
                                   "\nModel file in", "schedule.pdf\nDocument outside", "Fire damper"}) {
        QVERIFY2(rows.takeFirst().contains(text), text);
    }
    list->setFocus();
    list->selectAll();
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    QVERIFY(QApplication::clipboard()->text().startsWith("https://example.com/clinic/clashes/204\nclinic-"));

    emit browser.part<QTableView>("topics")->doubleClicked(QModelIndex());
    QVERIFY(browser.part<QLineEdit>("title")->hasFocus());
    pages->setCurrentIndex(1);

    // The second click of a double one doesn't lead on, back to the first topic.
    const QModelIndex related = list->model()->index(4, 0);
    list->scrollTo(related);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualRect(related).center());
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->visualRect(related).center());
    QVERIFY(browser.part<QLineEdit>("title")->text().startsWith("Fire damper"));
    QCOMPARE(pages->currentIndex(), 0);
    rows = texts(*list->model());
    QVERIFY(rows.at(1).contains("damper.ifc\nSnippet outside the archive\nIfcDamper"));
}

void TestIssueBrowserDisplay::elements()
{
    QFETCH(const QVariantMap, row);

    const QSharedPointer<BCFModel> model = BCFModel::Create(row["version"].toString(), nullptr);
    BCFLib::Viewpoint *const viewpoint =
        model->addTopic("T", "me", QDateTime::currentDateTime(), QString())->addViewpoint(QString());
    if (auto *const listForm = qobject_cast<BCF_2_0_Lib::Viewpoint *>(viewpoint)) {
        listForm->addComponent("a")->setSelected(Tavrin::BooleanTrue);
        listForm->getComponent("a")->setColor("ff0000");
        listForm->addComponent("b")->setVisible(Tavrin::BooleanFalse);
    } else {
        viewpoint->components()->setSelectionComponents({"a"});
        viewpoint->components()->setVisibilityExceptionComponents({"b"});
        viewpoint->components()->addColoringComponents(Qt::red, {"a"});
        viewpoint->components()->addColoringComponents(Qt::green, {"b"});
    }
    ViewpointPanel panel;
    panel.setTopic(model->topics().first());
    panel.findChild<QTabWidget *>("viewpointPages")->setCurrentIndex(1);
    panel.show();
    panel.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&panel));

    auto *const table = panel.findChild<QTableView *>("elements");
    QStringList rows;
    for (int i = 0; i < table->model()->rowCount(); ++i) {
        const QModelIndex use = table->model()->index(i, 1);
        const QColor swatch = use.data(Qt::DecorationRole).value<QColor>();
        rows << use.siblingAtColumn(0).data().toString() + ' ' + use.data().toString()
                + (swatch.isValid() ? ' ' + swatch.name() : QString());
    }
    QCOMPARE(rows, row["rows"].toStringList());
    table->setFocus();
    table->selectRow(1);
    QTest::keyClick(table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("b"));
}

void TestIssueBrowserDisplay::snapshotIsEnlargedAndSaved()
{
    const Browser browser(sample);
    auto *const snapshot = browser.part<QWidget>("snapshot");
    QTest::mouseDClick(snapshot, Qt::LeftButton);
    auto *const enlarged = browser.part<QDialog>("enlarged");
    QVERIFY(enlarged->isVisible());
    QVERIFY(enlarged->width() > snapshot->width());

    const TestArchive folder;
    const QString path = folder.path("saved.png");
    choose(path);
    snapshot->actions().last()->trigger();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), TestArchive::entry(sample, "4c596633-b4a3-5095-ac68-4004493fb156/snapshot.png"));
}

void TestIssueBrowserDisplay::commentLeadsToItsView()
{
    const Browser browser(sample);
    auto *const tree = browser.part<QAbstractItemView>("comments");
    QModelIndex third = tree->model()->index(0, 0);
    for (int step = 0; step < 2; ++step) {
        third = tree->model()->index(0, 0, third);
    }
    QVERIFY(third.data(CommentTreeModel::StampRole).toString().endsWith("View 2"));
    tree->setCurrentIndex(third);
    QCOMPARE(browser.part<QAbstractItemView>("viewpoints")->currentIndex().row(), 1);
}

void TestIssueBrowserDisplay::focusIsVisible()
{
    Browser browser(sample);
    // As after the first Tab.
    browser.setAttribute(Qt::WA_KeyboardFocusChange);
    int fields = 0;
    for (QWidget *const widget : browser.findChildren<QWidget *>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisible() || !widget->isEnabled()) {
            continue;
        }
        browser.setFocus();
        QCOMPARE(QApplication::focusWidget(), &browser);
        const QImage without = browser.grab().toImage();
        widget->setFocus(Qt::TabFocusReason);
        QVERIFY2(browser.grab().toImage() != without, qPrintable(widget->objectName()));
        ++fields;
    }
    QVERIFY(fields > 10);
}

void TestIssueBrowserDisplay::sizesAndNamesAreRemembered()
{
    QList<int> panes;
    {
        Browser browser(sample);
        browser.resize(1024 - 8, 768 - 32);
        QCOMPARE(browser.size(), QSize(1024 - 8, 768 - 32));
        QVERIFY(browser.part<QWidget>("topics")->height() * 3 >= browser.height());
        browser.part<QHeaderView>("topicColumns")->resizeSection(TopicTableModel::Status, 123);
        auto *const splitter = browser.part<QSplitter>("panes");
        splitter->setSizes({400, 300, 300});
        panes = splitter->sizes();
        browser.part<QLineEdit>("author")->setText("someone else");
        QVERIFY(browser.close());
    }
    Browser browser(sample);
    QCOMPARE(browser.part<QHeaderView>("topicColumns")->sectionSize(TopicTableModel::Status), 123);
    QCOMPARE(browser.part<QSplitter>("panes")->sizes(), panes);
    QCOMPARE(browser.part<QLineEdit>("author")->text(), QString("someone else"));

    TestArchive other;
    browser.openAndWait(other.addTopic("<Title>T</Title>").write());
    auto *const recent = browser.part<QMenu>("recentFiles");
    emit recent->aboutToShow();
    QCOMPARE(recent->actions().size(), 2);
    QSignalSpy done(&browser, &MainWindow::opened);
    recent->actions().last()->trigger();
    QVERIFY(done.wait());
    QCOMPARE(browser.topics()->rowCount(), 3);
}

void TestIssueBrowserDisplay::languages()
{
    QLocale::setDefault(QLocale(QTest::currentDataTag()));
    if (!QDir(QCoreApplication::applicationDirPath()).exists("../Translations/issue-browser_de.qm")) {
        QSKIP("built without catalogues");
    }
    installTranslators();
    const Browser browser(sample);
    TopicTableModel topics;
    const TopicArea area(&topics);
    topics.setArchive(manyTopics(1234));
    const QString all = area.findChild<QLabel *>("count")->text();
    area.findChild<QLineEdit *>("filter")->setText("1233");
    QString message;
    QString title;
    BCFModel::Create(nullptr)->isValid("a.bcf", message, title);
    const QStringList shown{browser.menuBar()->actions().first()->text(),
                            browser.topics()->headerData(TopicTableModel::Title, Qt::Horizontal).toString(),
                            texts(*browser.topics(), TopicTableModel::Created).first(),
                            all,
                            area.findChild<QLabel *>("count")->text(),
                            title,
                            message};
    qDeleteAll(qApp->findChildren<QTranslator *>());
    QLocale::setDefault(QLocale::c());
    QFETCH(const QVariantMap, row);
    QCOMPARE(shown.join('|'), row["shown"].toString());
}

QTEST_MAIN(TestIssueBrowserDisplay)

#include "TestIssueBrowserDisplay.moc"
