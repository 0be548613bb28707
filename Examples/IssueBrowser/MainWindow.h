#ifndef ISSUEBROWSER_MAINWINDOW_H
#define ISSUEBROWSER_MAINWINDOW_H

#include <QMainWindow>
#include <QMessageBox>
#include <QSharedPointer>

namespace BCFLib {
class BCFModel;
class Topic;
}

class ArchiveEditor;
class ArchiveLoader;
class CommentPanel;
class QLabel;
class QProgressBar;
class TopicArea;
class TopicPages;
class TopicPanel;
class TopicTableModel;
class ViewpointPanel;

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
    /// Saves to @p path; a failure is told to the user and leaves the file there as it was.
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
    /// Whether nothing is unsaved, or the user has saved it or doesn't want it.
    bool mayLetGo();
    void setLoading(bool isLoading);
    void showOutcome(const QSharedPointer<BCFLib::BCFModel> &archive, const QString &path);
    void showArchive(const QSharedPointer<BCFLib::BCFModel> &archive, const QString &path);
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
    ArchiveLoader *_loader;
    ArchiveEditor *_editor;
    TopicTableModel *_topics;
    TopicPanel *_topicPanel;
    TopicPages *_topicPages;
    TopicArea *_topicArea;
    CommentPanel *_comments;
    ViewpointPanel *_viewpoints;
    QLabel *_summary;
    QProgressBar *_progress;
    QAction *_open = nullptr;
    QAction *_saveAs = nullptr;
    QAction *_newTopic = nullptr;
    QAction *_editTitle = nullptr;
    QAction *_deleteTopic = nullptr;
};

#endif
