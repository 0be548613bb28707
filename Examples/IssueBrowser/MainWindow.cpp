#include "MainWindow.h"

#include "ArchiveEditor.h"
#include "ArchiveLoader.h"
#include "ArchiveSaver.h"
#include "CommentPanel.h"
#include "DisplayText.h"
#include "FocusMarker.h"
#include "NoticeBar.h"
#include "RecentFilesMenu.h"
#include "Settings.h"
#include "TopicArea.h"
#include "TopicPages.h"
#include "TopicPanel.h"
#include "TopicTableModel.h"
#include "ViewpointPanel.h"

#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Project.h>
#include <Core/Utils/BCFLib/Version.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QEventLoop>
#include <QFileDialog>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QProgressBar>
#include <QScreen>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>

using BCFLib::BCFModel;

namespace {

QString summary(const BCFModel &archive)
{
    QStringList parts;
    if (const BCFLib::Version *const version = archive.version()) {
        parts << MainWindow::tr("BCF %1").arg(version->versionId());
    }
    if (const BCFLib::Project *const project = archive.project()) {
        parts << project->name();
    }
    parts.removeAll(QString());
    return DisplayText::oneLine(parts.join(QStringLiteral("  ·  ")));
}

QString fileFilter()
{
    return MainWindow::tr("BCF archives (*.bcf *.bcfzip);;All files (*)");
}

/// What there is to say about an archive before anybody edits it.
QString notice(const LoadedArchive &loaded)
{
    constexpr int most = 3;
    QStringList lines = ArchiveCheck::warnings(loaded.file, *loaded.model);
    if (!loaded.model->errorString().isEmpty()) {
        lines << MainWindow::tr(
            "Something is missing in this archive, so it can be neither changed nor saved:");
    } else if (!lines.isEmpty()) {
        lines << MainWindow::tr("What is shown can be saved under another name.");
    }
    lines << loaded.problems.mid(0, most);
    if (loaded.problems.size() > most) {
        lines << MainWindow::tr("… and %1 more").arg(QLocale().toString(loaded.problems.size() - most));
    }
    if (lines.isEmpty() && loaded.model->topics().isEmpty()) {
        lines << MainWindow::tr("There are no topics in this archive.");
    }
    return lines.join(QLatin1Char('\n'));
}

/// The one local file of a drag; empty if it holds anything else.
QString draggedFile(const QMimeData *data)
{
    const QList<QUrl> urls = data->urls();
    return urls.size() == 1 ? urls.first().toLocalFile() : QString();
}

/// As QMenu::addAction(), whose order of arguments depends on Qt's version.
template<class Receiver, class Slot>
QAction *addEntry(QMenu *menu, const QString &text, const QKeySequence &keys, Receiver *receiver, Slot slot)
{
    QAction *const action = menu->addAction(text, receiver, slot);
    action->setShortcut(keys);
    return action;
}

} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent)
    , _loader(new ArchiveLoader(this))
    , _editor(new ArchiveEditor(this))
    , _topics(new TopicTableModel(this))
    , _topicPanel(new TopicPanel(_editor, _topics))
    , _topicPages(new TopicPages(_topicPanel))
    , _topicArea(new TopicArea(_topics))
    , _comments(new CommentPanel(_editor))
    , _viewpoints(new ViewpointPanel)
    , _notice(new NoticeBar)
    , _summary(new QLabel(tr("Open an archive or drop one here")))
    , _progress(new QProgressBar)
{
    auto *const details = new QSplitter;
    details->setObjectName(QStringLiteral("panes"));
    details->addWidget(_topicPages);
    details->addWidget(_comments);
    details->addWidget(_viewpoints);
    details->setSizes({385, 455, 340});
    auto *const all = new QSplitter(Qt::Vertical);
    all->setObjectName(QStringLiteral("tableAndPanes"));
    all->addWidget(_topicArea);
    all->addWidget(details);
    all->setStretchFactor(0, 2);
    all->setStretchFactor(1, 3);
    all->setSizes({320, 400});
    all->setChildrenCollapsible(false);
    details->setChildrenCollapsible(false);
    auto *const central = new QWidget;
    auto *const layout = new QVBoxLayout(central);
    layout->setContentsMargins(QMargins());
    layout->setSpacing(0);
    layout->addWidget(_notice);
    layout->addWidget(all, 1);
    setCentralWidget(central);

    _summary->setTextFormat(Qt::PlainText);
    statusBar()->addWidget(_summary, 1);
    statusBar()->addPermanentWidget(_progress);
    makeActions();
    connectParts();

    // A file that is dropped on a text field is to be opened too, not to become text.
    for (QWidget *widget : findChildren<QWidget *>()) {
        widget->setAcceptDrops(false);
    }
    setBusy(false);
    setWindowTitle(tr("Issue Browser"));
    new FocusMarker(this);
    // Room for the columns in the user's font, and for the frame on a small screen.
    resize(
        (QSize(82, 56) * fontMetrics().lineSpacing()).boundedTo(screen()->availableSize() - QSize(24, 48)));
    Settings::restore(this);
}

