#include "Reader.h"

#include "Builder.h"
#include "Decoder.h"
#include "Io/Limits.h"
#include "Io/ReadBudget.h"

#include <QDomDocument>
#include <QIODevice>
#include <vector>

namespace BCFLib::Xml {

namespace {

constexpr std::size_t blockSize = std::size_t{16} * 1024;

/// Fills a block; fewer bytes come only at the end of the device. After a failed read nothing more counts,
/// also if later ones would succeed.
std::string_view readBlock(QIODevice *device, std::vector<char> *block)
{
    std::size_t length = 0;
    while (length < block->size()) {
        const qint64 count =
            device->read(block->data() + length, static_cast<qint64>(block->size() - length));
        if (count <= 0) {
            break;
        }
        length += static_cast<std::size_t>(count);
    }
    return {block->data(), length};
}

bool parse(QIODevice *device, QDomDocument *document, NodeCount::Runs runs)
{
    // A document is null, and nothing to append to, until it makes a node.
    document->createTextNode(QString());
    Decoder decoder;
    ReadBudget *budget = BudgetedDevice::budgetOf(device);
    Builder builder(document, runs, budget);
    std::vector<char> block(blockSize);
    qint64 bytes = 0;
    qint64 textBytes = 0;
    for (bool isLast = false; !isLast;) {
        const std::string_view piece = readBlock(device, &block);
        isLast = piece.size() < block.size();
        const std::string_view text = decoder.decode(piece, isLast);
        bytes += static_cast<qint64>(piece.size());
        textBytes += static_cast<qint64>(text.size());
        // In other encodings than UTF-8 a text can take a third of the bytes.
        if (budget != nullptr && textBytes > bytes) {
            budget->spend(textBytes - bytes);
        }
        bytes = qMax(bytes, textBytes);
        if (bytes > Limits::xmlBytes || !builder.parse(text, isLast)) {
            return false;
        }
    }
    return true;
}

} // namespace

bool readDocument(QIODevice *device, QDomDocument *document, NodeCount::Runs runs)
{
    if (!device->isOpen() && !device->open(QIODevice::ReadOnly)) {
        return false;
    }
    // Under another policy QDom may drop or change nodes, so nothing is packed.
    const bool acceptsAll = QDomImplementation::invalidDataPolicy() == QDomImplementation::AcceptInvalidChars;
    const bool isWellFormed = parse(device, document, acceptsAll ? runs : NodeCount::Runs::None);
    if (!isWellFormed) {
        *document = QDomDocument();
    }
    return isWellFormed;
}

} // namespace BCFLib::Xml
