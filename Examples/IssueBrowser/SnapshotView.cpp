#include "SnapshotView.h"

#include <QAction>
#include <QBuffer>
#include <QDialog>
#include <QFileDialog>
#include <QGuiApplication>
#include <QImageReader>
#include <QMessageBox>
#include <QPainter>
#include <QSaveFile>
#include <QScreen>
#include <QVBoxLayout>

namespace {

constexpr qint64 mostPixels = 64LL * 1024 * 1024;
constexpr QSize largest(1920, 1440);

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

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
    , _enlarge(new QAction(tr("&Enlarge"), this))
    , _save(new QAction(tr("&Save Image As…"), this))
{
    setObjectName(QStringLiteral("snapshot"));
    setMinimumSize(120, 90);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    _enlarge->setShortcut(Qt::Key_Return);
    for (QAction *action : {_enlarge, _save}) {
        action->setShortcutContext(Qt::WidgetShortcut);
        addAction(action);
    }
    connect(_enlarge, &QAction::triggered, this, &SnapshotView::enlarge);
    connect(_save, &QAction::triggered, this, &SnapshotView::chooseAndSave);
    setSnapshot(nullptr, QString());
}

void SnapshotView::setSnapshot(const QByteArray *bytes, const QString &name)
{
    _bytes = bytes ? *bytes : QByteArray();
    _name = name;
    _image = readSnapshot(bytes, largest);
    _placeholder = bytes ? tr("This image can't be shown") : tr("No snapshot");
    _enlarge->setEnabled(!_image.isNull());
    _save->setEnabled(!_bytes.isEmpty());
    setToolTip(_image.isNull() ? QString() : tr("Double click to enlarge"));
    update();
}

void SnapshotView::enlarge()
{
    auto *const dialog = new QDialog(window());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setObjectName(QStringLiteral("enlarged"));
    dialog->setWindowTitle(_name);
    auto *const view = new SnapshotView;
    view->setSnapshot(&_bytes, _name);
    view->_enlarge->setEnabled(false);
    view->setToolTip(QString());
    auto *const layout = new QVBoxLayout(dialog);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    const QSize room = screen()->availableSize() * 9 / 10;
    const QSize whole = _image.size() + QSize(2, 2);
    dialog->resize(whole.boundedTo(room) == whole ? whole : whole.scaled(room, Qt::KeepAspectRatio));
    dialog->show();
}

void SnapshotView::chooseAndSave()
{
    // A name from the archive must not lead to another folder.
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Image As"), QFileInfo(_name).fileName());
    if (!path.isEmpty() && !writeFile(path, _bytes)) {
        QMessageBox box(QMessageBox::Critical, tr("Error"),
                        tr("The image can't be saved as \"%1\"").arg(path), QMessageBox::Ok, this);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    }
}

void SnapshotView::mouseDoubleClickEvent(QMouseEvent *)
{
    _enlarge->trigger();
}

void SnapshotView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
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
