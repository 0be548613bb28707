#ifndef BCFLIB_IO_LIMITS_H
#define BCFLIB_IO_LIMITS_H

#include <QtGlobal>

namespace BCFLib {

/// Bounds on what one entry of an archive may cost. Archives come from strangers; each bound is far
/// above anything that the field has seen and far below what takes a process down.
namespace Limits {

/// Bytes of one XML file. A viewpoint of 308,000 elements takes some 50 MB.
constexpr qint64 xmlBytes = 256LL * 1024 * 1024;

/// Elements, attributes and other markup of one XML file, since a document in memory takes some
/// 200 bytes for each. A viewpoint of 308,000 elements has two million.
constexpr qint64 xmlNodes = 10LL * 1000 * 1000;

/// Attributes of one element. The format has at most six; names can be chosen such that the document takes
/// quadratic time over them.
constexpr qint64 xmlAttributes = 256;

/// Nesting of elements in one XML file. The format nests less than ten levels; documents are
/// parsed in quadratic time and destroyed by recursion over their depth.
constexpr int xmlDepth = 100;

/// Bytes of one snapshot image.
constexpr qint64 snapshotBytes = 256LL * 1024 * 1024;

/// Bytes of one attachment: what a QByteArray can hold with its own bookkeeping.
constexpr qint64 attachmentBytes = 2LL * 1024 * 1024 * 1024 - 64;

/// What the entries of one archive may cost together, in bytes that they unpack to: so many, and this much
/// for each byte of the archive's own. Deflate packs what tools write to between a third and a fiftieth;
/// entries that share their bytes, or that a markup names a thousand times, would bring any number.
constexpr qint64 archiveBytes = xmlBytes;
constexpr qint64 archiveGrowth = 64;

/// What a packed byte that is read costs: it can unpack to nothing, and take as long as so many that come
/// out.
constexpr qint64 packedByteCost = 8;

/// What opening an entry costs.
constexpr qint64 openingCost = 2048;

/// What an element, an attribute or another node of an XML file costs: the objects that come of one take up
/// to four times as much memory.
constexpr qint64 nodeCost = 96;

/// What an element within one of the numerous elements costs, which becomes no object of its own.
constexpr qint64 innerNodeCost = 32;

} // namespace Limits
} // namespace BCFLib

#endif // BCFLIB_IO_LIMITS_H
