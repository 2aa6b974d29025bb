#include "session/list_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "../vbrt/raises.h"

namespace session {
namespace {

TEST(ListViewTest, KeysAreUniqueButEmptyKeysRepeat) {
  ListView list(2);
  list.Add("a", "K");
  list.Add("b");
  list.Add("c");
  EXPECT_THAT([&] { list.Add("d", "K"); }, RaisesError(vbrt::kKeyNotUnique));
  EXPECT_THAT([&] { list.SetKey(1, "K"); }, RaisesError(vbrt::kKeyNotUnique));
  EXPECT_EQ(list.Count(), 3);
  list.SetKey(0, "K");  // a row keeps its own key
  list.SetKey(0, "L");  // and gives the old one free
  list.SetKey(1, "K");
  EXPECT_EQ(list.FindKey("K"), 1);
  EXPECT_EQ(list.FindKey("L"), 0);
  EXPECT_EQ(list.FindKey(""), -1);
  list.RemoveByKey("L");
  EXPECT_EQ(list.FindKey("K"), 0);
  list.Add("e", "L");  // a removed row's key is free again
  EXPECT_THAT([&] { list.RemoveByKey("none"); }, RaisesError(vbrt::kSubscriptOutOfRange));
  list.Clear();
  list.Add("f", "K");
  EXPECT_EQ(list.Count(), 1);
}

TEST(ListViewTest, PositionsAndSubItemsAreRangeChecked) {
  ListView list(7);
  list.Add("last");
  EXPECT_EQ(list.Add("first", "", std::nullopt, 0), 0);
  EXPECT_EQ(list.Item(1).text, "last");
  EXPECT_THAT([&] { list.Add("x", "", std::nullopt, 5); }, RaisesError(vbrt::kSubscriptOutOfRange));
  EXPECT_THAT([&] { list.Item(2); }, RaisesError(vbrt::kSubscriptOutOfRange));
  EXPECT_THAT([&] { list.SetText(-1, "x"); }, RaisesError(vbrt::kSubscriptOutOfRange));

  EXPECT_EQ(list.SubItem(0, 6), "");  // never set
  list.SetSubItem(0, 6, "9");
  EXPECT_EQ(list.SubItem(0, 6), "9");
  EXPECT_EQ(list.SubItem(0, 1), "");
  EXPECT_THAT([&] { list.SetSubItem(0, 7, "x"); }, RaisesError(vbrt::kInvalidPropertyValue));
  EXPECT_THAT([&] { list.SetSubItem(0, 0, "x"); }, RaisesError(vbrt::kInvalidPropertyValue));
  EXPECT_THAT([&] { list.SubItem(0, 7); }, RaisesError(vbrt::kInvalidPropertyValue));
}

}  // namespace
}  // namespace session