MainWindow::~MainWindow()
{
    // Hiding makes the fields give up the focus, and some tell of it: the window has to be whole still.
    hide();
}

void MainWindow::makeActions()
{
    QMenu *const file = menuBar()->addMenu(tr("&File"));
    _open = addEntry(file, tr("&Open…"), QKeySequence::Open, this, &MainWindow::chooseAndOpen);
    auto *const recent = new RecentFilesMenu(file);
    connect(recent, &RecentFilesMenu::picked, this, &MainWindow::open);
    file->addMenu(recent);
    _save = addEntry(file, tr("&Save"), QKeySequence::Save, this, &MainWindow::saveInPlace);
    _saveAs = addEntry(file, tr("Save &As…"), QKeySequence(QStringLiteral("Ctrl+Shift+S")), this,
                       &MainWindow::chooseAndSave);
    _save->setObjectName(QStringLiteral("save"));
    _saveAs->setObjectName(QStringLiteral("saveAs"));
    file->addSeparator();
    addEntry(file, tr("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), this, &QWidget::close);

    QMenu *const edit = menuBar()->addMenu(tr("&Edit"));
    // An edit that is under way is the first one to undo.
    connect(edit, &QMenu::aboutToShow, this, &MainWindow::submit);
    _undo = _editor->history()->createUndoAction(this, tr("&Undo"));
    _redo = _editor->history()->createRedoAction(this, tr("&Redo"));
    _undo->setObjectName(QStringLiteral("undo"));
    _redo->setObjectName(QStringLiteral("redo"));
    _undo->setShortcut(QKeySequence::Undo);
    _redo->setShortcut(QKeySequence::Redo);
    edit->addActions({_undo, _redo});
    edit->addSeparator();
    addEntry(edit, tr("&Find Topics"), QKeySequence::Find, _topicArea, &TopicArea::find);
    edit->addSeparator();
    _newTopic = addEntry(edit, tr("&New Topic"), QKeySequence::New, this, &MainWindow::addTopic);
    _editTitle = addEntry(edit, tr("Edit &Title"), Qt::Key_F2, _topicPages, &TopicPages::editTitle);
    _deleteTopic = addEntry(edit, tr("&Delete Topic"), QKeySequence::Delete, this,
                            [this] { _editor->removeTopic(_topicArea->topic()); });
    _newTopic->setObjectName(QStringLiteral("newTopic"));
    _deleteTopic->setObjectName(QStringLiteral("deleteTopic"));
    // With the focus elsewhere these keys mean something else.
    for (QAction *action : {_editTitle, _deleteTopic}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        _topicArea->table()->addAction(action);
    }
    _topicArea->table()->setContextMenuPolicy(Qt::ActionsContextMenu);
    edit->addSeparator();
    edit->addActions(_comments->actions());
}

void MainWindow::connectParts()
{
    connect(_loader, &ArchiveLoader::progressed, _progress, &QProgressBar::setValue);
    connect(_loader, &ArchiveLoader::loaded, this, &MainWindow::showOutcome);
    connect(_topicArea->table(), &QTableView::doubleClicked, _topicPages, &TopicPages::editTitle);
    connect(_topicArea, &TopicArea::picked, this, &MainWindow::showTopic);
    connect(_topicPages, &TopicPages::topicRequested, _topicArea, &TopicArea::pick);
    connect(_editor->history(), &QUndoStack::cleanChanged, this,
            [this](bool isClean) { setWindowModified(!isClean); });
    connect(_editor, &ArchiveEditor::edited, this, &MainWindow::followEdit);
    connect(_comments, &CommentPanel::authorChanged, this, &MainWindow::updateActions);
    connect(_comments, &CommentPanel::commentSelected, _viewpoints, &ViewpointPanel::showViewpointOf);
}

void MainWindow::submit()
{
    _topicPanel->submit();
    _comments->submit();
}

void MainWindow::open(const QString &path)
{
    if (!_isBusy && mayLetGo()) {
        _loader->load(path);
        setBusy(true);
    }
}

bool MainWindow::save(const QString &path)
{
    submit();
    const QString problem = !_isReadWhole && QFileInfo(path) == QFileInfo(_path)
        ? tr("The file holds more than is shown, which would be lost. Choose another name.")
        : saveMeanwhile(path);
    if (!problem.isEmpty()) {
        _isClosing = false;
        tell(QMessageBox::Critical, tr("Error"),
             tr("The archive can't be saved as \"%1\".").arg(path) + QLatin1Char('\n') + problem);
        return false;
    }
    if (!_isReadWhole) {
        _isReadWhole = true;
        _notice->setText(QString());
    }
    setPath(path);
    if (_isClosing) {
        QMetaObject::invokeMethod(this, &QWidget::close, Qt::QueuedConnection);
    }
    return true;
}

QString MainWindow::saveMeanwhile(const QString &path)
{
    const BCFLib::Topic *const topic = _topicArea->topic();
    const BCFLib::Comment *const comment = _comments->current();
    const BCFLib::Viewpoint *const viewpoint = _viewpoints->current();
    QScrollBar *const scrollBar = _topicArea->table()->verticalScrollBar();
    const int place = scrollBar->value();
    const QPointer<QWidget> focus = focusWidget();
    // The parts are empty meanwhile; a picture of them stands before them.
    QLabel picture(this);
    picture.setPixmap(centralWidget()->grab());
    picture.setGeometry(centralWidget()->geometry());
    picture.show();
    setBusy(true);
    _topics->setAway(true);

    ArchiveSaver saver(*_archive, path);
    QEventLoop untilSaved;
    connect(&saver, &ArchiveSaver::saved, &untilSaved, &QEventLoop::quit);
    connect(&saver, &ArchiveSaver::progressed, this, [this](qint64 bytes) {
        _progress->show();
        statusBar()->showMessage(tr("Saving: %1 written").arg(QLocale().formattedDataSize(bytes)));
    });
    untilSaved.exec();
    const QString problem = saver.finish();

    statusBar()->clearMessage();
    _topics->setAway(false);
    if (topic) {
        _topicArea->pick(topic);
        _comments->setCurrent(comment);
        _viewpoints->setCurrent(viewpoint);
        scrollBar->setValue(place);
    }
    setBusy(false);
    if (focus) {
        focus->setFocus();
    }
    return problem;
}

void MainWindow::chooseAndOpen()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Archive"), _path, fileFilter());
    if (!path.isEmpty()) {
        open(path);
    }
}

bool MainWindow::chooseAndSave()
{
    QFileDialog dialog(this, tr("Save Archive As"), _path, fileFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("bcf"));
    return dialog.exec() == QDialog::Accepted && save(dialog.selectedFiles().value(0));
}

bool MainWindow::saveInPlace()
{
    return _isReadWhole ? save(_path) : chooseAndSave();
}

bool MainWindow::mayLetGo()
{
    submit();
    const bool hasDraft = _comments->hasDraft();
    if (!_archive || (!isWindowModified() && !hasDraft)) {
        return true;
    }
    const QMessageBox::StandardButton answer = QMessageBox::warning(
        this, tr("Unsaved Changes"),
        hasDraft ? tr("What you have written is not added yet. Add it as a comment and save?")
                 : tr("There are changes that are not saved. Save them?"),
        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard
        || (answer == QMessageBox::Save && _comments->addDrafts() && saveInPlace());
}

void MainWindow::setBusy(bool isBusy)
{
    _isBusy = isBusy;
    // How long a save takes is not known before, and most are over at once.
    _progress->setRange(0, _loader->isLoading() ? 100 : 0);
    _progress->setValue(0);
    _progress->setVisible(_loader->isLoading());
    // An edit to the archive that is about to go would be lost.
    centralWidget()->setEnabled(!isBusy && _archive);
    _open->setEnabled(!isBusy);
    setAcceptDrops(!isBusy);
    updateActions();
}

void MainWindow::updateActions()
{
    const bool canEdit = !_isBusy && _editor->canEdit();
    _save->setEnabled(canEdit);
    _saveAs->setEnabled(canEdit);
    _undo->setEnabled(canEdit && _editor->history()->canUndo());
    _redo->setEnabled(canEdit && _editor->history()->canRedo());
    _newTopic->setEnabled(canEdit && !_comments->author().trimmed().isEmpty());
    _deleteTopic->setEnabled(canEdit && _topicArea->topic());
    _editTitle->setEnabled(_deleteTopic->isEnabled());
}

void MainWindow::showOutcome(const LoadedArchive &loaded)
{
    // Also from a damaged archive everything is shown that could be read; one that gave nothing does
    // not take the place of the present one.
    const bool isShown = loaded.model && (loaded.problems.isEmpty() || !loaded.model->topics().isEmpty());
    if (isShown) {
        showArchive(loaded);
    }
    setBusy(false);
    _topicArea->table()->setFocus();
    if (!isShown) {
        const QString problems = loaded.problems.join(QLatin1Char('\n'));
        tell(QMessageBox::Critical, tr("Error"), loaded.model ? problems : loaded.file.text);
    }
    emit opened();
}

void MainWindow::showArchive(const LoadedArchive &loaded)
{
    // The present archive stays alive until all parts have gone on to the new one.
    _editor->setArchive(loaded.model);
    _topics->setArchive(loaded.model);
    _archive = loaded.model;
    _attachments = loaded.attachments;
    _isReadWhole = ArchiveCheck::warnings(loaded.file, *loaded.model).isEmpty();
    setPath(loaded.path);
    _notice->setText(notice(loaded));
    _summary->setText(summary(*_archive));
}

void MainWindow::setPath(const QString &path)
{
    _path = path;
    Settings::addRecentFile(path);
    setWindowFilePath(path);
    // A star takes the place of the brackets where something is unsaved.
    setWindowTitle(QFileInfo(path).fileName() + QStringLiteral("[*]"));
    _editor->history()->setClean();
}

void MainWindow::showTopic(BCFLib::Topic *topic)
{
    _topicPanel->setTopic(topic);
    _topicPages->setTopic(topic);
    _comments->setTopic(topic);
    _viewpoints->setTopic(topic);
    updateActions();
}

void MainWindow::followEdit(BCFLib::Topic *topic)
{
    const bool isPicked = topic == _topicArea->topic();
    _topicArea->keep(topic);
    _topics->update(topic);
    if (!isPicked && _topics->indexOf(topic).isValid()) {
        _topicArea->pick(topic);
    }
}

void MainWindow::addTopic()
{
    submit();
    _editor->addTopic(tr("New topic"));
    _topicPages->editTitle();
}

void MainWindow::tell(QMessageBox::Icon icon, const QString &title, const QString &text)
{
    auto *const box = new QMessageBox(icon, title, text, QMessageBox::Ok, this);
    // The text names files and topics of strangers.
    box->setTextFormat(Qt::PlainText);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    // A save that is under way comes first; before a load, what there was to save has been asked for.
    _isClosing = _isBusy && !_loader->isLoading();
    event->setAccepted(!_isClosing && (_isBusy || mayLetGo()));
    if (event->isAccepted()) {
        Settings::store(this);
        Settings::setAuthor(_comments->author());
    }
}

void MainWindow::dragEnterEvent(QDragEnterEvent *event)
{
    if (!draggedFile(event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void MainWindow::dropEvent(QDropEvent *event)
{
    event->acceptProposedAction();
    // Not before the drop is over: a question to the user would hold up the program it comes from.
    const QString path = draggedFile(event->mimeData());
    QMetaObject::invokeMethod(
        this, [this, path] { open(path); }, Qt::QueuedConnection);
}
