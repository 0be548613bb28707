#pragma once

#include <QHash>
#include <QWidget>

namespace BCFLib {
class Comment;
class Topic;
class Viewpoint;
}

class ArchiveEditor;
class CommentTreeModel;
class QAction;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTreeView;
class ViewpointChooser;

/// The threads of a topic's comments, and a place to write a new one.
///
/// Its actions edit and delete the comment that the user has moved to.
class CommentPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CommentPanel(ArchiveEditor *editor, QWidget *parent = nullptr);

    /// Shows another topic, or none. A text that is being written stays with its topic, and comes
    /// back with it.
    void setTopic(BCFLib::Topic *topic);
    /// Takes over the edit of a comment, as leaving its editor would.
    void submit();
    /// Who writes; starts as the name of the user's account.
    QString author() const;
    /// Whether something is written, for any topic, that is no comment yet.
    bool hasDraft() const;
    /// Makes comments of all that is written; false without an author.
    bool addDrafts();
    /// The comment that the user has moved to, or null.
    BCFLib::Comment *current() const;
    void setCurrent(const BCFLib::Comment *comment);

signals:
    void authorChanged(const QString &author);
    /// The user has moved to a comment; null for none.
    void commentSelected(const BCFLib::Comment *comment);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void connectParts();
    QAction *addAction(const QString &text, const QKeySequence &shortcut);
    void add(bool asReply);
    void follow(BCFLib::Topic *topic, BCFLib::Comment *comment);
    void keepDraft();
    bool isWriting() const;
    void updateButtons();

    /// A comment that is not added yet.
    struct Draft
    {
        QString text;
        BCFLib::Viewpoint *view = nullptr;
    };

    ArchiveEditor *_editor;
    /// Those of topics that are not shown.
    QHash<BCFLib::Topic *, Draft> _drafts;
    CommentTreeModel *_model;
    QTreeView *_tree;
    QPlainTextEdit *_text;
    ViewpointChooser *_view;
    QLineEdit *_author;
    QPushButton *_add;
    QPushButton *_reply;
    QAction *_edit;
    QAction *_delete;
};
