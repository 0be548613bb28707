#pragma once

class QAbstractItemView;
class QString;

/// Gives @p view a context menu entry and the usual key that copy the selected rows to the clipboard: the
/// whole texts of their first column, one on a line.
void addCopyAction(QAbstractItemView *view, const QString &name);
