#include "NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>

NoticeBar::NoticeBar(QWidget *parent)
    : QFrame(parent)
    , _text(new QLabel)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);

    auto *const icon = new QLabel;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    _text->setObjectName(QStringLiteral("notice"));
    _text->setForegroundRole(QPalette::ToolTipText);
    _text->setTextFormat(Qt::PlainText);
    _text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    _text->setWordWrap(true);
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(icon, 0, Qt::AlignTop);
    layout->addWidget(_text, 1);
    hide();
}

void NoticeBar::setText(const QString &text)
{
    _text->setText(text);
    setVisible(!text.isEmpty());
}
