// The generation driver against a real folder (drive C: mapped to a temporary folder),
// the in-memory development environment and a scripted user.
#include "generator/generator.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>

#include <unistd.h>

#include "fake_basic_model.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "test_support.h"
#include "vbrt/error.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgIcon;

constexpr const char* kTitle = "Zentrix Bravant ExploringObject Wizard";
constexpr const char* kSucceeded = "Your ExploringObject project was succesfully created.";

class MapRegistry : public platform::Registry {
 public:
  std::map<std::string, std::string> defaults;  // key path -> default value
  platform::RegistryValue QueryRegValue(platform::RegistryRoot, std::string_view key,
                                        std::string_view) const override {
    const auto it = defaults.find(std::string(key));
    if (it == defaults.end()) return std::monostate{};
    return it->second;
  }
};

class RecordingProgress : public ProgressSink {
 public:
  bool loaded = false;
  bool shown = false;
  bool barVisible = true;
  float min = 0;
  float max = 100;
  float value = 0;
  int refused = 0;
  std::vector<std::string> states;

  void Load(std::string_view) override { loaded = true; }
  void Show() override { shown = true; }
  void Unload() override { loaded = shown = false; }
  void Repaint() override {}
  void SetState(std::string_view text) override { states.emplace_back(text); }
  void SetBarVisible(bool visible) override { barVisible = visible; }
  void SetMin(float m) override { min = m; }
  void SetMax(float m) override { max = m; }
  float Value() const override { return value; }
  void SetValue(float v) override {
    if (v < min || v > max) {
      ++refused;
      vbrt::Raise(vbrt::kInvalidPropertyValue);
    }
    value = v;
  }
};

class FakeApplication : public platform::AnalysisApplication {
 public:
  FakeBasicModel model;
  std::string failure;  // reason given when OpenModel fails; "" opens `model`
  std::string opened;

  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view path) override {
    opened = path;
    if (!failure.empty()) throw vbrt::VbError(1001, failure);
    return std::make_unique<FakeBasicModel>(model);
  }
};

class GeneratorTest : public ::testing::Test {
 protected:
  GeneratorTest()
      : root_(fs::temp_directory_path() / ("eow_generator_" + std::to_string(::getpid()))),
        files_(Drives(root_)),
        environment_(files_, registry_) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "proj");
    fs::create_directories(root_ / "basic");
    Write("basic/Coil.mod", "model");
    Write("basic/Coil.dht", "data");
    Write("basic/sketch.bmp", "BM");
    registry_.defaults["ZXBV.Messenger\\Clsid"] = "{11111111-2222-3333-4444-555555555555}";
    registry_.defaults["CLSID\\{11111111-2222-3333-4444-555555555555}\\TypeLib"] =
        "{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}";

    form_.theLocation = "C:\\proj";
    form_.theName = "Coil";
    form_.edLocation = "C:\\proj\\Coil.vbp";
    form_.edModel = "C:\\basic\\Coil.mod";
    form_.edData = "C:\\basic\\Coil.dht";
    form_.edSketch = "C:\\basic\\sketch.bmp";
    form_.cmbType.listIndex = 2;  // Heat Transfer
    form_.chkAsync.value = 1;
    form_.SelectModelCase(false);
    form_.SelectDataCase(false);
    AddInput(form_, "Gap", "Geometrical", "gap", "mm");
    AddInput(form_, "Power", "Physical", "power", "W");
    AddOutput(form_, "Temperature", "p0", 1, "Locals.Potential");
  }
  ~GeneratorTest() override { fs::remove_all(root_); }

  static platform::DriveMap Drives(const fs::path& root) {
    platform::DriveMap drives;
    drives.Set('C', root);
    return drives;
  }

  void Write(const std::string& relative, const std::string& text) {
    std::ofstream(root_ / relative, std::ios::binary) << text;
  }
  std::string Read(const std::string& relative) const {
    std::ifstream in(root_ / relative, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }
  bool Exists(const std::string& relative) const { return fs::exists(root_ / relative); }

  bool Generate(platform::AnalysisApplication* application = nullptr) {
    Generator generator(environment_, application, files_, registry_, prompter_, progress_);
    const bool done = generator.Generate(form_);
    written_ = generator.WrittenFiles();
    return done;
  }

  const platform::Message& LastMessage() const { return prompter_.shown.back(); }
  int Projects() { return environment_.GetVBProjects().Count(); }
  bool NoProjectFiles() const {
    return !Exists("proj/Coil.vbp") && !Exists("proj/Coil.cls") && !Exists("proj/Coil.bas");
  }

  fs::path root_;
  MapRegistry registry_;
  platform::PosixFileSystem files_;
  platform::VbFilesEnvironment environment_;
  platform::ScriptedPrompter prompter_;
  RecordingProgress progress_;
  session::FormState form_;
  std::vector<std::string> written_;
};

