#pragma once
// A list view as the session record uses it: rows with a text, sub-items, an optional
// unique key, a small icon that may be unset, and a selection.
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace session {

struct ListItem {
  std::string text;
  std::vector<std::string> subItems;  // sub-item i (1-based) is subItems[i - 1]
  std::string key;                    // "" = no key
  std::optional<int16_t> smallIcon;   // unset until assigned
  bool selected = false;
};

class ListView {
 public:
  // `columns` counts the row text's column too: sub-items run from 1 to columns - 1.
  explicit ListView(int columns);

  int Columns() const { return columns_; }
  int Count() const { return static_cast<int>(items_.size()); }
  // Rows are indexed from 0 here (the list view's own index is 1-based).
  const ListItem& Item(int index) const;
  const std::vector<ListItem>& Items() const { return items_; }

  // Adds a row before `before` (or at the end when `before` is -1) and returns its index.
  // Throws vbrt::VbError(kKeyNotUnique) when `key` is not empty and already used,
  // kSubscriptOutOfRange for a bad position.
  int Add(std::string text, std::string key = "", std::optional<int16_t> smallIcon = {},
          int before = -1);
  void Remove(int index);
  // Removes the row with `key`; kSubscriptOutOfRange when there is none.
  void RemoveByKey(std::string_view key);
  void Clear();

  void SetText(int index, std::string text);
  // kInvalidPropertyValue when `subItem` is outside 1..columns - 1.
  void SetSubItem(int index, int subItem, std::string text);
  // The sub-item's text; "" for one never set. kInvalidPropertyValue outside the range.
  const std::string& SubItem(int index, int subItem) const;
  // kKeyNotUnique when another row has the non-empty `key`.
  void SetKey(int index, std::string key);
  void SetSmallIcon(int index, std::optional<int16_t> icon);
  void SetSelected(int index, bool selected);

  // Index of the row with `key`, or -1.
  int FindKey(std::string_view key) const;
  // Index of the first selected row, or -1.
  int FirstSelected() const;

 private:
  ListItem& At(int index);
  int columns_;
  std::vector<ListItem> items_;
  std::unordered_set<std::string> keys_;
};

}  // namespace session
