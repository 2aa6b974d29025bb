// The table's look-ups. Its texts are data (strings.tsv): the tests that show them are those
// of the views and messages that use them.
#include "resources/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../vbrt/raises.h"
#include "resources/string_ids.h"

namespace {

using ::testing::ElementsAre;
using namespace resources;

TEST(StringTableLists, EveryDataFilterOffersTheExtensionTheDataFileIsCopiedUnder) {
  for (int type = 0; type < 9; ++type) {
    const std::string extension = LoadResString(kDataExtensionBase + type);
    EXPECT_THAT(LoadResString(kDataFilterBase + type),
                ::testing::EndsWith("(*." + extension + ")|*." + extension))
        << "type " << type;
  }
}

TEST(StringTableMisses, AreDetectableAndRaiseResourceNotFound) {
  EXPECT_FALSE(FindString(10010).has_value());
  EXPECT_FALSE(FindString(0).has_value());
  EXPECT_THAT([] { LoadResString(0); }, RaisesError(vbrt::kResourceNotFound));
  EXPECT_THAT([] { Compose(kFolderMissingBefore, "x", 10070); },
              RaisesError(vbrt::kResourceNotFound));
  EXPECT_EQ(Compose(kFolderMissingBefore, "C:\\W", kFolderMissingAfter),
            "Folder 'C:\\W' does not exist. Create ?");
}

TEST(StringTableMisses, EmptyEntryIsAHitNotAMiss) {
  ASSERT_TRUE(FindString(kLowestVersion).has_value());
  EXPECT_EQ(LoadResString(kLowestVersion), "");
  // 10095 is a miss and skipped; the empty 10099 is kept.
  EXPECT_THAT(ListFrom(10095, 5),
              ElementsAre("Zentrix 5.2", "Zentrix is starting... Please wait...",
                          "Zentrix Bravant ExploringObject Wizard", ""));
}

}  // namespace
