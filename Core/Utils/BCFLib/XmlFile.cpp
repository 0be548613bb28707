#include "XmlFile.h"

#include "GuardedSource.h"
#include "PackingReader.h"
#include "XmlPrinter.h"

#include <QDomDocument>
#include <QIODevice>

namespace BCFLib {

bool XmlFile::read(QIODevice *device, QDomDocument *document, const QStringList &packedElements)
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

void XmlFile::write(const QDomDocument &document, QIODevice *device)
{
    if (device == nullptr) {
        return;
    }
    device->setTextModeEnabled(true);
    XmlPrinter::print(document, device);
}

} // namespace BCFLib
