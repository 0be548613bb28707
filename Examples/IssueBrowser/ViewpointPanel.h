#ifndef ISSUEBROWSER_VIEWPOINTPANEL_H
#define ISSUEBROWSER_VIEWPOINTPANEL_H

#include <QWidget>

namespace BCFLib {
class Comment;
class Topic;
}

class QLabel;
class QListView;
class SnapshotView;
class ViewpointListModel;

/// The viewpoints of a topic: a strip of thumbnails, and what stands in the chosen one.
class ViewpointPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ViewpointPanel(QWidget *parent = nullptr);

    /// Shows another topic, or none.
    void setTopic(const BCFLib::Topic *topic);
    /// Goes to the viewpoint that @p comment speaks of, if any.
    void showViewpointOf(const BCFLib::Comment *comment);

private:
    void showCurrent();

    ViewpointListModel *_model;
    QListView *_strip;
    SnapshotView *_snapshot;
    QLabel *_file;
    QLabel *_cameras;
    QLabel *_elements;
    QLabel *_geometry;
};

#endif
