#ifndef ISSUEBROWSER_COMMENTPANEL_H
#define ISSUEBROWSER_COMMENTPANEL_H

#include <QWidget>

namespace BCFLib {
class Comment;
class Topic;
}

class CommentTreeModel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTreeView;

/// The threads of a topic's comments, and a place to write a new one.
class CommentPanel : public QWidget
{
    Q_OBJECT

public:
    explicit CommentPanel(QWidget *parent = nullptr);

    /// Shows another topic, or none; a text that is being written stays.
    void setTopic(BCFLib::Topic *topic);
    /// Who writes; starts as the name of the user's account.
    QString author() const;
    /// Whether something is written that is no comment yet.
    bool hasDraft() const;

signals:
    void authorChanged(const QString &author);
    void commentAdded();
    /// The user has moved to a comment; null for none.
    void commentSelected(const BCFLib::Comment *comment);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void add(bool asReply);
    void updateButtons();

    CommentTreeModel *_model;
    QTreeView *_tree;
    QPlainTextEdit *_text;
    QLineEdit *_author;
    QPushButton *_add;
    QPushButton *_reply;
};

#endif