TEST_F(GeneratorTest, WritesTheProjectAndCopiesTheBasicFiles) {
  ASSERT_TRUE(Generate());

  ASSERT_EQ(prompter_.shown.size(), 1u);
  EXPECT_EQ(LastMessage().text, kSucceeded);
  EXPECT_EQ(LastMessage().title, kTitle);
  EXPECT_EQ(LastMessage().icon, MsgIcon::Exclamation);
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files");
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.mod"), "model");
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.dht"), "data");
  EXPECT_EQ(Read("proj/Coil_Files/Coil.bmp"), "BM");
  const std::string project = Read("proj/Coil.vbp");
  EXPECT_NE(project.find("Class=Coil; Coil.cls\r\nModule=Custom; Coil.bas\r\n"), std::string::npos);
  EXPECT_NE(project.find("Reference=*\\G{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}#2.0#0#"),
            std::string::npos);
  EXPECT_NE(Read("proj/Coil.cls").find("Attribute VB_Name = \"Coil\"\r\n"), std::string::npos);
  EXPECT_EQ(Read("proj/Coil.bas").rfind("Attribute VB_Name = \"Custom\"\r\n", 0), 0u);
  EXPECT_EQ(Projects(), 1);  // the project stays open after a successful run
  EXPECT_FALSE(progress_.loaded);
  EXPECT_EQ(written_.back(), "C:\\proj\\Coil.vbp");
  EXPECT_EQ(written_.size(), 6u);
}

TEST_F(GeneratorTest, ExistingFilesFolderAnsweredNoTakesTheNextFreeNumberWithABlank) {
  fs::create_directories(root_ / "proj/Coil_Files 2");
  fs::create_directories(root_ / "proj/Coil_Files");
  prompter_.Answer(MsgAnswer::No);
  ASSERT_TRUE(Generate());

  EXPECT_EQ(prompter_.shown[0].text,
            "ExploringObject needs for temporary files storing. Folder 'C:\\proj\\Coil_Files' "
            "already exists. Files in this folder may be overwritten. Click Yes for using this "
            "folder. Click No for creating new folder.");
  EXPECT_EQ(prompter_.shown[0].buttons, platform::MsgButtons::YesNoCancel);
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files 3");
  EXPECT_TRUE(Exists("proj/Coil_Files 3/Coil_Basic.mod"));
  // The line that names the folder is stored with its string literal closed.
  EXPECT_NE(Read("proj/Coil.cls").find("ChDir ExploringObject_Path & \"\\Coil_Files 3\"\r\n"),
            std::string::npos);
}

TEST_F(GeneratorTest, ExistingFilesFolderAnsweredYesOrCancel) {
  fs::create_directories(root_ / "proj/Coil_Files");
  prompter_.Answer(MsgAnswer::Cancel);
  EXPECT_FALSE(Generate());
  EXPECT_EQ(prompter_.shown.size(), 1u);
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.shown);
  EXPECT_TRUE(NoProjectFiles());

  prompter_.Answer(MsgAnswer::Yes);
  EXPECT_TRUE(Generate());
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files");
}

TEST_F(GeneratorTest, ExistingProjectFileAnsweredYesIsReplacedUnderTheSameName) {
  Write("proj/Coil.vbp", "old project");
  prompter_.Answer(MsgAnswer::Yes);
  ASSERT_TRUE(Generate());
  EXPECT_EQ(prompter_.shown[0].text, "Project file 'C:\\proj\\Coil.vbp' already exists. Overwrite ?");
  EXPECT_EQ(Read("proj/Coil.vbp").rfind("Type=OleDll\r\n", 0), 0u);
}

