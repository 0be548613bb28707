#pragma once

#include "MainWindow.h"
#include "TestArchive.h"
#include "TopicTableModel.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTableView>
#include <QTimer>

inline const QString sample = QStringLiteral(SAMPLE_ARCHIVE);

/// The window with an archive, and the parts of it that a user meets.
class Browser : public MainWindow
{
public:
    explicit Browser(const QString &path)
    {
        show();
        activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(this));
        openAndWait(path);
    }
    void openAndWait(const QString &path)
    {
        QSignalSpy done(this, &MainWindow::opened);
        open(path);
        QVERIFY(!centralWidget()->isEnabled());
        QVERIFY(done.wait());
    }
    void dropAndWait(QWidget *onto, const QString &path)
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QDropEvent drop(QPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QSignalSpy done(this, &MainWindow::opened);
        QApplication::sendEvent(onto, &enter);
        QApplication::sendEvent(onto, &drop);
        QVERIFY(done.wait());
    }
    template<class T>
    T *part(const char *name) const
    {
        return findChild<T *>(QLatin1String(name));
    }
    QAbstractItemModel *topics() const { return part<QAbstractItemView>("topics")->model(); }
    QAbstractItemModel *comments() const { return part<QAbstractItemView>("comments")->model(); }
    QString title(int row) const { return topics()->index(row, TopicTableModel::Title).data().toString(); }
    void trigger(const char *action) const { part<QAction>(action)->trigger(); }
    QString message() const
    {
        const QMessageBox *const box = findChild<QMessageBox *>();
        return box && box->textFormat() == Qt::PlainText ? box->windowTitle() + ": " + box->text()
                                                         : QString();
    }
};

/// Types a text and leaves the field.
inline void replaceText(QLineEdit *field, const QString &text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    QTest::keyClick(field, Qt::Key_Return);
}

/// The texts of all comments, each with what stands below it in brackets.
inline QString tree(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    QStringList texts;
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const QString below = tree(model, index);
        texts << index.data().toString() + (below.isEmpty() ? QString() : '(' + below + ')');
    }
    return texts.join(' ');
}

/// Deals with the dialog that comes next, once it has the keyboard.
template<class Dialog, class Deal>
void whenAsked(Deal deal)
{
    QTimer::singleShot(10, [deal] {
        auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
        dialog && dialog->isActiveWindow() ? deal(dialog) : whenAsked<Dialog>(deal);
    });
}

/// Answers the question that comes next.
inline void answer(QMessageBox::StandardButton button)
{
    whenAsked<QMessageBox>([button](const QMessageBox *box) { box->button(button)->click(); });
}

/// Chooses that name in the file dialog that comes next.
inline void choose(const QString &name)
{
    whenAsked<QFileDialog>([name](const QFileDialog *dialog) {
        auto *const field = dialog->findChild<QLineEdit *>("fileNameEdit");
        // Typing would open a list of files, which takes the keys.
        field->setText(name);
        QTest::keyClick(field, Qt::Key_Return);
    });
}
