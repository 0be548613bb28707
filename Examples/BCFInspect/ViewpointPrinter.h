#pragma once

namespace BCFLib {
class Viewpoint;
}

class QByteArray;
class Report;

/// Prints the fields of one viewpoint. The @p snapshot is null where there is none.
void printViewpoint(const BCFLib::Viewpoint &viewpoint, const QByteArray *snapshot, Report &report);
