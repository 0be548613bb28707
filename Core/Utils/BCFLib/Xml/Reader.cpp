#include "Reader.h"

#include "GuardedSource.h"
#include "PackingReader.h"

#include <QDomDocument>
#include <QIODevice>

namespace BCFLib {

bool Xml::readDocument(QIODevice *device, QDomDocument *document, const QStringList &packedElements)
{
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    GuardedSource source(device);
    // Where a host has documents refuse or change names and texts, only a whole document tells which.
    const bool acceptsAll = QDomImplementation::invalidDataPolicy() == QDomImplementation::AcceptInvalidChars;
    PackingReader reader(document, acceptsAll ? packedElements : QStringList());
    return document->setContent(&source, &reader) && source.isHarmless();
    QT_WARNING_POP
}

} // namespace BCFLib
