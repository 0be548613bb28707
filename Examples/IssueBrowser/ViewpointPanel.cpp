#include "ViewpointPanel.h"

#include "DisplayText.h"
#include "FactLabel.h"
#include "SnapshotView.h"
#include "ViewpointListModel.h"

#include <Core/Utils/BCFLib/Comment.h>
#include <Core/Utils/BCFLib/Viewpoint.h>

#include <QFormLayout>
#include <QLabel>
#include <QListView>
#include <QScrollBar>

ViewpointPanel::ViewpointPanel(QWidget *parent)
    : QWidget(parent)
    , _model(new ViewpointListModel(this))
    , _strip(new QListView)
    , _snapshot(new SnapshotView)
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

    auto *const form = new QFormLayout(this);
    auto *const heading = new QLabel(tr("&Viewpoints"));
    heading->setBuddy(_strip);
    form->addRow(heading);
    form->addRow(_strip);
    form->addRow(_snapshot);
    _file = addFact(form, tr("File"));
    _cameras = addFact(form, tr("Camera"));
    _elements = addFact(form, tr("Elements"));
    _geometry = addFact(form, tr("Geometry"));

    connect(_strip->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ViewpointPanel::showCurrent);
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
        _strip->setCurrentIndex(_model->indexOf(comment->viewpoint()));
    }
}

void ViewpointPanel::showCurrent()
{
    const QModelIndex current = _strip->currentIndex();
    const BCFLib::Viewpoint *const viewpoint = _model->viewpoint(current);
    _snapshot->setSnapshot(_model->snapshot(current));
    _file->setText(viewpoint ? DisplayText::oneLine(viewpoint->viewpointFilename()) : QString());
    _cameras->setText(viewpoint ? DisplayText::cameras(*viewpoint) : QString());
    _elements->setText(viewpoint ? DisplayText::elements(*viewpoint) : QString());
    _geometry->setText(viewpoint ? DisplayText::geometry(*viewpoint) : QString());
}
