#pragma once

#include "NodeCount.h"

class QDomDocument;
class QIODevice;

namespace BCFLib::Xml {

/// Parses @p device, which is opened for reading if it is closed, without namespace processing.
///
/// False if the content is not well-formed; @p document is empty then. A file that passes one of the bounds
/// of Limits, or whose document type declares entities or defaults of attributes, counts as not well-formed:
/// such declarations have no use in an archive, and they make small files grow. Document types and the XML
/// declaration are no part of the document, nor is what follows a replaced character after the root.
///
/// Elements of which a file may hold any number are best kept in runs until their turn comes, see
/// takeChildren().
///
/// Throws std::bad_alloc where memory ends.
bool readDocument(QIODevice *device, QDomDocument *document, NodeCount::Runs runs = NodeCount::Runs::None);

} // namespace BCFLib::Xml
