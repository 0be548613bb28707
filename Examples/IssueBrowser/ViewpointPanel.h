#pragma once

#include <QWidget>

namespace BCFLib {
class Comment;
class Topic;
class Viewpoint;
}

class ElementTableModel;
class QLabel;
class QListView;
class QTableView;
class QTabWidget;
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
    /// The chosen viewpoint, or null.
    const BCFLib::Viewpoint *current() const;
    void setCurrent(const BCFLib::Viewpoint *viewpoint);

private:
    void makeStrip();
    QWidget *makeElementPage();
    QWidget *makeFactPage();
    void showCurrent();

    ViewpointListModel *_model;
    ElementTableModel *_elements;
    QListView *_strip;
    QTabWidget *_pages;
    SnapshotView *_snapshot;
    QLabel *_elementCounts = nullptr;
    QLabel *_file = nullptr;
    QLabel *_guid = nullptr;
    QLabel *_cameras = nullptr;
    QLabel *_geometry = nullptr;
};
