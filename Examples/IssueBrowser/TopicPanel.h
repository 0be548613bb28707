#ifndef ISSUEBROWSER_TOPICPANEL_H
#define ISSUEBROWSER_TOPICPANEL_H

#include <QPersistentModelIndex>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class TopicTableModel;

/// The fields of one topic; title and status can be edited.
class TopicPanel : public QWidget
{
    Q_OBJECT

public:
    explicit TopicPanel(TopicTableModel *topics, QWidget *parent = nullptr);

    /// Shows another row of the topics, or with an invalid index none.
    void setTopic(const QModelIndex &index);
    /// Takes over what is being edited, as leaving the field would.
    void submit();
    /// Brings the user to the title.
    void editTitle();

private:
    void refresh();
    void offerStatuses();
    void setStatus();

    TopicTableModel *_topics;
    QPersistentModelIndex _index;
    QLineEdit *_title;
    QComboBox *_status;
    QLabel *_type;
    QLabel *_assignedTo;
    QLabel *_created;
    QLabel *_modified;
    QLabel *_labels;
    QPlainTextEdit *_description;
};

#endif
