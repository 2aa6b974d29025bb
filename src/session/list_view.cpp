#include "session/list_view.h"

#include <utility>

#include "vbrt/error.h"

namespace session {

ListView::ListView(int columns) : columns_(columns) {}

const ListItem& ListView::Item(int index) const {
  return const_cast<ListView*>(this)->At(index);
}

ListItem& ListView::At(int index) {
  if (index < 0 || index >= Count()) vbrt::Raise(vbrt::kSubscriptOutOfRange);
  return items_[static_cast<std::size_t>(index)];
}

int ListView::Add(std::string text, std::string key, std::optional<int16_t> smallIcon,
                  int before) {
  if (before < -1 || before > Count()) vbrt::Raise(vbrt::kSubscriptOutOfRange);
  if (!key.empty() && keys_.contains(key)) vbrt::Raise(vbrt::kKeyNotUnique);
  ListItem item;
  item.text = std::move(text);
  item.key = std::move(key);
  item.smallIcon = smallIcon;
  if (!item.key.empty()) keys_.insert(item.key);
  const int index = before == -1 ? Count() : before;
  items_.insert(items_.begin() + index, std::move(item));
  return index;
}

void ListView::Remove(int index) {
  const ListItem& item = At(index);
  if (!item.key.empty()) keys_.erase(item.key);
  items_.erase(items_.begin() + index);
}

void ListView::RemoveByKey(std::string_view key) {
  const int index = FindKey(key);
  if (index < 0) vbrt::Raise(vbrt::kSubscriptOutOfRange);
  Remove(index);
}

void ListView::Clear() {
  items_.clear();
  keys_.clear();
}

void ListView::SetText(int index, std::string text) { At(index).text = std::move(text); }

void ListView::SetSubItem(int index, int subItem, std::string text) {
  ListItem& item = At(index);
  if (subItem < 1 || subItem >= columns_) vbrt::Raise(vbrt::kInvalidPropertyValue);
  // A row's sub-items are stored once the first is set, all at once: they are usually set
  // one after the other. Until then they read as "".
  if (item.subItems.empty()) item.subItems.resize(static_cast<std::size_t>(columns_ - 1));
  item.subItems[static_cast<std::size_t>(subItem - 1)] = std::move(text);
}

const std::string& ListView::SubItem(int index, int subItem) const {
  static const std::string kEmpty;
  const ListItem& item = Item(index);
  if (subItem < 1 || subItem >= columns_) vbrt::Raise(vbrt::kInvalidPropertyValue);
  if (item.subItems.size() < static_cast<std::size_t>(subItem)) return kEmpty;
  return item.subItems[static_cast<std::size_t>(subItem - 1)];
}

void ListView::SetKey(int index, std::string key) {
  ListItem& item = At(index);
  if (item.key == key) return;
  if (!key.empty() && keys_.contains(key)) vbrt::Raise(vbrt::kKeyNotUnique);
  if (!item.key.empty()) keys_.erase(item.key);
  item.key = std::move(key);
  if (!item.key.empty()) keys_.insert(item.key);
}

void ListView::SetSmallIcon(int index, std::optional<int16_t> icon) { At(index).smallIcon = icon; }

void ListView::SetSelected(int index, bool selected) { At(index).selected = selected; }

int ListView::FindKey(std::string_view key) const {
  if (key.empty() || !keys_.contains(std::string(key))) return -1;
  for (int i = 0; i < Count(); ++i) {
    if (items_[static_cast<std::size_t>(i)].key == key) return i;
  }
  return -1;
}

int ListView::FirstSelected() const {
  for (int i = 0; i < Count(); ++i) {
    if (items_[static_cast<std::size_t>(i)].selected) return i;
  }
  return -1;
}

}  // namespace session
