#include "TopicPanel.h"

#include "ArchiveEditor.h"
#include "DisplayText.h"
#include "FactLabel.h"
#include "FieldKeys.h"
#include "TopicTableModel.h"

#include <Core/Utils/BCFLib/Topic.h>

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

using BCFLib::Topic;

namespace {

QString stamp(const QDateTime &date, const QString &author)
{
    return (DisplayText::date(date) + QLatin1Char('\n') + DisplayText::oneLine(author)).trimmed();
}

bool isList(const QVariant &value)
{
    return value.userType() == QMetaType::QStringList;
}

/// Labels stand side by side with commas between, or with semicolons where a label has a comma in it.
QString textOf(const QVariant &value)
{
    if (!isList(value)) {
        return value.toString();
    }
    const QStringList labels = value.toStringList();
    const bool haveComma = labels.join(QString()).contains(QLatin1Char(','));
    return haveComma ? labels.join(QStringLiteral("; ")) + QLatin1Char(';')
                     : labels.join(QStringLiteral(", "));
}

QVariant valueOf(const QString &text, bool asList)
{
    if (!asList) {
        return text;
    }
    QStringList labels;
    const QLatin1Char separator(text.contains(QLatin1Char(';')) ? ';' : ',');
    for (const QString &label : text.split(separator)) {
        labels << label.trimmed();
    }
    labels.removeAll(QString());
    return labels;
}

} // namespace

TopicPanel::TopicPanel(ArchiveEditor *editor, TopicTableModel *topics, QWidget *parent)
    : QWidget(parent)
    , _editor(editor)
    , _topics(topics)
    , _keys(new FieldKeys(this))
    , _description(new QPlainTextEdit)
{
    auto *const form = new QFormLayout(this);
    addField(form, tr("&Title"), "_title", "title");
    addField(form, tr("Stat&us"), "_topicStatus", "status", TopicTableModel::Status);
    addField(form, tr("T&ype"), "_topicType", "type", TopicTableModel::Type);
    addField(form, tr("&Priority"), "_priority", "priority", TopicTableModel::Priority);
    addField(form, tr("Assi&gned to"), "_assignedTo", "assignedTo", TopicTableModel::AssignedTo);
    addField(form, tr("&Labels"), "_labels", "labels");
    _created = addFact(form, tr("Created"));
    _modified = addFact(form, tr("Modified"));
    for (QLabel *stamp : {_created, _modified}) {
        // Always a date and an author, so that the panel keeps its size from topic to topic.
        stamp->setMinimumHeight(2 * fontMetrics().lineSpacing());
    }
    // It takes the room that is there rather than making the panel scroll.
    QSizePolicy whatIsLeft(QSizePolicy::Expanding, QSizePolicy::Ignored);
    whatIsLeft.setVerticalStretch(1);
    _description->setSizePolicy(whatIsLeft);
    _description->setMinimumHeight(5 * fontMetrics().lineSpacing());
    form->addRow(_description);

    _description->setObjectName(QStringLiteral("description"));
    _description->setPlaceholderText(tr("Description"));
    _description->setTabChangesFocus(true);
    _keys->watch(_description);

    connect(_keys, &FieldKeys::escaped, this, &TopicPanel::refresh);
    connect(_keys, &FieldKeys::left, this, [this](const QObject *field) {
        // The others tell by editingFinished().
        if (field == _description) {
            submit();
        }
    });
    connect(_editor, &ArchiveEditor::edited, this, &TopicPanel::refresh);
    connect(_topics, &TopicTableModel::modelReset, this, &TopicPanel::offerChoices);
    refresh();
}

void TopicPanel::addField(QFormLayout *form, const QString &label, const char *property, const char *name,
                          int choiceColumn)
{
    QComboBox *const choices = choiceColumn >= 0 ? new QComboBox : nullptr;
    QLineEdit *const line = new QLineEdit;
    if (choices) {
        choices->setLineEdit(line);
        // It would put more into the field than was typed.
        choices->setCompleter(nullptr);
        choices->setInsertPolicy(QComboBox::NoInsert);
        // The fields follow the width of the panel, not that of their choices.
        choices->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        choices->setMinimumContentsLength(6);
        connect(choices, QOverload<int>::of(&QComboBox::activated), this, [this, line] {
            line->setModified(true);
            submit();
        });
    }
    QWidget *const widget = choices ? static_cast<QWidget *>(choices) : line;
    widget->setObjectName(QLatin1String(name));
    form->addRow(label, widget);
    _keys->watch(widget);
    connect(line, &QLineEdit::editingFinished, this, &TopicPanel::submit);
    _fields.append({property, line, choices, choiceColumn});
}

void TopicPanel::offerChoices()
{
    for (const Field &field : std::as_const(_fields)) {
        if (field.choices) {
            QStringList values = _topics->values(static_cast<TopicTableModel::Column>(field.choiceColumn));
            values.removeAll(QString());
            field.choices->clear();
            field.choices->addItems(values);
        }
    }
    refresh();
}

void TopicPanel::setTopic(Topic *topic)
{
    _topic = topic;
    refresh();
}

void TopicPanel::submit()
{
    if (!_topic || !_editor->canEdit()) {
        return;
    }
    // Only what the user has typed: a field may show less than a stranger's text holds.
    QVariantMap typed;
    for (const Field &field : std::as_const(_fields)) {
        if (field.line->isModified()) {
            typed.insert(QLatin1String(field.property),
                         valueOf(field.line->text(), isList(_topic->property(field.property))));
        }
    }
    if (_description->document()->isModified()) {
        typed.insert(QStringLiteral("_description"), _description->toPlainText());
    }
    if (!typed.isEmpty() && !_editor->change(_topic, typed)) {
        refresh();
    }
}

void TopicPanel::editTitle()
{
    QLineEdit *const title = _fields.first().line;
    title->setFocus();
    title->selectAll();
}

void TopicPanel::refresh()
{
    setEnabled(_topic != nullptr);
    for (const Field &field : std::as_const(_fields)) {
        const QString text = _topic ? textOf(_topic->property(field.property)) : QString();
        if (field.choices) {
            constexpr Qt::MatchFlags same = Qt::MatchExactly | Qt::MatchCaseSensitive;
            if (!text.isEmpty() && field.choices->findText(text, same) < 0) {
                field.choices->addItem(text);
            }
            field.choices->setCurrentIndex(field.choices->findText(text, same));
            field.choices->setEnabled(_editor->canEdit());
        }
        field.line->setReadOnly(!_editor->canEdit());
        field.line->setText(text);
        field.line->setCursorPosition(0);
    }
    _created->setText(_topic ? stamp(_topic->creationDate(), _topic->creationAuthor()) : QString());
    _modified->setText(_topic ? stamp(_topic->modifiedDate(), _topic->modifiedAuthor()) : QString());
    showDescription();
}

void TopicPanel::showDescription()
{
    const QString whole = _topic ? _topic->description() : QString();
    const QString shown = DisplayText::paragraph(whole);
    if (shown != _description->toPlainText() || _description->document()->isModified()) {
        _description->setPlainText(shown);
    }
    // An edit of the beginning alone would cut off the rest.
    _description->setReadOnly(!_editor->canEdit() || shown.size() != whole.size());
}
