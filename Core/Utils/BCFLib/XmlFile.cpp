#include "XmlFile.h"

#include "BoundedReading.h"
#include "DOMXml.h"
#include "Limits.h"
#include "XmlGuard.h"

#include <QDomDocument>
#include <QIODevice>
#include <QTextStream>

#include <new>

namespace BCFLib {

bool XmlFile::read(QIODevice *device, QDomDocument *document)
{
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    QByteArray bytes;
    // A stream that breaks off may have brought a whole document all the same.
    if (readToEnd(device, Limits::xmlBytes, &bytes) == ReadOutcome::TooLarge
        || !XmlGuard::isHarmless(bytes)) {
        return false;
    }
    try {
        return document->setContent(bytes);
    } catch (const std::bad_alloc &) {
        return false;
    }
}

void XmlFile::write(const QDomDocument &document, QIODevice *device)
{
    if (device == nullptr) {
        return;
    }
    device->setTextModeEnabled(true);
    QTextStream stream(device);
    stream.setCodec("UTF-8");
    stream.setRealNumberPrecision(Tavrin::DOMXml::numberPrecision());
    document.save(stream, 4, QDomNode::EncodingFromTextStream);
}

} // namespace BCFLib
