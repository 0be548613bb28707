#pragma once

#include <QtGlobal>

/// Bounds on what an archive may cost, as archives come from strangers: each is far above what archives of
/// the field need.
namespace BCFLib::Limits {

/// Bytes of one XML file. A viewpoint of 308,000 elements takes some 50 MB.
constexpr qint64 xmlBytes = 256LL * 1024 * 1024;

/// Elements, attributes and other markup of one XML file, since a document in memory takes some
/// 200 bytes for each. A viewpoint of 308,000 elements has two million.
constexpr qint64 xmlNodes = 10LL * 1000 * 1000;

/// Bytes of one tag, comment or instruction, which the parser holds until it is complete.
constexpr qint64 xmlMarkupBytes = 1024 * 1024;

/// Attributes of one element. The format has at most six; names can be chosen such that the document takes
/// quadratic time over them.
constexpr qint64 xmlAttributes = 256;

/// Nesting of elements in one XML file. The format nests less than ten levels; documents are destroyed by
/// recursion over their depth.
constexpr int xmlDepth = 100;

/// Bytes of one snapshot image.
constexpr qint64 snapshotBytes = 256LL * 1024 * 1024;

/// Bytes of one attachment: what a QByteArray can hold with its own bookkeeping.
constexpr qint64 attachmentBytes = 2LL * 1024 * 1024 * 1024 - 64;

/// What the entries of one archive may cost together: this much, and this much more for each byte of the
/// archive. The unit is a byte that comes out of an entry. Deflate packs what tools write to between a third
/// and a fiftieth; entries that share their bytes, or that a markup names a thousand times, would bring any
/// number.
constexpr qint64 archiveCost = 256LL * 1024 * 1024;
constexpr qint64 archiveCostPerByte = 64;

/// What opening an entry costs. Each takes at least 150 bytes of an archive.
constexpr qint64 entryCost = 4096;

/// What an element, an attribute or another node of an XML file costs: the objects that come of one take up
/// to four times as much memory.
constexpr qint64 nodeCost = 96;

/// What an element within one of the numerous elements costs, which becomes no object of its own.
constexpr qint64 innerNodeCost = 32;

/// How many bytes of one archive may be read: this many, and this many more for each of its bytes. Those of
/// most archives are read once, and their directory a few times. Entries can share their bytes, though, and
/// unpack to nothing, which takes as long as ten times as many bytes that come out.
constexpr qint64 archiveReads = 4LL * 1024 * 1024;
constexpr qint64 archiveReadsPerByte = 8;

} // namespace BCFLib::Limits
