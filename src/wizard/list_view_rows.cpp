#include "wizard/list_view_rows.h"

#include <QSignalBlocker>

#include "wizard/pictures.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

// The small-icon number an item shows, kept beside its picture; -1 for none.
constexpr int kIconRole = Qt::UserRole;

void SetTextIfChanged(QTreeWidgetItem& item, int column, std::string_view text) {
  const QString shown = ToQt(text);
  if (item.text(column) == shown) return;
  item.setText(column, shown);
  // Narrow columns cut long expressions short: the whole text shows on hovering.
  item.setToolTip(column, shown);
}

}  // namespace

void ShowListRows(QTreeWidget& view, const session::ListView& list) {
  const QSignalBlocker quiet(view);
  while (view.topLevelItemCount() > list.Count())
    delete view.takeTopLevelItem(view.topLevelItemCount() - 1);
  if (view.topLevelItemCount() < list.Count()) {
    QList<QTreeWidgetItem*> added;
    for (int i = view.topLevelItemCount(); i < list.Count(); ++i) {
      auto* item = new QTreeWidgetItem;
      item->setData(0, kIconRole, -1);
      added << item;
    }
    view.addTopLevelItems(added);
  }
  const int columns = view.columnCount();
  for (int row = 0; row < list.Count(); ++row) {
    const session::ListItem& source = list.Item(row);
    QTreeWidgetItem& item = *view.topLevelItem(row);
    SetTextIfChanged(item, 0, source.text);
    for (int column = 1; column < columns; ++column) {
      const bool set = column <= static_cast<int>(source.subItems.size());
      SetTextIfChanged(item, column, set ? std::string_view(source.subItems[column - 1]) : "");
    }
    const int icon = source.smallIcon.value_or(-1);
    if (item.data(0, kIconRole).toInt() != icon) {
      item.setData(0, kIconRole, icon);
      item.setIcon(0, ListRowIcon(source.smallIcon));
    }
    if (item.isSelected() != source.selected) item.setSelected(source.selected);
  }
}

void TakeSelection(const QTreeWidget& view, session::ListView& list) {
  const int rows = std::min(view.topLevelItemCount(), list.Count());
  for (int row = 0; row < rows; ++row) {
    const bool selected = view.topLevelItem(row)->isSelected();
    if (list.Item(row).selected != selected) list.SetSelected(row, selected);
  }
}

}  // namespace wizard
