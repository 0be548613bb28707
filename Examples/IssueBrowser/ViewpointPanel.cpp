#include "ViewpointPanel.h"

#include "CopyAction.h"
#include "DisplayText.h"
#include "ElementTableModel.h"
#include "FactLabel.h"
#include "SnapshotView.h"
#include "ViewpointListModel.h"

#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListView>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableView>
#include <QVBoxLayout>

ViewpointPanel::ViewpointPanel(QWidget *parent)
    : QWidget(parent)
    , _model(new ViewpointListModel(this))
    , _elements(new ElementTableModel(this))
    , _strip(new QListView)
    , _pages(new QTabWidget)
    , _snapshot(new SnapshotView)
{
    makeStrip();
    _pages->setObjectName(QStringLiteral("viewpointPages"));
    _pages->setDocumentMode(true);
    _pages->addTab(_snapshot, tr("Snaps&hot"));
    _pages->addTab(makeElementPage(), tr("Eleme&nts"));
    _pages->addTab(makeFactPage(), tr("&Camera"));

    auto *const heading = new QLabel(tr("&Viewpoints"));
    heading->setBuddy(_strip);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(heading);
    layout->addWidget(_strip);
    layout->addWidget(_pages, 1);

    connect(_strip->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ViewpointPanel::showCurrent);
    showCurrent();
}

void ViewpointPanel::makeStrip()
{
    _strip->setObjectName(QStringLiteral("viewpoints"));
    _strip->setModel(_model);
    _strip->setViewMode(QListView::IconMode);
    _strip->setMovement(QListView::Static);
    _strip->setWrapping(false);
    _strip->setUniformItemSizes(true);
    _strip->setSpacing(2);
    _strip->setIconSize(ViewpointListModel::thumbnailSize);
    _strip->setFixedHeight(ViewpointListModel::thumbnailSize.height() + 2 * _strip->fontMetrics().height()
                           + _strip->horizontalScrollBar()->sizeHint().height());
}

QWidget *ViewpointPanel::makeElementPage()
{
    auto *const table = new QTableView;
    table->setObjectName(QStringLiteral("elements"));
    table->setModel(_elements);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setTabKeyNavigation(false);
    table->setShowGrid(false);
    table->setWordWrap(false);
    table->verticalHeader()->hide();
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 4);
    table->horizontalHeader()->setObjectName(QStringLiteral("elementColumns"));
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->horizontalHeader()->setStretchLastSection(true);
    // An IfcGuid has 22 characters.
    table->setColumnWidth(ElementTableModel::Guid,
                          table->fontMetrics().horizontalAdvance(QString(25, QLatin1Char('0'))));
    addCopyAction(table, tr("&Copy GUIDs"));

    _elementCounts = new QLabel;
    _elementCounts->setTextFormat(Qt::PlainText);
    _elementCounts->setWordWrap(true);
    auto *const page = new QWidget;
    auto *const layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 4, 0, 0);
    layout->addWidget(_elementCounts);
    layout->addWidget(table, 1);
    return page;
}

QWidget *ViewpointPanel::makeFactPage()
{
    auto *const page = new QWidget;
    auto *const form = new QFormLayout(page);
    form->setContentsMargins(0, 4, 0, 0);
    _file = addFact(form, tr("File"));
    _guid = addFact(form, tr("GUID"));
    _cameras = addFact(form, tr("Camera"));
    _geometry = addFact(form, tr("Geometry"));
    return page;
}

void ViewpointPanel::setTopic(const BCFLib::Topic *topic)
{
    _model->setTopic(topic);
    _strip->setCurrentIndex(_model->index(0));
    if (_model->rowCount() == 0) {
        showCurrent();
    }
}

void ViewpointPanel::showViewpointOf(const BCFLib::Comment *comment)
{
    if (comment && comment->viewpoint()) {
        setCurrent(comment->viewpoint());
    }
}

const BCFLib::Viewpoint *ViewpointPanel::current() const
{
    return _model->viewpoint(_strip->currentIndex());
}

void ViewpointPanel::setCurrent(const BCFLib::Viewpoint *viewpoint)
{
    _strip->setCurrentIndex(_model->indexOf(viewpoint));
}

void ViewpointPanel::showCurrent()
{
    const QModelIndex current = _strip->currentIndex();
    const BCFLib::Viewpoint *const viewpoint = _model->viewpoint(current);
    _elements->setViewpoint(viewpoint);
    if (!viewpoint) {
        _snapshot->setSnapshot(nullptr, QString());
        for (QLabel *fact : {_elementCounts, _file, _guid, _cameras, _geometry}) {
            fact->clear();
        }
        return;
    }
    _snapshot->setSnapshot(_model->snapshot(current), DisplayText::oneLine(viewpoint->snapshotFilename()));
    _elementCounts->setText(DisplayText::elements(*viewpoint));
    _file->setText(DisplayText::oneLine(viewpoint->viewpointFilename()));
    _guid->setText(DisplayText::oneLine(viewpoint->guid()));
    _cameras->setText(DisplayText::cameras(*viewpoint));
    _geometry->setText(DisplayText::geometry(*viewpoint));
}
