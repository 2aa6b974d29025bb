#include "platform/path_parts.h"

#include <gtest/gtest.h>

namespace platform {
namespace {

TEST(PathParts, SplitsDrivePathsWithEitherSeparator) {
  for (const char* path : {"C:\\Models\\Coil\\Coil.vbp", "C:/Models/Coil/Coil.vbp"}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(FileName(path), "Coil.vbp");
    EXPECT_EQ(BaseName(path), "Coil");
    EXPECT_EQ(ExtensionName(path), "vbp");
  }
  EXPECT_EQ(ParentFolder("C:\\Models\\Coil\\Coil.vbp"), "C:\\Models\\Coil");
  EXPECT_EQ(ParentFolder("C:/Models/Coil/Coil.vbp"), "C:/Models/Coil");
  EXPECT_EQ(ParentFolder("/home/ann/Coil.vbp"), "/home/ann");
}

TEST(PathParts, KeepsRootsAndDropsTrailingSeparators) {
  EXPECT_EQ(ParentFolder("C:\\Coil.vbp"), "C:\\");
  EXPECT_EQ(ParentFolder("/Coil.vbp"), "/");
  EXPECT_EQ(ParentFolder("C:\\"), "");
  EXPECT_EQ(ParentFolder("C:\\Models\\Coil\\"), "C:\\Models");
  EXPECT_EQ(FileName("C:\\Models\\Coil\\"), "Coil");
  EXPECT_EQ(ParentFolder("Coil.vbp"), "");
  EXPECT_EQ(ParentFolder("sub\\Coil.vbp"), "sub");
}

TEST(PathParts, UsesTheLastDotOfTheFileNameOnly) {
  EXPECT_EQ(BaseName("C:\\my.models\\Coil"), "Coil");
  EXPECT_EQ(ExtensionName("C:\\my.models\\Coil"), "");
  EXPECT_EQ(BaseName("Coil.backup.mod"), "Coil.backup");
  EXPECT_EQ(ExtensionName("Coil.backup.mod"), "mod");
  EXPECT_EQ(BaseName(""), "");
}

TEST(PathParts, JoinsInTheFolderPathsOwnForm) {
  EXPECT_EQ(JoinPath("C:\\Tools\\Wizard", "WizardSessions"), "C:\\Tools\\Wizard\\WizardSessions");
  EXPECT_EQ(JoinPath("/opt/eow/bin/", "x.bvg"), "/opt/eow/bin/x.bvg");
  EXPECT_EQ(JoinPath("/home/ann/proj", "Demo.vbp"), "/home/ann/proj/Demo.vbp");
  EXPECT_EQ(JoinPath("C:\\", "x.bvg"), "C:\\x.bvg");
  EXPECT_EQ(JoinPath("C:", "x.bvg"), "C:\\x.bvg");
  EXPECT_EQ(JoinPath("C:/Models", "x.bvg"), "C:/Models/x.bvg");
  EXPECT_EQ(JoinPath("/home/ann\\proj", "x.bvg"), "/home/ann\\proj\\x.bvg");
  EXPECT_EQ(JoinPath("", "x.bvg"), "x.bvg");
}

}  // namespace
}  // namespace platform
