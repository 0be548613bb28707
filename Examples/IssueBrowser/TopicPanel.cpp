#include "TopicPanel.h"

#include "DisplayText.h"
#include "FactLabel.h"
#include "TopicTableModel.h"

#include <Core/Utils/BCFLib/Topic.h>

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace {

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return DisplayText::oneLine(parts.join(QStringLiteral(" · ")));
}

QString stamp(const QDateTime &date, const QString &author)
{
    return (DisplayText::date(date) + QLatin1Char('\n') + DisplayText::oneLine(author)).trimmed();
}

} // namespace

TopicPanel::TopicPanel(TopicTableModel *topics, QWidget *parent)
    : QWidget(parent)
    , _topics(topics)
    , _title(new QLineEdit)
    , _status(new QComboBox)
    , _description(new QPlainTextEdit)
{
    _title->setObjectName(QStringLiteral("title"));
    _status->setObjectName(QStringLiteral("status"));
    _status->setEditable(true);
    _status->setInsertPolicy(QComboBox::NoInsert);
    _description->setReadOnly(true);
    _description->setTabChangesFocus(true);

    auto *const form = new QFormLayout(this);
    form->addRow(tr("&Title"), _title);
    form->addRow(tr("Stat&us"), _status);
    _type = addFact(form, tr("Kind"));
    _assignedTo = addFact(form, tr("Assigned to"));
    _created = addFact(form, tr("Created"));
    _modified = addFact(form, tr("Modified"));
    _labels = addFact(form, tr("Labels"));
    form->addRow(_description);

    connect(_title, &QLineEdit::editingFinished, this, &TopicPanel::submit);
    connect(_status->lineEdit(), &QLineEdit::editingFinished, this, &TopicPanel::submit);
    connect(_status, QOverload<int>::of(&QComboBox::activated), this, &TopicPanel::setStatus);
    connect(_topics, &TopicTableModel::modelReset, this, &TopicPanel::offerStatuses);
    connect(_topics, &TopicTableModel::dataChanged, this, &TopicPanel::refresh);
    refresh();
}

void TopicPanel::setTopic(const QModelIndex &index)
{
    _index = index;
    refresh();
}

void TopicPanel::submit()
{
    // Only what the user has typed: a field may show less than a stranger's text holds.
    if (_title->isModified()) {
        _topics->setData(_index, _title->text());
    }
    if (_status->lineEdit()->isModified()) {
        setStatus();
    }
    refresh();
}

void TopicPanel::setStatus()
{
    _topics->setData(QModelIndex(_index).siblingAtColumn(TopicTableModel::Status), _status->currentText());
}

void TopicPanel::editTitle()
{
    _title->setFocus();
    _title->selectAll();
}

void TopicPanel::offerStatuses()
{
    _status->clear();
    _status->addItems(_topics->statuses());
}

void TopicPanel::refresh()
{
    static const BCFLib::Topic *const none = nullptr;
    const BCFLib::Topic *const topic = _index.isValid() ? _topics->topic(_index) : none;
    setEnabled(topic != nullptr);
    if (!topic) {
        _title->clear();
        _status->clearEditText();
        _description->clear();
        for (QLabel *fact : {_type, _assignedTo, _created, _modified, _labels}) {
            fact->clear();
        }
        return;
    }
    const QString status = topic->topicStatus();
    if (!status.isEmpty() && _status->findText(status, Qt::MatchExactly | Qt::MatchCaseSensitive) < 0) {
        _status->addItem(status);
    }
    _title->setText(topic->title());
    _title->setCursorPosition(0);
    _status->setEditText(status);
    _type->setText(joined({topic->topicType(), topic->priority()}));
    _assignedTo->setText(joined({topic->assignedTo()}));
    _created->setText(stamp(topic->creationDate(), topic->creationAuthor()));
    _modified->setText(stamp(topic->modifiedDate(), topic->modifiedAuthor()));
    _labels->setText(joined(topic->labels()));
    _description->setPlainText(DisplayText::paragraph(topic->description()));
}
