#include "TopicPages.h"

#include "AttachmentListModel.h"
#include "CopyAction.h"
#include "TopicPanel.h"

#include <QDesktopServices>
#include <QListView>
#include <QLocale>
#include <QScrollArea>
#include <QTabWidget>
#include <QVBoxLayout>

TopicPages::TopicPages(TopicPanel *fields, QWidget *parent)
    : QWidget(parent)
    , _fields(fields)
    , _pages(new QTabWidget)
    , _attachments(new AttachmentListModel(this))
    , _list(new QListView)
{
    _pages->setObjectName(QStringLiteral("topicPages"));
    _pages->setDocumentMode(true);
    _list->setObjectName(QStringLiteral("attachments"));
    _list->setModel(_attachments);
    _list->setWordWrap(true);
    _list->setResizeMode(QListView::Adjust);
    _list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    _list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    _list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    _list->setIconSize(QSize(16, 16));
    _list->setAlternatingRowColors(true);
    addCopyAction(_list, tr("&Copy"));
    // Where the window is low, the table above keeps its third.
    auto *const scrolled = new QScrollArea;
    scrolled->setFrameShape(QFrame::NoFrame);
    scrolled->setFocusPolicy(Qt::NoFocus);
    scrolled->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scrolled->setWidgetResizable(true);
    scrolled->setWidget(fields);
    _pages->addTab(scrolled, tr("Top&ic"));
    _pages->addTab(_list, QString());
    // The tabs have no frame, so the fields stand in line with them.
    fields->layout()->setContentsMargins(0, 4, 0, 0);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(_pages);

    connect(_list, &QListView::clicked, this, &TopicPages::goToRelated);
    connect(_list, &QListView::activated, this, &TopicPages::open);
    setTopic(nullptr);
}

void TopicPages::setTopic(const BCFLib::Topic *topic)
{
    _attachments->setTopic(topic);
    _pages->setTabText(1, tr("Lin&ks and Files (%1)").arg(QLocale().toString(_attachments->rowCount())));
}

void TopicPages::editTitle()
{
    _pages->setCurrentIndex(0);
    _fields->editTitle();
}

bool TopicPages::goToRelated(const QModelIndex &index)
{
    BCFLib::Topic *const topic = _attachments->relatedTopic(index);
    if (topic) {
        // The second click of a double one must not lead on from there.
        _pages->setCurrentIndex(0);
        emit topicRequested(topic);
    }
    return topic != nullptr;
}

void TopicPages::open(const QModelIndex &index)
{
    const QUrl address = _attachments->address(index);
    if (!goToRelated(index) && !address.isEmpty()) {
        QDesktopServices::openUrl(address);
    }
}
