#include "Reader.h"

#include "Builder.h"
#include "Decoder.h"
#include "Io/Limits.h"

#include <QDomDocument>
#include <QIODevice>

namespace BCFLib {

namespace {

constexpr int blockSize = 16 * 1024;

/// Fewer bytes only at the end of the device. After a failed read nothing more counts, also if later ones
/// would succeed.
QByteArray nextBlock(QIODevice *device)
{
    QByteArray block(blockSize, Qt::Uninitialized);
    int length = 0;
    while (length < blockSize) {
        const qint64 count = device->read(block.data() + length, blockSize - length);
        if (count <= 0) {
            break;
        }
        length += static_cast<int>(count);
    }
    block.resize(length);
    return block;
}

bool parse(QIODevice *device, QDomDocument *document, const QStringList &numerousElements)
{
    // A document is null, and not what others append to, until it makes a node.
    document->createTextNode(QString());
    Xml::Decoder decoder;
    Xml::Builder builder(document, *document, numerousElements);
    qint64 bytes = 0;
    for (bool isLast = false; !isLast;) {
        const QByteArray block = nextBlock(device);
        bytes += block.size();
        isLast = block.size() < blockSize;
        if (bytes > Limits::xmlBytes || !builder.parse(decoder.decode(block, isLast), isLast)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool Xml::readDocument(QIODevice *device, QDomDocument *document, const QStringList &numerousElements)
{
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    // Where a host has documents refuse or change names and texts, only a whole document shows which.
    const bool acceptsAll = QDomImplementation::invalidDataPolicy() == QDomImplementation::AcceptInvalidChars;
    const bool isWellFormed = parse(device, document, acceptsAll ? numerousElements : QStringList());
    if (!isWellFormed) {
        *document = QDomDocument();
    }
    return isWellFormed;
}

QDomElement Xml::elementsOfRun(const QDomNode &run)
{
    QDomDocument document = run.ownerDocument();
    QDomElement parent = document.createElement(QStringLiteral("elements"));
    Builder builder(&document, parent);
    builder.parse("<a>" + run.nodeValue().toUtf8() + "</a>", true);
    return parent.firstChildElement();
}

} // namespace BCFLib
