#include "SnapshotView.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace {

constexpr qint64 mostPixels = 64LL * 1024 * 1024;
constexpr QSize largest(1920, 1440);

} // namespace

QImage readSnapshot(const QByteArray *bytes, const QSize &bounds)
{
    if (!bytes) {
        return QImage();
    }
    static const QList<QByteArray> kinds{"png", "jpeg", "jpg", "bmp", "gif"};
    QBuffer buffer;
    buffer.setData(*bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!kinds.contains(reader.format()) || size.isEmpty()
        || static_cast<qint64>(size.width()) * size.height() > mostPixels) {
        return QImage();
    }
    if (size.boundedTo(bounds) != size) {
        reader.setScaledSize(size.scaled(bounds, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    }
    return reader.read();
}

SnapshotView::SnapshotView(QWidget *parent)
    : QWidget(parent)
{
    setMinimumSize(120, 90);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void SnapshotView::setSnapshot(const QByteArray *bytes)
{
    _image = readSnapshot(bytes, largest);
    _placeholder = bytes ? tr("This image can't be shown") : tr("No snapshot");
    update();
}

void SnapshotView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (_image.isNull()) {
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap, _placeholder);
        return;
    }
    const QRect inside = rect().adjusted(1, 1, -1, -1);
    QRect area(QPoint(), _image.size().scaled(inside.size(), Qt::KeepAspectRatio));
    area.moveCenter(inside.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(area, _image);
}
