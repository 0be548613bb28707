#include "TopicArea.h"

#include "DisplayText.h"
#include "Settings.h"
#include "TopicFilterModel.h"
#include "TopicTableModel.h"

#include <Core/Utils/BCFLib/Topic.h>

#include <QBoxLayout>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QTableView>

using BCFLib::Topic;

namespace {

constexpr int widestColumn = 200;

/// Fills a field with the entry for any value and one for each of @p values, and keeps what is chosen.
void fill(QComboBox *field, const QString &any, const QString &none, const QStringList &values)
{
    const QSignalBlocker quiet(field);
    const QVariant chosen = field->currentData();
    field->clear();
    field->addItem(any);
    for (const QString &value : values) {
        field->addItem(value.isEmpty() ? none : DisplayText::oneLine(value), value);
    }
    if (chosen.isValid() && !values.contains(chosen.toString())) {
        field->addItem(DisplayText::oneLine(chosen.toString()), chosen);
    }
    field->setCurrentIndex(chosen.isValid() ? field->findData(chosen) : 0);
}

std::optional<QString> chosenText(const QComboBox *field)
{
    const QVariant chosen = field->currentData();
    return chosen.isValid() ? std::optional(chosen.toString()) : std::nullopt;
}

} // namespace

TopicArea::TopicArea(TopicTableModel *topics, QWidget *parent)
    : QWidget(parent)
    , _topics(topics)
    , _shown(new TopicFilterModel(topics, this))
    , _table(new QTableView)
    , _search(new QLineEdit)
    , _status(new QComboBox)
    , _assignee(new QComboBox)
    , _count(new QLabel)
    , _nothing(new QLabel(tr("Nothing matches")))
{
    makeTable();
    layOut();
    offerValues();

    connect(_search, &QLineEdit::textChanged, this, &TopicArea::applyFilter);
    for (const QComboBox *field : {_status, _assignee}) {
        connect(field, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &TopicArea::applyFilter);
    }
    connect(_topics, &QAbstractItemModel::modelReset, this, &TopicArea::showArchive);
    connect(_topics, &QAbstractItemModel::dataChanged, this, &TopicArea::offerValues);
    connect(_topics, &QAbstractItemModel::rowsInserted, this, &TopicArea::offerValues);
    connect(_topics, &QAbstractItemModel::rowsRemoved, this, &TopicArea::offerValues);
    connect(_shown, &QAbstractItemModel::layoutChanged, this, &TopicArea::keepPicked);
    connect(_shown, &QAbstractItemModel::layoutChanged, this, &TopicArea::showCount);
    connect(_shown, &QAbstractItemModel::rowsInserted, this, &TopicArea::showCount);
    connect(_shown, &QAbstractItemModel::rowsRemoved, this, &TopicArea::showCount);
    connect(_table->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            &TopicArea::followCurrent);
    showCount();
}

void TopicArea::makeTable()
{
    _table->setObjectName(QStringLiteral("topics"));
    _table->setModel(_shown);
    _table->setSelectionBehavior(QAbstractItemView::SelectRows);
    _table->setSelectionMode(QAbstractItemView::SingleSelection);
    _table->setAlternatingRowColors(true);
    _table->setShowGrid(false);
    _table->setTabKeyNavigation(false);
    _table->setWordWrap(false);
    _table->verticalHeader()->hide();
    _table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    _table->verticalHeader()->setDefaultSectionSize(_table->fontMetrics().height() + 8);
    QHeaderView *const header = _table->horizontalHeader();
    header->setObjectName(QStringLiteral("topicColumns"));
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header->setSectionResizeMode(TopicTableModel::Title, QHeaderView::Stretch);
    // The archive's own order, until the user asks for another.
    header->setSortIndicator(-1, Qt::AscendingOrder);
    _table->setSortingEnabled(true);
}

