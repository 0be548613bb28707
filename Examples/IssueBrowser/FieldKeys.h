#pragma once

#include <QObject>

class QWidget;

/// What fields that edit an archive do beside taking text.
///
/// Escape gives up what was typed. Undo and redo go to the window where nothing is being typed. The wheel
/// turns through the choices of a field only after the user went there.
class FieldKeys : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Looks after a QLineEdit, QComboBox or QPlainTextEdit.
    void watch(QWidget *field);

signals:
    void escaped(QObject *field);
    /// The user has gone elsewhere in the window.
    void left(QObject *field);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
