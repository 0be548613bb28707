#pragma once

#include <QImage>
#include <QWidget>

/// The image that @p bytes hold, no larger than @p bounds; null if they hold none.
///
/// Images come from strangers: only the usual kinds are read, and none whose header promises more
/// than memory should be spent on.
QImage readSnapshot(const QByteArray *bytes, const QSize &bounds);

/// Shows one snapshot as large as the space allows, or says that there is none.
///
/// A double click or Return enlarges it; the context menu does so too and saves it as it came.
class SnapshotView : public QWidget
{
    Q_OBJECT

public:
    explicit SnapshotView(QWidget *parent = nullptr);

    /// Null for no image; @p name is the one that its file has in the archive.
    void setSnapshot(const QByteArray *bytes, const QString &name);

    QSize sizeHint() const override { return {300, 220}; }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    void enlarge();
    void chooseAndSave();

    QByteArray _bytes;
    QString _name;
    QImage _image;
    QString _placeholder;
    QAction *_enlarge;
    QAction *_save;
};
