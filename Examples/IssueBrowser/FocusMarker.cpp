#include "FocusMarker.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QPainter>

FocusMarker::FocusMarker(QWidget *window)
    : QFocusFrame(window)
{
    setObjectName(QStringLiteral("focusMarker"));
    hide();
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, QWidget *focused) { follow(focused); });
}

void FocusMarker::follow(QWidget *focused)
{
    // Fields and buttons show the focus themselves.
    auto *const area = qobject_cast<QAbstractScrollArea *>(focused);
    setWidget(area && area->window() == window() ? area : nullptr);
}

void FocusMarker::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 4));
    painter.drawRect(rect());
}
