#pragma once

#include <QVector>
#include <QWidget>

namespace BCFLib {
class Topic;
}

class ArchiveEditor;
class FieldKeys;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class TopicTableModel;

/// The fields of one topic, most of which can be edited.
///
/// What is typed is taken over when the user leaves the field; until then Escape gives it up.
class TopicPanel : public QWidget
{
    Q_OBJECT

public:
    /// Its fields offer what @p topics have in theirs.
    TopicPanel(ArchiveEditor *editor, TopicTableModel *topics, QWidget *parent = nullptr);

    /// Shows another topic, or none.
    void setTopic(BCFLib::Topic *topic);
    /// Takes over what is being edited, as leaving the field would.
    void submit();
    /// Brings the user to the title.
    void editTitle();

private:
    /// One line of text that stands for a property of the topic.
    struct Field
    {
        const char *property;
        QLineEdit *line;
        /// Null for a field that offers none.
        QComboBox *choices;
        /// The column of the table that holds the choices.
        int choiceColumn;
    };

    void addField(QFormLayout *form, const QString &label, const char *property, const char *name,
                  int choiceColumn = -1);
    void offerChoices();
    void refresh();
    void showDescription();

    ArchiveEditor *_editor;
    TopicTableModel *_topics;
    FieldKeys *_keys;
    BCFLib::Topic *_topic = nullptr;
    QVector<Field> _fields;
    QLabel *_created;
    QLabel *_modified;
    QPlainTextEdit *_description;
};
