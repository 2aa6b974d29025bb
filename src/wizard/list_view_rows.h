#pragma once
// A session list view shown in a QTreeWidget, and the user's selection taken back.
#include <QTreeWidget>

#include "session/list_view.h"

namespace wizard {

// Shows `list` in `view`: one item per row with its text, sub-items (as far as the view
// has columns), small icon and selection. Items are reused, so the scroll position and the
// current item stay where they were.
void ShowListRows(QTreeWidget& view, const session::ListView& list);

// Marks in `list` the rows that are selected in `view`, and only those.
void TakeSelection(const QTreeWidget& view, session::ListView& list);

}  // namespace wizard
