#include "FactLabel.h"

#include <QFormLayout>
#include <QLabel>

QLabel *addFact(QFormLayout *form, const QString &name)
{
    auto *const heading = new QLabel(name);
    auto *const fact = new QLabel;
    for (QLabel *label : {heading, fact}) {
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }
    fact->setTextFormat(Qt::PlainText);
    fact->setTextInteractionFlags(Qt::TextSelectableByMouse);
    fact->setWordWrap(true);
    // A long word is cut off rather than pushing the form wide.
    fact->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    form->addRow(heading, fact);
    return fact;
}