TEST_F(GeneratorTest, ExistingProjectFileAnsweredNoProbesWithoutBlankFirst) {
  Write("proj/Coil.vbp", "old project");
  prompter_.Answer(MsgAnswer::No);
  ASSERT_TRUE(Generate());
  EXPECT_EQ(Read("proj/Coil.vbp"), "old project");
  EXPECT_TRUE(Exists("proj/Coil 2.vbp"));
  EXPECT_NE(Read("proj/Coil 2.vbp").find("Class=Coil; Coil.cls\r\n"), std::string::npos);
}

TEST_F(GeneratorTest, ExistingProjectFileAnsweredNoAfterTakenSecondName) {
  Write("proj/Coil.vbp", "old");
  Write("proj/Coil2.vbp", "old 2");
  prompter_.Answer(MsgAnswer::No);
  ASSERT_TRUE(Generate());
  EXPECT_TRUE(Exists("proj/Coil 3.vbp"));
  EXPECT_FALSE(Exists("proj/Coil 2.vbp"));
}

TEST_F(GeneratorTest, CancelledFileQuestionCreatesNothing) {
  Write("proj/Coil.bas", "old module");
  prompter_.Answer(MsgAnswer::Cancel);
  EXPECT_FALSE(Generate());
  EXPECT_EQ(prompter_.shown[0].text, "Module 'C:\\proj\\Coil.bas' already exists. Overwrite ?");
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.shown);
  EXPECT_FALSE(Exists("proj/Coil.vbp"));
  EXPECT_EQ(Read("proj/Coil.bas"), "old module");
}

TEST_F(GeneratorTest, ExistingClassFileAnsweredYesIsDeletedAndWrittenAgain) {
  Write("proj/Coil.cls", "old class");
  prompter_.Answer(MsgAnswer::Yes);
  ASSERT_TRUE(Generate());
  EXPECT_EQ(prompter_.shown[0].text, "Class module 'C:\\proj\\Coil.cls' already exists. Overwrite ?");
  EXPECT_EQ(Read("proj/Coil.cls").rfind("VERSION 1.0 CLASS\r\n", 0), 0u);
}

TEST_F(GeneratorTest, MissingHostLibraryLeavesNothingBehind) {
  registry_.defaults.clear();
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().text, "Error: ZXBV library not found.");
  EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.loaded);
  EXPECT_TRUE(NoProjectFiles());
}

TEST_F(GeneratorTest, CopiesOnlyWhatIsLinkedAndNotAlreadyInPlace) {
  fs::create_directories(root_ / "proj/Coil_Files");
  prompter_.Answer(MsgAnswer::Yes);  // use the existing files folder
  Write("proj/Coil_Files/Coil_Basic.mod", "the copy itself");
  form_.edModel = "C:\\proj\\Coil_Files\\Coil_Basic.mod";
  form_.SelectDataCase(true);  // data converted into code: not copied
  form_.edSketch.clear();
  ASSERT_TRUE(Generate());
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.mod"), "the copy itself");
  EXPECT_FALSE(Exists("proj/Coil_Files/Coil_Basic.dht"));
  EXPECT_EQ(std::distance(fs::directory_iterator(root_ / "proj/Coil_Files"), {}), 1);
}

TEST_F(GeneratorTest, BasicFilesThatDoNotExistAreSkipped) {
  form_.edModel = "C:\\nowhere\\Coil.mod";
  form_.edSketch = "C:\\nowhere\\sketch.bmp";
  ASSERT_TRUE(Generate());
  EXPECT_FALSE(Exists("proj/Coil_Files/Coil_Basic.mod"));
  EXPECT_FALSE(Exists("proj/Coil_Files/Coil.bmp"));
  EXPECT_TRUE(Exists("proj/Coil.vbp"));
}

TEST_F(GeneratorTest, LocationThatCannotHoldAFolderFailsWithAMessage) {
  Write("proj/plain", "a file, not a folder");
  form_.theLocation = "C:\\proj\\plain\\sub";
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
  EXPECT_NE(LastMessage().text.find("Coil_Files"), std::string::npos) << LastMessage().text;
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.shown);
}

TEST_F(GeneratorTest, NonNumericGeometricalMinimumRemovesTheProjectAndItsFiles) {
  AddInput(form_, "Width", "Geometrical", "width", "mm", "wide");
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
  EXPECT_EQ(LastMessage().text.rfind("Error: Generating the code of project 'Coil' failed: ", 0), 0u)
      << LastMessage().text;
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.loaded);
  EXPECT_TRUE(NoProjectFiles());
  EXPECT_TRUE(Exists("proj/Coil_Files/Coil_Basic.mod"));  // the working copies stay
}

