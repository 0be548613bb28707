#pragma once

#include <QWidget>

namespace BCFLib {
class Topic;
}

class AttachmentListModel;
class QListView;
class QTabWidget;
class TopicPanel;

/// The pages of one topic: its fields, and what it points to.
class TopicPages : public QWidget
{
    Q_OBJECT

public:
    explicit TopicPages(TopicPanel *fields, QWidget *parent = nullptr);

    /// Shows what another topic points to; null for none.
    void setTopic(const BCFLib::Topic *topic);
    /// Brings the user to the title.
    void editTitle();

signals:
    /// The user wants to go to a related topic.
    void topicRequested(BCFLib::Topic *topic);

private:
    bool goToRelated(const QModelIndex &index);
    void open(const QModelIndex &index);

    TopicPanel *_fields;
    QTabWidget *_pages;
    AttachmentListModel *_attachments;
    QListView *_list;
};
