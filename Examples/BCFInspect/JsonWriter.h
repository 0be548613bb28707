#pragma once

struct Archive;
class QIODevice;

/// Writes one archive as a JSON object on one line, as Docs/bcf-inspect.schema.json describes it.
///
/// Topics are in their variant form, but for two things: images are data URLs, the form in which a
/// viewpoint takes them back, and dates are in UTC, as a local one means nothing to whoever reads it
/// elsewhere. Only one topic at a time is held as text.
void writeJson(const Archive &archive, QIODevice &out);