TEST_F(GeneratorTest, EnvironmentFailureWhileSavingRemovesTheProject) {
  environment_.FailOperation("VBComponent.SaveAs", vbrt::kPermissionDenied, "Permission denied");
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().text,
            "Error: Creating project 'Coil' in the development environment failed: "
            "Permission denied (error 70)");
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.loaded);
  EXPECT_TRUE(NoProjectFiles());  // the project file saved first is gone again
}

TEST_F(GeneratorTest, ModelConvertedIntoCodeNeedsTheApplication) {
  form_.SelectModelCase(true);
  EXPECT_FALSE(Generate(nullptr));
  EXPECT_NE(LastMessage().text.find("C:\\basic\\Coil.mod"), std::string::npos);
  EXPECT_FALSE(Exists("proj/Coil_Files"));
  EXPECT_EQ(Projects(), 0);
}

TEST_F(GeneratorTest, ModelThatCannotBeOpenedEndsTheRunNamingFileAndReason) {
  FakeApplication application;
  application.failure = "Unknown file format";
  form_.SelectModelCase(true);
  EXPECT_FALSE(Generate(&application));
  EXPECT_EQ(LastMessage().text,
            "Error: The basic model 'C:\\basic\\Coil.mod' could not be opened: Unknown file "
            "format (error 1001)");
  EXPECT_EQ(Projects(), 0);
  EXPECT_FALSE(progress_.loaded);
  EXPECT_TRUE(NoProjectFiles());
}

// The bar's maximum follows the record; the sections step it three times (five more when
// the model is converted into code), so it ends below the maximum, never beyond it.
struct ProgressCase {
  bool byCode;
  bool async;
  bool data;
};

class GeneratorProgressTest : public GeneratorTest,
                              public ::testing::WithParamInterface<ProgressCase> {};

TEST_P(GeneratorProgressTest, MaximumFollowsTheRecordAndNoStepIsRefused) {
  const ProgressCase c = GetParam();
  FakeApplication application;
  application.model.AddEdge({0, 0}, {1, 0});
  application.model.AddEdge({1, 0}, {0, 0}, {0.5, 0}, 3.14159);
  application.model.AddVertex({0, 0}, "Ground");
  application.model.AddBlock("Iron", 0);
  form_.SelectModelCase(c.byCode);
  form_.chkAsync.value = c.async ? 1 : 0;
  if (!c.data) form_.edData.clear();
  ASSERT_TRUE(Generate(&application)) << LastMessage().text;
  const float expected = 25 + 1 + (c.data ? 1 : 0) + (c.byCode ? 6 + 2 : 2) + (c.async ? 6 : 0);
  EXPECT_EQ(progress_.max, expected);
  EXPECT_EQ(progress_.value, c.byCode ? 8 : 3);
  EXPECT_EQ(progress_.refused, 0);
  // The application is handed the file the record's path names on this machine.
  EXPECT_EQ(application.opened,
            c.byCode ? files_.ToNative("C:\\basic\\Coil.mod").string() : "");
  EXPECT_EQ(progress_.states,
            (std::vector<std::string>{"Copying files...", "Creating project...",
                                      "Generating code...", "Saving project..."}));
}

INSTANTIATE_TEST_SUITE_P(Forms, GeneratorProgressTest,
                         ::testing::Values(ProgressCase{false, false, false},
                                           ProgressCase{false, true, true},
                                           ProgressCase{true, false, true},
                                           ProgressCase{true, true, false}));

TEST_F(GeneratorTest, FindsTheHostLibraryThroughTheMessengerClass) {
  Generator generator(environment_, nullptr, files_, registry_, prompter_, progress_);
  EXPECT_EQ(generator.FindHostTypeLibrary(), "{AAAAAAAA-BBBB-CCCC-DDDD-EEEEEEEEEEEE}");
  registry_.defaults.erase("CLSID\\{11111111-2222-3333-4444-555555555555}\\TypeLib");
  EXPECT_EQ(generator.FindHostTypeLibrary(), "");
}

}  // namespace
}  // namespace generator::test
