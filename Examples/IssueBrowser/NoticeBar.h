#pragma once

#include <QFrame>

class QLabel;

/// Something that the user has to know about the archive as long as it is shown.
class NoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit NoticeBar(QWidget *parent = nullptr);

    /// Shows a plain text; without one the bar is away.
    void setText(const QString &text);

private:
    QLabel *_text;
};
