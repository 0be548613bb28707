#pragma once

#include <QAbstractListModel>
#include <QCache>
#include <QPixmap>
#include <QVector>

namespace BCFLib {
class Topic;
class Viewpoint;
}

/// The viewpoints of a topic, each with a thumbnail of its snapshot.
class ViewpointListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    static constexpr QSize thumbnailSize{84, 60};

    using QAbstractListModel::QAbstractListModel;

    /// Shows another topic, which has to outlive its being shown; null for none.
    void setTopic(const BCFLib::Topic *topic);
    /// The viewpoint at @p index; null for an invalid one.
    const BCFLib::Viewpoint *viewpoint(const QModelIndex &index) const;
    /// The image of that viewpoint as it came in the archive, or null.
    const QByteArray *snapshot(const QModelIndex &index) const;
    QModelIndex indexOf(const BCFLib::Viewpoint *viewpoint) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    QPixmap thumbnail(const QModelIndex &index) const;

    const BCFLib::Topic *_topic = nullptr;
    QVector<const BCFLib::Viewpoint *> _viewpoints;
    /// Thumbnails by row, made when they are first seen; the oldest give way.
    mutable QCache<int, QPixmap> _thumbnails{200};
};
