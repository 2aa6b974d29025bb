#include "resources/string_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/string_ids.h"
#include "vbrt/error.h"

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

TEST(StringTableLists, IdentifiersStandUnderTheSameIndexAsTheirChoices) {
  EXPECT_THAT(ListFrom(kTypeIdBase),
              ElementsAre("zxElectrostatics", "zxMagnetostatics", "zxHeatTransfer",
                          "zxHeatTransferDynamic", "zxStressAnalysis", "zxCurrentFlow",
                          "zxTimeHarmonicMagnetics", "zxElectromagnetics",
                          "zxTimeHarmonicElectrics"));
  EXPECT_THAT(ListFrom(kClassIdBase), ElementsAre("zxPlaneParallel", "zxAxisymmetric"));
  EXPECT_THAT(ListFrom(kUnitIdBase),
              ElementsAre("zxMeters", "zxMillimeters", "zxCentimeters", "zxKilometers",
                          "zxInches", "zxFeet", "zxMiles", "zxMicrons"));
  EXPECT_THAT(ListFrom(kCoordIdBase), ElementsAre("zxCartesian", "zxPolar"));
}

TEST(StringTableLists, PerTypeTablesKeepTheirBlanksAndCrossing) {
  EXPECT_THAT(ListFrom(kFieldPointSuffixBase),
              ElementsAre("ES ", " ", " ", " ", " ", "SA ", "HE ", "TE", "EC"));
  EXPECT_THAT(ListFrom(kLabelSuffixBase),
              ElementsAre("ES", "MS", "HT", "HT", "CF", "SA", "HE", "MS", "EC"));
  EXPECT_THAT(ListFrom(kDataExtensionBase),
              ElementsAre("des", "dms", "dht", "dht", "dcf", "dsa", "dhe", "dms", "dec"));
  // The dialog filter of every type offers the extension its data file is copied under.
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
  try {
    LoadResString(0);
    FAIL() << "no error for a missing number";
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), vbrt::kResourceNotFound);
    EXPECT_EQ(error.Number(), 326);
  }
  EXPECT_THROW(Compose(kFolderMissingBefore, "x", 10070), vbrt::VbError);
}

TEST(StringTableMisses, EmptyEntryIsAHitNotAMiss) {
  ASSERT_TRUE(FindString(kLowestVersion).has_value());
  EXPECT_EQ(LoadResString(kLowestVersion), "");
  // 10095 is a miss and skipped; the empty 10099 is kept.
  EXPECT_THAT(ListFrom(10095, 5),
              ElementsAre("Zentrix 5.2", "Zentrix is starting... Please wait...",
                          "Zentrix Bravant ExploringObject Wizard", ""));
}

TEST(StringTableTexts, KeepBlanksAmpersandsAndMisspellings) {
  EXPECT_EQ(LoadResString(kAppTitle), "Zentrix Bravant ExploringObject Wizard");
  EXPECT_EQ(LoadResString(kLongTitle),
            "Zentrix Parametric Bravant ExploringObject Wizard for Visual Basic");
  EXPECT_EQ(LoadResString(kRequiredVersion), "Zentrix 5.2");
  EXPECT_EQ(LoadResString(kNewInputRow), "<new>");
  EXPECT_EQ(LoadResString(kBackButton), "< &Back");
  EXPECT_EQ(LoadResString(kDataHeading), "Model, Data && Sketch");
  EXPECT_EQ(LoadResString(kIntroText3), " \u2022   Problem data");
  EXPECT_EQ(LoadResString(kIntroText2),
            "For successfull completing this Wizard you will need to have defined and saved in "
            "Zentrix:");
  EXPECT_EQ(LoadResString(kDataExplanation),
            "Here you define basic Zentrix model and data files,  specify how this basic files "
            "will be included,  define a sketch for your model.");
  EXPECT_EQ(LoadResString(kProjectDescriptionSuffix),
            " - Zentrix Parametric Bravant ExploringObject");
  EXPECT_EQ(LoadResString(kGenerationSucceeded),
            "Your ExploringObject project was succesfully created.");
  EXPECT_EQ(LoadResString(kSketchFilter),
            "All images |*.bmp;*.gif;*.jpg;*.wmf;*.ico;*.cur|Windows bitmaps (*.bmp)|*.bmp|"
            "GIF images (*.gif)|*.gif|JPEG images (*.jpg)|*.jpg|Windows metafiles (*.wmf)|*.wmf|"
            "Icons (*.ico)|*.ico|Cursors (*.cur)|*.cur|All files |*.*");
  EXPECT_EQ(LoadResString(kValidationErrorPrefix) + LoadResString(kDescriptionEmpty),
            "Validation error: Parameter description cann't be empty.");
  EXPECT_EQ(LoadResString(kNothingSelected), "Nothing's selected.");
}

TEST(StringTableTexts, SplitMessagesComposeToTheFullText) {
  const std::string folder = "C:\\Work\\Coil_Files";
  EXPECT_EQ(Compose(kFilesFolderExistsBefore, folder, kFilesFolderExistsAfter),
            "ExploringObject needs for temporary files storing. Folder 'C:\\Work\\Coil_Files' "
            "already exists. Files in this folder may be overwritten. Click Yes for using this "
            "folder. Click No for creating new folder.");
  EXPECT_EQ(Compose(kProjectFileExistsBefore, "C:\\W\\Coil.vbp", kProjectFileExistsAfter),
            "Project file 'C:\\W\\Coil.vbp' already exists. Overwrite ?");
  EXPECT_EQ(Compose(kClassFileExistsBefore, "C:\\W\\Coil.cls", kClassFileExistsAfter),
            "Class module 'C:\\W\\Coil.cls' already exists. Overwrite ?");
  EXPECT_EQ(Compose(kModuleFileExistsBefore, "C:\\W\\Coil.bas", kModuleFileExistsAfter),
            "Module 'C:\\W\\Coil.bas' already exists. Overwrite ?");
  EXPECT_EQ(Compose(kFolderMissingBefore, "C:\\W", kFolderMissingAfter),
            "Folder 'C:\\W' does not exist. Create ?");
  EXPECT_EQ(Compose(kFolderNotCreatedBefore, "C:\\W", kFolderNotCreatedAfter),
            "Error: Can not create folder 'C:\\W'");
  EXPECT_EQ(Compose(kObjectRegisteredBefore, "Coil.Sondel", kObjectRegisteredMiddle) +
                "Coil.Sondel" + LoadResString(kObjectRegisteredAfter),
            "The object 'Coil.Sondel' has registered yet on your computer. If you continue then "
            "an old 'Coil.Sondel' object will be inaccessible.");
  EXPECT_EQ(Compose(kModelMissingBefore, "a.mod", kModelMissingAfter),
            "Model file 'a.mod' does not exist.");
  EXPECT_EQ(Compose(kDataMissingBefore, "a.dms", kDataMissingAfter),
            "Data file 'a.dms' does not exist.");
  EXPECT_EQ(Compose(kSketchMissingBefore, "a.bmp", kSketchMissingAfter),
            "Sketch file 'a.bmp' does not exist.");
  EXPECT_EQ(Compose(kRemoveQuestionBefore, "p1", kRemoveQuestionAfter),
            "Are you sure to remove 'p1' parameter ?");
}

}  // namespace
