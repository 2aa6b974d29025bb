#include "resources/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../vbrt/raises.h"
#include "resources/string_ids.h"

namespace {

using ::testing::ElementsAre;
using namespace resources;

TEST(StringTableLists, ProblemPageListsAreExactlyTheChoices) {
  EXPECT_THAT(ListFrom(kTypeListBase),
              ElementsAre("Electrostatics", "Magnetostatics", "Heat Transfer",
                          "Transient Heat Transfer", "Stress Analysis", "Current Flow",
                          "Time-Harmonic Magnetics", "Transient Electromagnetics",
                          "Time-Harmonic Electrics"));
  EXPECT_THAT(ListFrom(kClassListBase), ElementsAre("Plane Parallel", "Axisymmetric"));
  EXPECT_THAT(ListFrom(kUnitListBase),
              ElementsAre("Meters", "Millimeters", "Centimeters", "Kilometers", "Inches", "Feet",
                          "Miles", "Microns"));
  EXPECT_THAT(ListFrom(kCoordListBase), ElementsAre("Cartesian", "Polar"));
  EXPECT_THAT(ListFrom(kInputTypeBase, kInputTypeCount),
              ElementsAre("Geometrical", "Physical", "Postprocess", "Problem"));
}

// The per-type identifiers, suffixes and extensions are checked by position in
// tests/generator/record_values_test.cpp.
TEST(StringTableLists, IdentifiersStandUnderTheSameIndexAsTheirChoices) {
  EXPECT_THAT(ListFrom(kClassIdBase), ElementsAre("zxPlaneParallel", "zxAxisymmetric"));
  EXPECT_THAT(ListFrom(kUnitIdBase),
              ElementsAre("zxMeters", "zxMillimeters", "zxCentimeters", "zxKilometers",
                          "zxInches", "zxFeet", "zxMiles", "zxMicrons"));
  EXPECT_THAT(ListFrom(kCoordIdBase), ElementsAre("zxCartesian", "zxPolar"));
}

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
}

TEST(StringTableMisses, EmptyEntryIsAHitNotAMiss) {
  ASSERT_TRUE(FindString(kLowestVersion).has_value());
  EXPECT_EQ(LoadResString(kLowestVersion), "");
  // 10095 is a miss and skipped; the empty 10099 is kept.
  EXPECT_THAT(ListFrom(10095, 5),
              ElementsAre("Zentrix 5.2", "Zentrix is starting... Please wait...",
                          "Zentrix Bravant ExploringObject Wizard", ""));
}

// Texts that other tests do not show already: the table keeps leading, trailing and
// doubled blanks, ampersands, non-ASCII characters and the misspellings as they stand.
TEST(StringTableTexts, KeepBlanksAmpersandsAndMisspellings) {
  EXPECT_EQ(LoadResString(kBackButton), "< &Back");
  EXPECT_EQ(LoadResString(kIntroText3), " \u2022   Problem data");
  EXPECT_EQ(LoadResString(kIntroText2),
            "For successfull completing this Wizard you will need to have defined and saved in "
            "Zentrix:");
  EXPECT_EQ(LoadResString(kDataExplanation),
            "Here you define basic Zentrix model and data files,  specify how this basic files "
            "will be included,  define a sketch for your model.");
}

// The messages that the wizard, generator and command-line tests do not already show.
TEST(StringTableTexts, SplitMessagesComposeToTheFullText) {
  EXPECT_EQ(Compose(kFolderMissingBefore, "C:\\W", kFolderMissingAfter),
            "Folder 'C:\\W' does not exist. Create ?");
  EXPECT_EQ(Compose(kFolderNotCreatedBefore, "C:\\W", kFolderNotCreatedAfter),
            "Error: Can not create folder 'C:\\W'");
  EXPECT_EQ(Compose(kDataMissingBefore, "a.dms", kDataMissingAfter),
            "Data file 'a.dms' does not exist.");
  EXPECT_EQ(Compose(kSketchMissingBefore, "a.bmp", kSketchMissingAfter),
            "Sketch file 'a.bmp' does not exist.");
}

}  // namespace
