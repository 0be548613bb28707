#pragma once

#include <QFocusFrame>

/// A frame in the colour of selections around the list, table or text that has the keyboard, which
/// many styles show only on a selected row or not at all.
class FocusMarker : public QFocusFrame
{
    Q_OBJECT

public:
    /// Follows the focus through @p window.
    explicit FocusMarker(QWidget *window);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow(QWidget *focused);
};
