#include "platform/vbfiles/vb_files_environment.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include "platform/vbfiles/code_lines.h"
#include "vbrt/error.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using vbfiles::LeavesLiteralOpen;

TEST(LeavesLiteralOpenTest, FindsALiteralLeftOpen) {
  EXPECT_TRUE(LeavesLiteralOpen("    ChDir ExploringObject_Path & \"\\Coil_Files 2"));
  EXPECT_TRUE(LeavesLiteralOpen("x = \"it's"));  // the ' is inside the string
  EXPECT_TRUE(LeavesLiteralOpen("x = \"a'b\" & \"c'd\" & \"e"));
  // "Remark" is no Rem statement.
  EXPECT_TRUE(LeavesLiteralOpen("Remark = \"a"));
}

TEST(LeavesLiteralOpenTest, ClosedLiteralsAndCommentsAreNotOpen) {
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

TEST(CodeLinesTest, InsertsBeforeALineAndKeepsTheOthersInPlace) {
  vbfiles::CodeLines code;
  code.Insert(0, "a");
  code.Insert(1, "d = \"open");
  code.Insert(1, "b\nc");
  code.Insert(0, "");
  EXPECT_EQ(code.Count(), 5);
  EXPECT_EQ(Joined(code), "\r\na\r\nb\r\nc\r\nd = \"open\"\r\n");
  code.Insert(4, "x\r");  // a trailing line end makes an empty line
  EXPECT_EQ(code.Count(), 7);
  EXPECT_EQ(Joined(code), "\r\na\r\nb\r\nc\r\nx\r\n\r\nd = \"open\"\r\n");
  code.Insert(7, "e");
  EXPECT_EQ(Joined(code).substr(Joined(code).size() - 3), "e\r\n");
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

class MapRegistry : public Registry {
 public:
  std::map<std::string, std::string> defaults;
  RegistryValue QueryRegValue(RegistryRoot, std::string_view key, std::string_view) const override {
    const auto it = defaults.find(std::string(key));
    if (it == defaults.end()) return std::monostate{};
    return it->second;
  }
};

// Paths "C:\..." are files under a temporary folder; nothing else is needed here.
class FolderFileSystem : public FileSystem {
 public:
  explicit FolderFileSystem(fs::path root) : root_(std::move(root)) {}
  fs::path ToNative(std::string_view path) const override {
    std::string relative(path.substr(3));
    for (char& c : relative) {
      if (c == '\\') c = '/';
    }
    return root_ / relative;
  }
  bool FolderExists(std::string_view path) const override { return fs::is_directory(ToNative(path)); }
  bool FileExists(std::string_view path) const override { return fs::is_regular_file(ToNative(path)); }
  std::string AbsolutePath(std::string_view path) const override { return std::string(path); }
  void CreateFolder(std::string_view path) override { fs::create_directory(ToNative(path)); }
  void CopyFile(std::string_view, std::string_view) override {}
  void DeleteFile(std::string_view path) override { fs::remove(ToNative(path)); }

 private:
  fs::path root_;
};

class VbFilesEnvironmentTest : public ::testing::Test {
 protected:
  VbFilesEnvironmentTest()
      : root_(fs::temp_directory_path() / ("eow_vbfiles_" + std::to_string(::getpid()))),
        files_(root_),
        environment_(files_, registry_) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "p" / "other");
  }
  ~VbFilesEnvironmentTest() override { fs::remove_all(root_); }

  std::string Read(const std::string& relative) const {
    std::ifstream in(root_ / relative, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }

  static void Append(VBComponent& component, std::string_view line) {
    CodeModule& code = component.GetCodeModule();
    code.InsertLines(code.CountOfLines() + 1, line);
  }

  fs::path root_;
  MapRegistry registry_;
  FolderFileSystem files_;
  VbFilesEnvironment environment_;
};

TEST_F(VbFilesEnvironmentTest, ClassFileHasTheHeaderThenTheLinesWithCrLf) {
  VBProject& project = environment_.GetVBProjects().Add(ProjectType::ActiveXDll, true);
  VBComponent& cls = project.GetVBComponents().Item("Class1");
  cls.SetName("Coil");
  Append(cls, "Implements ZXBV.ExploringObject");
  Append(cls, "");
  Append(cls, "    ChDir ExploringObject_Path & \"\\Coil_Files");
  cls.SaveAs("C:\\p\\Coil.cls");
  EXPECT_EQ(Read("p/Coil.cls"),
            "VERSION 1.0 CLASS\r\n"
            "BEGIN\r\n"
            "  MultiUse = -1  'True\r\n"
            "  Persistable = 0  'NotPersistable\r\n"
            "  DataBindingBehavior = 0  'vbNone\r\n"
            "  DataSourceBehavior  = 0  'vbNone\r\n"
            "  MTSTransactionMode  = 0  'NotAnMTSObject\r\n"
            "END\r\n"
            "Attribute VB_Name = \"Coil\"\r\n"
            "Attribute VB_GlobalNameSpace = False\r\n"
            "Attribute VB_Creatable = True\r\n"
            "Attribute VB_PredeclaredId = False\r\n"
            "Attribute VB_Exposed = True\r\n"
            "Implements ZXBV.ExploringObject\r\n"
            "\r\n"
            "    ChDir ExploringObject_Path & \"\\Coil_Files\"\r\n");
}

TEST_F(VbFilesEnvironmentTest, ModuleFileIsInTheAnsiCodePage) {
  VBProject& project = environment_.GetVBProjects().Add(ProjectType::ActiveXDll, true);
  VBComponent& module = project.GetVBComponents().Add(ComponentKind::StdModule);
  EXPECT_EQ(module.Name(), "Module1");
  module.SetName("Custom");
  Append(module, "' Temperatur in \xC2\xB0" "C, \xE2\x82\xAC, \xE2\x86\x92");  // °, €, an arrow
  module.SaveAs("C:\\p\\Coil.bas");
  EXPECT_EQ(Read("p/Coil.bas"), "Attribute VB_Name = \"Custom\"\r\n' Temperatur in \xB0" "C, \x80, ?\r\n");
}

TEST_F(VbFilesEnvironmentTest, InsertLinesPlacesAndSplitsLines) {
  VBProject& project = environment_.GetVBProjects().Add(ProjectType::ActiveXDll, true);
  VBComponent& module = project.GetVBComponents().Add(ComponentKind::StdModule);
  CodeModule& code = module.GetCodeModule();
  code.InsertLines(1, "c");
  code.InsertLines(1, "a\r\nb = \"open");
  EXPECT_EQ(code.CountOfLines(), 3);
  EXPECT_THROW(code.InsertLines(5, "x"), vbrt::VbError);
  module.SetName("M");
  module.SaveAs("C:\\p\\M.bas");
  EXPECT_EQ(Read("p/M.bas"), "Attribute VB_Name = \"M\"\r\na\r\nb = \"open\"\r\nc\r\n");
}

TEST_F(VbFilesEnvironmentTest, ProjectFileNamesReferencesAndSavedComponents) {
  registry_.defaults["TypeLib\\{AAAA}\\2.0"] = "Host Type Library";
  registry_.defaults["TypeLib\\{AAAA}\\2.0\\0\\win32"] = "C:\\Host\\host.tlb";
  VBProject& project = environment_.GetVBProjects().Add(ProjectType::ActiveXDll, true);
  project.SetName("Sondel");
  project.SetDescription("Coil - demo");
  project.GetReferences().AddFromGuid("{C0E82B4F-2FCB-11D3-BEC8-0080AD0EBF00}", 5, 2);
  project.GetReferences().AddFromGuid("{AAAA}", 2, 0);
  VBComponent& cls = project.GetVBComponents().Item("Class1");
  VBComponent& module = project.GetVBComponents().Add(ComponentKind::StdModule);
  module.SetName("Custom");
  project.SaveAs("C:\\p\\Coil.vbp");  // nothing saved yet: no component lines
  EXPECT_EQ(Read("p/Coil.vbp").find("Class="), std::string::npos);

  cls.SetName("Coil");
  cls.SaveAs("C:\\p\\Coil.cls");
  module.SaveAs("C:\\p\\other\\Coil 2.bas");
  project.SaveAs("C:\\p\\Coil.vbp");
  const std::string text = Read("p/Coil.vbp");
  EXPECT_EQ(text.substr(0, text.find("Startup=")),
            "Type=OleDll\r\n"
            "Reference=*\\G{C0E82B4F-2FCB-11D3-BEC8-0080AD0EBF00}#5.2#0#C:\\Program "
            "Files\\Zentrix\\Zentrix.tlb#Zentrix 5.2 Type Library\r\n"
            "Reference=*\\G{AAAA}#2.0#0#C:\\Host\\host.tlb#Host Type Library\r\n"
            "Class=Coil; Coil.cls\r\n"
            "Module=Custom; C:\\p\\other\\Coil 2.bas\r\n");
  EXPECT_NE(text.find("\r\nName=\"Sondel\"\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\nDescription=\"Coil - demo\"\r\n"), std::string::npos);
}

TEST_F(VbFilesEnvironmentTest, FailuresAndRemoval) {
  VBProjects& projects = environment_.GetVBProjects();
  VBProject& project = projects.Add(ProjectType::ActiveXDll, true);
  EXPECT_THROW(project.GetVBComponents().Item("Class2"), vbrt::VbError);
  try {
    project.SaveAs("C:\\p\\missing\\Coil.vbp");
    FAIL() << "saving into a missing folder must fail";
  } catch (const vbrt::VbError& e) {
    EXPECT_EQ(e.Number(), vbrt::kPathNotFound);
  }
  EXPECT_TRUE(fs::is_empty(root_ / "p" / "other"));

  environment_.FailOperation("CodeModule.InsertLines", 440, "Automation error");
  CodeModule& code = project.GetVBComponents().Item("Class1").GetCodeModule();
  try {
    code.InsertLines(1, "x");
    FAIL() << "the injected failure must be raised";
  } catch (const vbrt::VbError& e) {
    EXPECT_EQ(e.Number(), 440);
    EXPECT_EQ(e.Description(), "Automation error");
  }
  EXPECT_EQ(projects.Count(), 1);
  projects.Remove(project);
  EXPECT_EQ(projects.Count(), 0);
}

}  // namespace
}  // namespace platform
