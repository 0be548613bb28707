#ifndef BCFINSPECT_JSONWRITER_H
#define BCFINSPECT_JSONWRITER_H

namespace BCFLib {
class BCFModel;
}

class QIODevice;

/// Writes the variant form of every topic as one JSON array on one line.
///
/// Images become data URLs, the form in which a viewpoint takes them back. Only one topic at a time
/// is held as text.
void writeJson(const BCFLib::BCFModel &model, QIODevice &out);

#endif
