// The files environment's own rules. The project, class and module files it writes for
// whole generations are compared byte for byte in tests/generator/project_golden_test.cpp.
#include "platform/vbfiles/vb_files_environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "../platform/scratch_folder.h"
#include "../vbrt/raises.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/posix/posix_file_system.h"
#include "platform/vbfiles/code_lines.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using vbfiles::LeavesLiteralOpen;

TEST(LeavesLiteralOpenTest, OnlyAnUnclosedStringOutsideACommentIsOpen) {
  // A ' inside a string starts no comment, and "Remark" is no Rem statement.
  for (const char* line : {"    ChDir ExploringObject_Path & \"\\Coil_Files 2", "x = \"it's",
                           "x = \"a'b\" & \"c'd\" & \"e", "Remark = \"a"}) {
    EXPECT_TRUE(LeavesLiteralOpen(line)) << line;
  }
  for (const char* line : {"x = \"a\" & \"b\"", "x = \"\"\"\"", "x = 1 ' say \"hi", "' \"open",
                           "x = \"a\" ' \"b", "    Rem \"open", "rem", "",
                           "''' Catch unknown server errors"}) {
    EXPECT_FALSE(LeavesLiteralOpen(line)) << line;
  }
}

std::string Joined(const vbfiles::CodeLines& code) {
  std::string text;
  for (const std::string_view piece : code.Pieces()) text += piece;
  return text;
}

TEST(CodeLinesTest, ALargeModuleKeepsEveryLineInOrder) {
  vbfiles::CodeLines code;
  std::string expected;
  for (int i = 0; i < 100000; ++i) {
    const std::string line = "    x = " + std::to_string(i) + " ' filler to make the code large";
    code.Insert(code.Count(), line);
    expected += line + "\r\n";
  }
  EXPECT_GT(code.Pieces().size(), 1u);
  EXPECT_EQ(Joined(code), expected);
  code.Insert(1, "second");
  EXPECT_EQ(code.Count(), 100001);
  EXPECT_EQ(Joined(code), expected.insert(expected.find("\r\n") + 2, "second\r\n"));
}

// No references are added here, so no registry value is ever found.
class NoRegistry : public Registry {
 public:
  RegistryValue QueryRegValue(RegistryRoot, std::string_view, std::string_view) const override {
    return {};
  }
};

class VbFilesEnvironmentTest : public ::testing::Test {
 protected:
  VbFilesEnvironmentTest() { fs::create_directories(scratch_.Path() / "p" / "other"); }

  std::string Read(const std::string& relative) const {
    return ReadBytes(scratch_.Path() / relative);
  }
  VBProject& NewProject() { return environment_.GetVBProjects().Add(ProjectType::ActiveXDll, true); }
  static DriveMap DriveC(const fs::path& root) {
    DriveMap drives;
    drives.Set('C', root);
    return drives;
  }

  ScratchFolder scratch_;
  NoRegistry registry_;
  PosixFileSystem files_{DriveC(scratch_.Path())};
  VbFilesEnvironment environment_{files_, registry_, merge::Libgit2Merger};
};

TEST_F(VbFilesEnvironmentTest, ModuleFileIsInTheAnsiCodePage) {
  VBComponent& module = NewProject().GetVBComponents().Add(ComponentKind::StdModule);
  EXPECT_EQ(module.Name(), "Module1");
  module.SetName("Custom");
  module.GetCodeModule().InsertLines(1, "' Temperatur in \xC2\xB0" "C, \xE2\x82\xAC, \xE2\x86\x92");
  module.SaveAs("C:\\p\\Coil.bas");
  EXPECT_EQ(Read("p/Coil.bas"), "Attribute VB_Name = \"Custom\"\r\n' Temperatur in \xB0" "C, \x80, ?\r\n");
}

TEST_F(VbFilesEnvironmentTest, InsertLinesPlacesAndSplitsLines) {
  VBComponent& module = NewProject().GetVBComponents().Add(ComponentKind::StdModule);
  CodeModule& code = module.GetCodeModule();
  code.InsertLines(1, "c");
  code.InsertLines(1, "a\r\nb = \"open");
  code.InsertLines(3, "x\r");  // a trailing line end makes an empty line
  EXPECT_EQ(code.CountOfLines(), 5);
  EXPECT_THROW(code.InsertLines(7, "x"), vbrt::VbError);
  module.SetName("M");
  module.SaveAs("C:\\p\\M.bas");
  EXPECT_EQ(Read("p/M.bas"),
            "Attribute VB_Name = \"M\"\r\na\r\nb = \"open\"\r\nx\r\n\r\nc\r\n");
}

TEST_F(VbFilesEnvironmentTest, ProjectFileListsSavedComponentsOnly) {
  VBProject& project = NewProject();
  VBComponent& cls = project.GetVBComponents().Item("Class1");
  VBComponent& module = project.GetVBComponents().Add(ComponentKind::StdModule);
  module.SetName("Custom");
  project.SaveAs("C:\\p\\Coil.vbp");  // nothing saved yet: no component lines
  EXPECT_EQ(Read("p/Coil.vbp").find("Class="), std::string::npos);
  EXPECT_EQ(Read("p/Coil.vbp").find("Module="), std::string::npos);

  cls.SetName("Coil");
  cls.SaveAs("C:\\p\\Coil.cls");
  module.SaveAs("C:\\p\\other\\Coil 2.bas");  // outside the project's folder: the full path
  project.SaveAs("C:\\p\\Coil.vbp");
  EXPECT_NE(Read("p/Coil.vbp").find("\r\nClass=Coil; Coil.cls\r\n"
                                    "Module=Custom; C:\\p\\other\\Coil 2.bas\r\n"),
            std::string::npos);
}

TEST_F(VbFilesEnvironmentTest, Failures) {
  VBProject& project = NewProject();
  EXPECT_THROW(project.GetVBComponents().Item("Class2"), vbrt::VbError);
  EXPECT_THAT([&] { project.SaveAs("C:\\p\\missing\\Coil.vbp"); },
              RaisesError(vbrt::kPathNotFound));
  EXPECT_TRUE(fs::is_empty(scratch_.Path() / "p" / "other"));
}

}  // namespace
}  // namespace platform
