#pragma once

class QFormLayout;
class QLabel;
class QString;

/// Adds a row to @p form with a label that shows whatever text it gets as plain text, wrapped.
QLabel *addFact(QFormLayout *form, const QString &name);
