// The generation driver against a real folder (drive C: mapped to a temporary folder),
// the in-memory development environment and a scripted user. What the project files say
// is checked byte for byte by the project golden tests; these check the run around them.
#include "generator/generator.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "generation_fixture.h"
#include "test_support.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgIcon;

class GeneratorTest : public GenerationTest {
 protected:
  GeneratorTest() {
    scratch_.Write("basic/Coil.mod", "model");
    scratch_.Write("basic/Coil.dht", "data");
    scratch_.Write("basic/sketch.bmp", "BM");
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

  bool Generate(platform::AnalysisApplication* application = nullptr) {
    return GenerationTest::Generate(form_, application);
  }
  const platform::Message& LastMessage() const { return prompter_.shown.back(); }
  // The run ended with nothing of the project left: not in the environment, not on disk,
  // the progress window gone.
  void ExpectNoProject() {
    EXPECT_EQ(environment_.GetVBProjects().Count(), 0);
    EXPECT_FALSE(progress_.loaded);
    for (const char* file : {"proj/Coil.vbp", "proj/Coil.cls", "proj/Coil.bas"}) {
      EXPECT_FALSE(Exists(file)) << file;
    }
  }

  session::FormState form_;
};

TEST_F(GeneratorTest, WritesTheProjectAndCopiesTheBasicFiles) {
  ASSERT_TRUE(Generate());
  ASSERT_EQ(prompter_.shown.size(), 1u);
  EXPECT_EQ(LastMessage().text, "Your ExploringObject project was succesfully created.");
  EXPECT_EQ(LastMessage().icon, MsgIcon::Exclamation);
  EXPECT_TRUE(LastMessage().success);  // a terminal calls it information
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files");
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.mod"), "model");
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.dht"), "data");
  EXPECT_EQ(Read("proj/Coil_Files/Coil.bmp"), "BM");
  EXPECT_EQ(environment_.GetVBProjects().Count(), 1);  // it stays open after a successful run
  EXPECT_FALSE(progress_.loaded);
  EXPECT_EQ(written_.back(), "C:\\proj\\Coil.vbp");
  EXPECT_EQ(written_.size(), 6u);
}

TEST_F(GeneratorTest, ExistingFilesFolderAnsweredNoTakesTheNextFreeNumberWithABlank) {
  fs::create_directories(scratch_.Path() / "proj/Coil_Files 2");
  fs::create_directories(scratch_.Path() / "proj/Coil_Files");
  prompter_.Answer(MsgAnswer::No);
  ASSERT_TRUE(Generate());
  EXPECT_EQ(prompter_.shown[0].text,
            "ExploringObject needs for temporary files storing. Folder 'C:\\proj\\Coil_Files' "
            "already exists. Files in this folder may be overwritten. Click Yes for using this "
            "folder. Click No for creating new folder.");
  EXPECT_EQ(prompter_.shown[0].buttons, platform::MsgButtons::YesNoCancel);
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files 3");
  EXPECT_TRUE(Exists("proj/Coil_Files 3/Coil_Basic.mod"));
}

TEST_F(GeneratorTest, ExistingFilesFolderAnsweredYesOrCancel) {
  fs::create_directories(scratch_.Path() / "proj/Coil_Files");
  prompter_.Answer(MsgAnswer::Cancel);
  EXPECT_FALSE(Generate());
  EXPECT_EQ(prompter_.shown.size(), 1u);
  EXPECT_FALSE(progress_.shown);
  ExpectNoProject();

  prompter_.Answer(MsgAnswer::Yes);
  EXPECT_TRUE(Generate());
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files");
}

TEST_F(GeneratorTest, PathsItBuildsTakeTheSeparatorOfTheLocation) {
  const std::string location = (scratch_.Path() / "proj").string();
  form_.theLocation = location;
  fs::create_directories(scratch_.Path() / "proj/Coil_Files");
  scratch_.Write("proj/Coil.vbp", "old");
  prompter_.Answer(MsgAnswer::No);
  prompter_.Answer(MsgAnswer::No);
  ASSERT_TRUE(Generate());
  EXPECT_NE(prompter_.shown[0].text.find("Folder '" + location + "/Coil_Files' already"),
            std::string::npos) << prompter_.shown[0].text;
  EXPECT_EQ(prompter_.shown[1].text,
            "Project file '" + location + "/Coil.vbp' already exists. Overwrite ?");
  // The generated code still names the folder the Windows way.
  EXPECT_EQ(form_.FilesFolder, "\\Coil_Files 2");
  EXPECT_EQ(written_.front(), location + "/Coil_Files 2/Coil_Basic.mod");
  EXPECT_EQ(written_.back(), location + "/Coil 2.vbp");
}

// A file of the project that exists already: Yes writes over it, No keeps it and takes the
// next free name (probed without the blank, taken with it), Cancel ends the run at once,
// and so does an answer the question does not offer.
struct OverwriteCase {
  std::vector<std::string> existing;  // each holds "old"; the first is asked about
  MsgAnswer answer;
  std::string question;  // what the question calls the file
  std::string project;  // where the new project file is written, "" if nowhere
};

class GeneratorOverwriteTest : public GeneratorTest,
                               public ::testing::WithParamInterface<OverwriteCase> {};

TEST_P(GeneratorOverwriteTest, TheAnswerDecides) {
  const OverwriteCase& c = GetParam();
  for (const std::string& file : c.existing) scratch_.Write("proj/" + file, "old");
  prompter_.Answer(c.answer);
  EXPECT_EQ(Generate(), !c.project.empty());
  EXPECT_EQ(prompter_.shown[0].text,
            c.question + " 'C:\\proj\\" + c.existing[0] + "' already exists. Overwrite ?");
  for (const std::string& file : c.existing) {
    EXPECT_EQ(Read("proj/" + file) == "old", c.answer != MsgAnswer::Yes) << file;
  }
  if (c.project.empty()) {
    EXPECT_FALSE(progress_.shown);
    EXPECT_EQ(environment_.GetVBProjects().Count(), 0);
    EXPECT_FALSE(Exists("proj/Coil.vbp"));
  } else {
    EXPECT_TRUE(Read("proj/" + c.project).starts_with("Type=OleDll\r\n"));
    EXPECT_TRUE(Read("proj/Coil.cls").starts_with("VERSION 1.0 CLASS\r\n"));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Answers, GeneratorOverwriteTest,
    ::testing::Values(OverwriteCase{{"Coil.vbp"}, MsgAnswer::Yes, "Project file", "Coil.vbp"},
                      OverwriteCase{{"Coil.vbp"}, MsgAnswer::No, "Project file", "Coil 2.vbp"},
                      OverwriteCase{{"Coil.vbp", "Coil2.vbp"}, MsgAnswer::No, "Project file",
                                    "Coil 3.vbp"},
                      OverwriteCase{{"Coil.cls"}, MsgAnswer::Yes, "Class module", "Coil.vbp"},
                      OverwriteCase{{"Coil.bas"}, MsgAnswer::Cancel, "Module", ""},
                      OverwriteCase{{"Coil.bas"}, MsgAnswer::OK, "Module", ""}));

TEST_F(GeneratorTest, MissingHostLibraryLeavesNothingBehind) {
  // Without the class's type library, then without the class too.
  for (const char* missing : {"CLSID\\{6D1F2A40-93C5-4E0B-9A7E-2B5C81D04E11}\\TypeLib",
                              "ZXBV.Messenger\\Clsid"}) {
    SCOPED_TRACE(missing);
    ASSERT_EQ(registry_.defaults.erase(missing), 1u);
    EXPECT_FALSE(Generate());
    EXPECT_EQ(LastMessage().text,
              "Error: ZXBV library not found.\nRegister Bravant on this computer, or name a "
              "registry file that registers it with --registry FILE or EOWIZARD_REGISTRY.");
    EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
    EXPECT_FALSE(progress_.shown);
    ExpectNoProject();
    EXPECT_FALSE(Exists("proj/Coil_Files"));  // looked for before anything is made
  }
}

TEST_F(GeneratorTest, CopiesOnlyWhatIsLinkedExistsAndIsNotAlreadyInPlace) {
  prompter_.Answer(MsgAnswer::Yes);  // use the existing files folder
  scratch_.Write("proj/Coil_Files/Coil_Basic.mod", "the copy itself");
  form_.edModel = "C:\\proj\\Coil_Files\\Coil_Basic.mod";
  form_.SelectDataCase(true);  // data converted into code: not copied
  form_.edSketch = "C:\\nowhere\\sketch.bmp";
  ASSERT_TRUE(Generate());
  EXPECT_EQ(Read("proj/Coil_Files/Coil_Basic.mod"), "the copy itself");
  EXPECT_EQ(std::distance(fs::directory_iterator(scratch_.Path() / "proj/Coil_Files"), {}), 1);
}

// A failure while the code is generated, and one while the project is saved: the message
// names the stage; the project file saved first is gone again, the working copies stay.
TEST_F(GeneratorTest, FailuresRemoveTheProjectAndKeepTheWorkingCopies) {
  AddInput(form_, "Width", "Geometrical", "width", "mm", "wide");
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
  EXPECT_TRUE(
      LastMessage().text.starts_with("Error: Generating the code of project 'Coil' failed: "))
      << LastMessage().text;
  ExpectNoProject();
  EXPECT_TRUE(Exists("proj/Coil_Files/Coil_Basic.mod"));

  form_.lvInput.Remove(2);
  prompter_.Answer(MsgAnswer::Yes);  // the files folder of the run before
  environment_.FailOperation("VBComponent.SaveAs", vbrt::kPermissionDenied, "Permission denied");
  EXPECT_FALSE(Generate());
  EXPECT_EQ(LastMessage().text,
            "Error: Creating project 'Coil' in the development environment failed: "
            "Permission denied (error 70)");
  ExpectNoProject();
  EXPECT_TRUE(Exists("proj/Coil_Files/Coil_Basic.mod"));
}

TEST_F(GeneratorTest, ModelConvertedIntoCodeNeedsAnApplicationThatOpensIt) {
  form_.SelectModelCase(true);
  EXPECT_FALSE(Generate(nullptr));
  EXPECT_NE(LastMessage().text.find("C:\\basic\\Coil.mod"), std::string::npos);
  EXPECT_FALSE(Exists("proj/Coil_Files"));
  ExpectNoProject();

  FixedApplication application;
  application.failure = "Unknown file format";
  EXPECT_FALSE(Generate(&application));
  EXPECT_EQ(LastMessage().text,
            "Error: The basic model 'C:\\basic\\Coil.mod' could not be opened: Unknown file "
            "format (error 1001)");
  ExpectNoProject();
}

// Whatever the record, no step takes the bar beyond its maximum (the progress double
// refuses such a value, as the real bar does).
struct ProgressCase {
  bool byCode;
  bool async;
  bool data;
};

class GeneratorProgressTest : public GeneratorTest,
                              public ::testing::WithParamInterface<ProgressCase> {};

TEST_P(GeneratorProgressTest, NoStepIsRefused) {
  const ProgressCase c = GetParam();
  FixedApplication application;
  application.model.AddEdge({0, 0}, {1, 0});
  application.model.AddEdge({1, 0}, {0, 0}, {0.5, 0}, 3.14159);
  application.model.AddVertex({0, 0}, "Ground");
  application.model.AddBlock("Iron", 0);
  form_.SelectModelCase(c.byCode);
  form_.chkAsync.value = c.async ? 1 : 0;
  if (!c.data) form_.edData.clear();
  ASSERT_TRUE(Generate(&application)) << LastMessage().text;
  // The application is handed the file the record's path names on this machine.
  EXPECT_EQ(application.opened, c.byCode ? files_.ToNative("C:\\basic\\Coil.mod").string() : "");
  EXPECT_EQ(progress_.states,
            (std::vector<std::string>{"Copying files...", "Creating project...",
                                      "Generating code...", "Saving project..."}));
}

INSTANTIATE_TEST_SUITE_P(Forms, GeneratorProgressTest,
                         ::testing::Values(ProgressCase{false, false, false},
                                           ProgressCase{false, true, true},
                                           ProgressCase{true, false, true},
                                           ProgressCase{true, true, false}));

}  // namespace
}  // namespace generator::test
