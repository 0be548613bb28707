#pragma once

#include <QMainWindow>
#include <QMessageBox>
#include <QSharedPointer>

#include <memory>

namespace BCFLib {
class BCFModel;
class Topic;
}

class ArchiveEditor;
class ArchiveLoader;
class CommentPanel;
class NoticeBar;
class QLabel;
class QProgressBar;
class QTemporaryDir;
class TopicArea;
class TopicPages;
class TopicPanel;
class TopicTableModel;
class ViewpointPanel;
struct LoadedArchive;

/// Shows one archive: its topics in a table, and below them what the chosen topic holds.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// Loads an archive in the background and shows it in place of the present one, after asking
    /// what to do with unsaved changes. Does nothing while another one is loading.
    void open(const QString &path);
    /// Saves to @p path in the background, and returns when that is done; what stopped a save that failed
    /// is told to the user, and the file there is as it was.
    bool save(const QString &path);

signals:
    /// A load has ended, and its outcome is shown.
    void opened();

protected:
    void closeEvent(QCloseEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void makeActions();
    void connectParts();

    void chooseAndOpen();
    bool chooseAndSave();
    /// Saves where the archive comes from, unless that would cut the file there down.
    bool saveInPlace();
    /// The save itself, for which the archive leaves the window.
    QString saveMeanwhile(const QString &path);
    /// Whether nothing is unsaved, or the user has saved it or doesn't want it.
    bool mayLetGo();
    /// While the archive is loaded or saved, nothing can be done to it.
    void setBusy(bool isBusy);
    void showOutcome(const LoadedArchive &loaded);
    void showArchive(const LoadedArchive &loaded);
    /// The archive as shown is the one that stands there.
    void setPath(const QString &path);
    void showTopic(BCFLib::Topic *topic);
    void followEdit(BCFLib::Topic *topic);
    void addTopic();
    /// Takes over what is being typed.
    void submit();
    void updateActions();
    void tell(QMessageBox::Icon icon, const QString &title, const QString &text);

    QSharedPointer<BCFLib::BCFModel> _archive;
    QString _path;
    std::shared_ptr<QTemporaryDir> _attachments;
    /// Whether the file holds no more than what was read of it.
    bool _isReadWhole = true;
    bool _isBusy = false;
    bool _isClosing = false;
    ArchiveLoader *_loader;
    ArchiveEditor *_editor;
    TopicTableModel *_topics;
    TopicPanel *_topicPanel;
    TopicPages *_topicPages;
    TopicArea *_topicArea;
    CommentPanel *_comments;
    ViewpointPanel *_viewpoints;
    NoticeBar *_notice;
    QLabel *_summary;
    QProgressBar *_progress;
    QAction *_open = nullptr;
    QAction *_save = nullptr;
    QAction *_saveAs = nullptr;
    QAction *_undo = nullptr;
    QAction *_redo = nullptr;
    QAction *_newTopic = nullptr;
    QAction *_editTitle = nullptr;
    QAction *_deleteTopic = nullptr;
};
