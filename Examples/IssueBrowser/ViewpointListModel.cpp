#include "ViewpointListModel.h"

#include "DisplayText.h"
#include "SnapshotView.h"

#include <Core/Utils/BCFLib/Topic.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QPainter>

using BCFLib::Viewpoint;

namespace {

/// All thumbnails have one size, so that they stand in line; one without an image is crossed out.
QPixmap framed(const QImage &image)
{
    QPixmap pixmap(ViewpointListModel::thumbnailSize);
    pixmap.fill(Qt::white);
    QPainter painter(&pixmap);
    painter.setPen(Qt::lightGray);
    const QRect frame = pixmap.rect().adjusted(0, 0, -1, -1);
    painter.drawRect(frame);
    if (image.isNull()) {
        painter.drawLine(frame.topLeft(), frame.bottomRight());
        painter.drawLine(frame.bottomLeft(), frame.topRight());
    } else {
        QRect area(QPoint(), image.size());
        area.moveCenter(pixmap.rect().center());
        painter.drawImage(area, image);
    }
    return pixmap;
}

} // namespace

void ViewpointListModel::setTopic(const BCFLib::Topic *topic)
{
    beginResetModel();
    _topic = topic;
    _viewpoints.clear();
    _thumbnails.clear();
    if (topic) {
        const QList<Viewpoint *> viewpoints = topic->viewpoints();
        _viewpoints = QVector<const Viewpoint *>(viewpoints.begin(), viewpoints.end());
    }
    endResetModel();
}

const Viewpoint *ViewpointListModel::viewpoint(const QModelIndex &index) const
{
    return index.isValid() ? _viewpoints.at(index.row()) : nullptr;
}

const QByteArray *ViewpointListModel::snapshot(const QModelIndex &index) const
{
    return index.isValid() ? _topic->snapshot(viewpoint(index)->guid()) : nullptr;
}

QModelIndex ViewpointListModel::indexOf(const Viewpoint *viewpoint) const
{
    return index(_viewpoints.indexOf(viewpoint));
}

int ViewpointListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _viewpoints.size();
}

QVariant ViewpointListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    switch (role) {
    case Qt::DisplayRole:
        return index.row() + 1;
    case Qt::AccessibleTextRole:
        return DisplayText::oneLine(viewpoint(index)->viewpointFilename());
    case Qt::DecorationRole:
        return thumbnail(index);
    default:
        return {};
    }
}

QPixmap ViewpointListModel::thumbnail(const QModelIndex &index) const
{
    if (const QPixmap *const known = _thumbnails.object(index.row())) {
        return *known;
    }
    const QPixmap made = framed(readSnapshot(snapshot(index), thumbnailSize - QSize(2, 2)));
    _thumbnails.insert(index.row(), new QPixmap(made));
    return made;
}
