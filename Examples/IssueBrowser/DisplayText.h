#pragma once

#include <QString>

namespace BCFLib {
class Viewpoint;
}

class QDateTime;

/// What the window shows of values that come from strangers.
namespace DisplayText {

/// The beginning of @p text on one line; laying out megabytes would bring the window to a halt.
QString oneLine(const QString &text);
/// The beginning of @p text with its lines, and a word on how much is left out.
QString paragraph(const QString &text);
/// A date as the user's language has it; empty for an invalid one.
QString date(const QDateTime &date);
/// What the user calls the viewpoint at that place of its topic, counted from 1.
QString viewName(int number);

/// The cameras of a viewpoint that count, one on a line.
QString cameras(const BCFLib::Viewpoint &viewpoint);
/// How many model elements a viewpoint selects, shows, hides and colours.
QString elements(const BCFLib::Viewpoint &viewpoint);
/// How many lines, clipping planes and bitmaps a viewpoint has.
QString geometry(const BCFLib::Viewpoint &viewpoint);

} // namespace DisplayText
