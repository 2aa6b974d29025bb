#include "wizard/model/page_checks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "../platform/scratch_folder.h"
#include "../platform/special_files.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "vbrt/file_table.h"
#include "wizard_test_support.h"

namespace wizard {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgIcon;
using session::TextField;
using test::kTitle;

class PageChecksTest : public testing::Test {
 protected:
  PageChecksTest() { form_.SetFieldHandlers(&checks_); }

  static platform::PosixFileSystem Files(const fs::path& drive) {
    platform::DriveMap drives;
    drives.Add("M=" + drive.string());
    return platform::PosixFileSystem(std::move(drives));
  }
  std::string InScratch(const std::string& name) const { return (scratch_.Path() / name).string(); }
  void ExpectTold(const std::string& text, MsgIcon icon,
                  platform::MsgButtons buttons = platform::MsgButtons::OK) {
    test::ExpectTold(prompter_, text, icon, buttons);
  }

  ScratchFolder scratch_;
  platform::PosixFileSystem files_ = Files(scratch_.Path());
  platform::RegistryFiles registry_;
  platform::ScriptedPrompter prompter_;
  PageChecks checks_{files_, registry_, prompter_};
  session::FormState form_;
};

TEST_F(PageChecksTest, ProjectPathInAnExistingFolderEnablesFinishAndEmptyDisables) {
  form_.SetText(TextField::Location, InScratch("Coil.vbp"));
  EXPECT_EQ(form_.theName, "Coil");
  EXPECT_EQ(form_.theLocation, scratch_.Path().string());
  EXPECT_TRUE(form_.btnFinishEnabled);

  form_.SetText(TextField::Location, "m:/Motor.vbp");
  EXPECT_EQ(form_.theName, "Motor");
  EXPECT_EQ(form_.theLocation, "M:\\");

  form_.SetText(TextField::Location, "");
  EXPECT_EQ(form_.theName, "");
  EXPECT_EQ(form_.theLocation, "");
  EXPECT_FALSE(form_.btnFinishEnabled);
  EXPECT_TRUE(prompter_.shown.empty());
}

// The window asks whether to create a missing project folder; unless it is created the
// project has no location and the check says why. The command line only tells.
TEST_F(PageChecksTest, MissingProjectFolderIsCreatedOnYesAndNamedBesideTheFieldOtherwise) {
  scratch_.Write("file", "");
  const std::string created = (scratch_.Path() / "new" / "deeper").string();
  const struct {
    const char* path;
    MsgAnswer answer;
    std::string folder;        // as the question names it
    std::string notCreated;    // the message after Yes, when creating failed
    std::string theLocation;   // afterwards
  } cases[] = {
      {"M:\\missing\\Motor.vbp", MsgAnswer::No, "M:\\missing", "", ""},
      {"M:\\new\\deeper\\Motor.vbp", MsgAnswer::Yes, "M:\\new\\deeper", "", "M:\\new\\deeper"},
      {"M:\\file\\sub\\Motor.vbp", MsgAnswer::Yes, "M:\\file\\sub",
       "Error: Can not create folder 'M:\\file\\sub'", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.path);
    form_.SetText(TextField::Location, "M:\\Coil.vbp");
    prompter_.Answer(c.answer);
    form_.SetText(TextField::Location, c.path);
    ASSERT_GE(prompter_.shown.size(), 1u);
    EXPECT_EQ(prompter_.shown[0].text, "Folder '" + c.folder + "' does not exist. Create ?");
    EXPECT_EQ(prompter_.shown[0].buttons, platform::MsgButtons::YesNo);
    EXPECT_EQ(prompter_.shown[0].icon, MsgIcon::Exclamation);
    prompter_.shown.erase(prompter_.shown.begin());
    if (!c.notCreated.empty()) ExpectTold(c.notCreated, MsgIcon::Exclamation);
    EXPECT_TRUE(prompter_.shown.empty());
    EXPECT_EQ(form_.theName, "Motor");
    EXPECT_EQ(form_.theLocation, c.theLocation);
    EXPECT_EQ(form_.btnFinishEnabled, !c.theLocation.empty());
    EXPECT_EQ(checks_.MissingFolderNotice(),
              c.theLocation.empty() ? "Folder '" + c.folder + "' does not exist." : "");
  }
  EXPECT_TRUE(fs::is_directory(created));
  EXPECT_FALSE(fs::exists(scratch_.Path() / "missing"));

  PageChecks telling(files_, registry_, prompter_, {.tellMissingFolder = true});
  form_.edLocation = "Q:\\Models\\Coil.vbp";
  telling.LocationLeft(form_);
  EXPECT_EQ(form_.theName, "Coil");
  EXPECT_EQ(form_.theLocation, "");  // as it was
  ExpectTold("Folder 'Q:\\Models' does not exist.", MsgIcon::Information);
}

TEST_F(PageChecksTest, WarnsAboutAnObjectRegisteredByAnEarlierGeneration) {
  registry_.AddFile(scratch_.Write("sondel.reg",
                                   "REGEDIT4\n\n[HKEY_CLASSES_ROOT\\Sondel.Coil\\Clsid]\n"
                                   "@=\"{11111111-2222-3333-4444-555555555555}\"\n"));
  form_.SetText(TextField::Location, "M:\\Motor.vbp");
  EXPECT_TRUE(prompter_.shown.empty());

  form_.SetText(TextField::Location, "M:\\coil.vbp");
  ExpectTold("The object 'Sondel.coil' has registered yet on your computer. If you continue then "
             "an old 'Sondel.coil' object will be inaccessible.",
             MsgIcon::Information);
  EXPECT_EQ(form_.theLocation, "M:\\");
  EXPECT_TRUE(form_.btnFinishEnabled);
}

TEST_F(PageChecksTest, FilesAreKeptOnlyWhenTheyExist) {
  using session::FormState;
  const struct {
    TextField field;
    const char* file;
    const char* what;
    std::string FormState::*edited;
    std::string FormState::*kept;
  } cases[] = {
      {TextField::Model, "Coil.mod", "Model", &FormState::edModel, &FormState::theModel},
      {TextField::Data, "Coil.dms", "Data", &FormState::edData, &FormState::theData},
      {TextField::Sketch, "Coil.bmp", "Sketch", &FormState::edSketch, &FormState::theSketch},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    scratch_.Write(c.file, "x");
    form_.SetText(c.field, std::string("M:\\") + c.file);
    EXPECT_EQ(form_.*c.kept, std::string("M:\\") + c.file);
    form_.SetText(c.field, "M:\\Gone.x");
    ExpectTold(std::string(c.what) + " file 'M:\\Gone.x' does not exist.", MsgIcon::Information);
    EXPECT_EQ(form_.*c.edited, "M:\\Gone.x");
    EXPECT_EQ(form_.*c.kept, "");
    form_.*c.kept = "stale";
    form_.SetText(c.field, "");
    EXPECT_EQ(form_.*c.kept, "");
  }
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(PageChecksTest, MissingBasicFileResetsItsOptions) {
  scratch_.Write("Coil.mod", "model");
  form_.SetText(TextField::Model, "M:\\Coil.mod");
  EXPECT_TRUE(form_.optModelLink.enabled);
  form_.SelectModelCase(true);
  form_.SetText(TextField::Model, "M:\\Gone.mod");
  EXPECT_TRUE(form_.optModelLink.value);
  EXPECT_FALSE(form_.optModelCode.value);
  EXPECT_FALSE(form_.optModelLink.enabled);
  EXPECT_FALSE(form_.optModelCode.enabled);

  form_.optDataLink.enabled = true;
  form_.SetText(TextField::Data, "");
  EXPECT_FALSE(form_.optDataLink.enabled);
}

TEST_F(PageChecksTest, CreateFolderPathMakesEveryMissingParent) {
  EXPECT_TRUE(checks_.CreateFolderPath("M:\\a\\b\\c"));
  EXPECT_TRUE(fs::is_directory(scratch_.Path() / "a" / "b" / "c"));
  EXPECT_TRUE(checks_.CreateFolderPath("M:\\a\\b"));

  scratch_.Write("file", "");
  EXPECT_FALSE(checks_.CreateFolderPath("M:\\file\\sub\\deeper"));
  EXPECT_FALSE(checks_.CreateFolderPath("Q:\\nowhere"));
}

class SessionFileTest : public PageChecksTest {
 protected:
  SessionFileTest() {
    scratch_.Write("Old.bvg", std::string("[GENERAL]\nAPPLICATION=") + kTitle +
                                  "\nPROJECT=Q:\\Elsewhere\\Coil.vbp\nAUTHOR=Ann\n\n[END]\n");
    form_.edFile = "M:\\Old.bvg";
  }
  SessionFileOutcome Leave() { return checks_.SessionFileLeft(form_, {table_, files_}, changed_); }

  vbrt::FileTable table_;
  bool changed_ = false;
};

TEST_F(SessionFileTest, UnchangedSettingsLoadAtOnceEvenFromAnotherMachine) {
  prompter_.Answer(MsgAnswer::No);  // the project folder, missing here, is not created
  EXPECT_EQ(Leave(), SessionFileOutcome::Loaded);
  ExpectTold("Folder 'Q:\\Elsewhere' does not exist. Create ?", MsgIcon::Exclamation,
             platform::MsgButtons::YesNo);
  // Every key of the file is read all the same.
  EXPECT_EQ(form_.edLocation, "Q:\\Elsewhere\\Coil.vbp");
  EXPECT_EQ(form_.theName, "Coil");
  EXPECT_EQ(form_.theLocation, "");
  EXPECT_EQ(form_.edAuthor, "Ann");
  EXPECT_FALSE(changed_);
}

TEST_F(SessionFileTest, FailedLoadIsToldNamingTheFileClosesItAndCountsAsLoaded) {
  const struct {
    const char* bytes;
    std::string told;
  } cases[] = {
      {"[GENERAL]\nAPPLICATION=Another wizard\n\n[END]\n",
       "'M:\\Other.bvg' could not be read completely: Error: Wrong Wizard generation saving "
       "file."},
      // The reader gives no text for a file that ends too early.
      {"[GENERAL]\nAUTHOR=cut off here\n\n", session::IncompleteSessionMessage("M:\\Other.bvg")},
  };
  for (const auto& bad : cases) {
    SCOPED_TRACE(bad.told);
    scratch_.Write("Other.bvg", bad.bytes);
    form_.edFile = "M:\\Other.bvg";
    changed_ = true;
    prompter_.shown.clear();
    prompter_.Answer(MsgAnswer::Yes);
    EXPECT_EQ(Leave(), SessionFileOutcome::Unread);
    ASSERT_EQ(prompter_.shown.size(), 2u);
    EXPECT_EQ(prompter_.shown[1].text, bad.told);
    EXPECT_EQ(prompter_.shown[1].icon, MsgIcon::Exclamation);
    EXPECT_FALSE(changed_);
    EXPECT_FALSE(table_.IsOpen(1));
  }
}

TEST_F(SessionFileTest, EmptyOrNewPathDoesNothing) {
  changed_ = true;
  for (const char* path : {"", "M:\\New.bvg"}) {
    form_.edFile = path;
    EXPECT_EQ(Leave(), SessionFileOutcome::None);
  }
  EXPECT_TRUE(prompter_.shown.empty());
  EXPECT_TRUE(changed_);
  EXPECT_FALSE(table_.IsOpen(1));
}

// What the session chose stays a choice: a click on "from file" can be taken back while
// the same file is named. The wizard still offers conversion for no other file.
TEST_F(SessionFileTest, IntoCodeOptionsTheSessionChoseStayEnabledForTheSameFile) {
  using session::FormState;
  scratch_.Write("Coil.mod", "model");
  scratch_.Write("Coil.dms", "data");
  scratch_.Write("Other.mod", "model");
  scratch_.Write("Chosen.bvg", std::string("[GENERAL]\nAPPLICATION=") + kTitle +
                                   "\nMODEL=M:\\Coil.mod\nMODELCASE=Generate\n"
                                   "DATA=M:\\Coil.dms\nDATACASE=Generate\n\n[END]\n");
  const struct {
    TextField field;
    session::OptionButton FormState::*code;
    session::OptionButton FormState::*link;
    const char* other;
  } files[] = {
      {TextField::Model, &FormState::optModelCode, &FormState::optModelLink, "M:\\Other.mod"},
      {TextField::Data, &FormState::optDataCode, &FormState::optDataLink, "M:\\Other.mod"},
  };
  for (const auto& f : files) {
    form_.edFile = "M:\\Chosen.bvg";
    EXPECT_EQ(Leave(), SessionFileOutcome::Loaded);
    const std::string chosen = f.field == TextField::Model ? form_.edModel : form_.edData;
    EXPECT_TRUE((form_.*f.code).value);
    EXPECT_TRUE((form_.*f.code).enabled);
    (form_.*f.code).value = false;  // "from file" clicked
    (form_.*f.link).value = true;
    form_.SetText(f.field, chosen);  // and the field left again
    EXPECT_TRUE((form_.*f.code).enabled);
    form_.SetText(f.field, f.other);
    EXPECT_FALSE((form_.*f.code).enabled);
    form_.SetText(f.field, chosen);
    EXPECT_TRUE((form_.*f.code).enabled);
  }
  scratch_.Write("Loaded.bvg", std::string("[GENERAL]\nAPPLICATION=") + kTitle +
                                   "\nMODEL=M:\\Coil.mod\nMODELCASE=Load\n\n[END]\n");
  form_.edFile = "M:\\Loaded.bvg";
  EXPECT_EQ(Leave(), SessionFileOutcome::Loaded);
  EXPECT_FALSE(form_.optModelCode.enabled);
}

// A device, FIFO, socket or folder is no basic file, and no session: the session page
// gets the reader's failure at once, without asking whether to load over the settings.
TEST_F(SessionFileTest, SpecialFilesAreNoFiles) {
  for (const SpecialFile& special : SpecialFiles(scratch_)) {
    SCOPED_TRACE(special.kind);
    const std::string path = special.path.string();
    const std::pair<TextField, std::string> basicFiles[] = {
        {TextField::Model, "Model"}, {TextField::Data, "Data"}, {TextField::Sketch, "Sketch"}};
    for (const auto& [field, what] : basicFiles) {
      form_.SetText(field, path);
      ExpectTold(what + " file '" + path + "' does not exist.", MsgIcon::Information);
    }
    EXPECT_EQ(form_.theModel + form_.theData + form_.theSketch, "");
    EXPECT_FALSE(form_.optModelLink.enabled);

    form_.edFile = path;
    changed_ = true;
    EXPECT_EQ(Leave(), SessionFileOutcome::None);
    ExpectTold("Error: Cannt open generation file '" + path + "' for reading",
               MsgIcon::Exclamation);
    EXPECT_TRUE(changed_);
    EXPECT_FALSE(table_.IsOpen(1));
  }
}

}  // namespace
}  // namespace wizard