void TopicArea::layOut()
{
    _search->setObjectName(QStringLiteral("filter"));
    _search->setPlaceholderText(tr("Search topics and comments"));
    _search->setClearButtonEnabled(true);
    _status->setObjectName(QStringLiteral("statusFilter"));
    _assignee->setObjectName(QStringLiteral("assigneeFilter"));
    for (QComboBox *field : {_status, _assignee}) {
        field->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        field->setMinimumContentsLength(14);
    }
    _count->setObjectName(QStringLiteral("count"));

    _nothing->setObjectName(QStringLiteral("nothing"));
    _nothing->setAlignment(Qt::AlignCenter);
    _nothing->setEnabled(false);
    auto *const overTable = new QVBoxLayout(_table->viewport());
    overTable->addWidget(_nothing);

    auto *const bar = new QHBoxLayout;
    bar->addWidget(_search, 1);
    bar->addWidget(_status);
    bar->addWidget(_assignee);
    bar->addWidget(_count);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(_table, 1);
}

Topic *TopicArea::topic() const
{
    return _topics->topic(_shown->mapToSource(_table->currentIndex()));
}

void TopicArea::pick(const Topic *topic)
{
    if (!_shown->mapFromSource(_topics->indexOf(topic)).isValid()) {
        clearFilter();
    }
    const QModelIndex index = _shown->mapFromSource(_topics->indexOf(topic));
    if (index.isValid()) {
        _table->setCurrentIndex(index);
    }
}

void TopicArea::keep(const Topic *topic)
{
    _shown->keep(topic);
}

void TopicArea::find()
{
    _search->setFocus(Qt::ShortcutFocusReason);
    _search->selectAll();
}

void TopicArea::showArchive()
{
    clearFilter();
    offerValues();
    keepPicked();
    showCount();
    fitColumns();
}

void TopicArea::fitColumns()
{
    if (Settings::remembers(_table->horizontalHeader())) {
        return;
    }
    for (int column = 0; column < _shown->columnCount(); ++column) {
        // The title takes what the others leave.
        if (column != TopicTableModel::Title) {
            _table->resizeColumnToContents(column);
            _table->setColumnWidth(column, qMin(_table->columnWidth(column) + 8, widestColumn));
        }
    }
}

void TopicArea::offerValues()
{
    fill(_status, tr("Any status"), tr("No status"), _topics->values(TopicTableModel::Status));
    fill(_assignee, tr("Anyone"), tr("Nobody assigned"), _topics->values(TopicTableModel::AssignedTo));
}

void TopicArea::clearFilter()
{
    {
        const QSignalBlocker quietSearch(_search);
        const QSignalBlocker quietStatus(_status);
        const QSignalBlocker quietAssignee(_assignee);
        _search->clear();
        _status->setCurrentIndex(0);
        _assignee->setCurrentIndex(0);
    }
    applyFilter();
}

void TopicArea::applyFilter()
{
    _shown->setFilter({_search->text(), chosenText(_status), chosenText(_assignee)});
}

void TopicArea::keepPicked()
{
    const QScopedValueRollback keeping(_isKeeping, true);
    const QModelIndex wanted = _shown->mapFromSource(_topics->indexOf(_wanted));
    const QModelIndex kept = wanted.isValid() ? wanted : _shown->index(0, TopicTableModel::Title);
    _table->setCurrentIndex(kept);
    // The scroll bar still has the range of the rows before.
    _table->doItemsLayout();
    _table->scrollTo(kept);
    followCurrent();
}

void TopicArea::followCurrent()
{
    Topic *const current = topic();
    if (!_isKeeping) {
        _wanted = current;
    }
    if (_announced != current) {
        _announced = current;
        emit picked(current);
    }
}

void TopicArea::showCount()
{
    const QLocale locale;
    const int all = _topics->rowCount();
    const int shown = _shown->rowCount();
    const QString total = all == 1 ? tr("1 topic") : tr("%1 topics").arg(locale.toString(all));
    _count->setText(shown == all ? total : tr("%1 of %2").arg(locale.toString(shown), total));
    _nothing->setVisible(shown == 0 && all > 0);
}
