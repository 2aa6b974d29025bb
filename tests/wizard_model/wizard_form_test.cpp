#include "wizard/model/wizard_form.h"

#include <fstream>
#include <iterator>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/string_table.h"
#include "session/session_file.h"
#include "wizard/model/access_keys.h"
#include "wizard/model/session_folder.h"
#include "wizard_test_support.h"

namespace wizard::test {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using testing::ElementsAre;

constexpr const char* kLongTitle =
    "Zentrix Parametric Bravant ExploringObject Wizard for Visual Basic";

std::string ReadBytes(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Names(const std::vector<TabStop>& stops) {
  std::vector<std::string> names;
  for (const TabStop& stop : stops) names.push_back(stop.control);
  return names;
}

TEST_F(WizardTest, StartUpProposesTheFirstFreeSessionAndShowsPageZero) {
  for (const char* name : {"Generation1.bvg", "Generation2.bvg", "Generation5.bvg"}) {
    scratch_.Write("bin/WizardSessions/" + std::string(name), "");
  }
  WizardForm& form = Start();
  EXPECT_EQ(form.State().edFile, (ProgramFolder() / "WizardSessions" / "Generation3.bvg").string());
  EXPECT_EQ(DefaultSessionFile(files_, InScratch("none")), InScratch("none/Generation1.bvg"));
  EXPECT_EQ(form.CurrentStep, 0);
  EXPECT_FALSE(form.SettingsChanged);
  ASSERT_EQ(form.State().lvInput.Count(), 1);
  EXPECT_EQ(form.State().lvInput.Item(0).text, "<new>");
  EXPECT_EQ(form.State().cmbType.Text(), "Electrostatics");
  EXPECT_EQ(form.State().cmbUnit.Text(), "Meters");
  EXPECT_EQ(form.Captions().at("lblIntro(2)"), " •   Problem data");

  // The notice was up while the application started; neither it nor the hourglass stays.
  EXPECT_EQ(view_.launchCaption, "Zentrix Bravant ExploringObject Wizard");
  EXPECT_EQ(view_.launchText, "Zentrix is starting... Please wait...");
  EXPECT_FALSE(view_.launchShown);
  EXPECT_FALSE(view_.busy);
  EXPECT_TRUE(analysisAlive_);
  EXPECT_NE(form.ZX(), nullptr);
}

TEST_F(WizardTest, EveryPageHasItsButtonsDefaultAndTabOrder) {
  WizardForm& form = Start();
  GiveProject(form);

  struct Expected {
    bool back, next;
    Button defaultButton;
    std::vector<std::string> tabOrder;
  };
  const std::vector<std::string> buttons = {"btnNext", "btnFinish", "btnHelp", "btnCancel"};
  auto with = [&](std::vector<std::string> own) {
    own.insert(own.end(), buttons.begin(), buttons.end());
    return own;
  };
  const Expected pages[kPageCount] = {
      {false, true, Button::Next, buttons},
      {true, true, Button::Next, with({"edFile", "btnFile"})},
      {true, true, Button::Next, with({"edLocation", "btnLocation", "edAuthor", "chkAsync"})},
      {true, true, Button::Next, with({"cmbType", "cmbClass", "cmbCoord", "cmbUnit"})},
      {true, true, Button::Next,
       with({"edModel", "btnModel", "optModelCode", "optModelLink", "edData", "btnData",
             "optDataCode", "optDataLink", "edSketch", "btnSketch", "btnCreateSketch"})},
      {true, true, Button::None, {"lvInput", "btnNext", "btnFinish", "btnHelp", "btnCancel"}},
      {true, true, Button::Next,
       {"btnOutputStandard", "lvStandard", "btnOutputCustom", "btnOutputEdit", "btnOutputRemove",
        "btnNext", "btnFinish", "btnHelp", "btnCancel", "lvOutput"}},
      {true, false, Button::Finish, {"btnFinish", "btnPreview", "btnHelp", "btnCancel"}},
  };
  form.RefreshStep();
  EXPECT_FALSE(form.SettingsChanged);  // only a page after the first counts as a change
  for (int page = 0; page < kPageCount; ++page) {
    SCOPED_TRACE("page " + std::to_string(page));
    EXPECT_EQ(form.CurrentStep, page);
    EXPECT_EQ(form.BackEnabled(), pages[page].back);
    EXPECT_EQ(form.NextEnabled(), pages[page].next);
    EXPECT_TRUE(form.FinishEnabled());
    EXPECT_EQ(form.DefaultButton(), pages[page].defaultButton);
    EXPECT_EQ(Names(form.TabOrder()), pages[page].tabOrder);
    EXPECT_EQ(form.PreviewVisible(), page == kPageCount - 1);
    form.Next();
  }
  // Next is disabled on the last page, Back on the first: the pages stay within 0 to 7.
  EXPECT_EQ(form.CurrentStep, 7);
  for (int i = 0; i < kPageCount + 1; ++i) form.Back();
  EXPECT_EQ(form.CurrentStep, 0);
  EXPECT_TRUE(form.SettingsChanged);
}

TEST_F(WizardTest, InputPageLeavesRoomForItsOwnControlsInTheTabOrder) {
  WizardForm& form = Start();
  for (int i = 0; i < 5; ++i) form.Next();
  std::vector<int> indices;
  for (const TabStop& stop : form.TabOrder()) indices.push_back(stop.tabIndex);
  EXPECT_THAT(indices, ElementsAre(0, 3, 4, 5, 6));
}

TEST_F(WizardTest, FinishPageTellsWhatIsMissingUntilAProjectIsGiven) {
  WizardForm& form = Start();
  for (int i = 0; i < 7; ++i) {
    form.Next();
    EXPECT_FALSE(form.FinishEnabled());
  }
  EXPECT_EQ(form.FinishText1(), "You must specify project name and location.");
  EXPECT_EQ(form.FinishText2(),
            "Input 'Project name and location' on 'General' page of this Wizard.");
  EXPECT_EQ(form.FinishIcon(), "Exclamation");
  EXPECT_EQ(form.PictureOfFinish(), FinishPicture::NotYet);
  EXPECT_EQ(form.DefaultButton(), Button::Next);
  EXPECT_FALSE(form.Finish());  // a disabled button does nothing
  form.Preview();
  EXPECT_EQ(generations_, 0);
  EXPECT_EQ(previews_, 0);
  EXPECT_TRUE(prompter_.shown.empty());

  for (int i = 0; i < 5; ++i) form.Back();
  GiveProject(form);
  EXPECT_TRUE(form.FinishEnabled());
  for (int i = 0; i < 5; ++i) form.Next();
  EXPECT_EQ(form.FinishText1(),
            "You have succesfully completed the Zentrix Bravant Exploring Object Wizard.");
  EXPECT_EQ(form.FinishText2(),
            "To close this wizard and create the Visual Basic project, click Finish.");
  EXPECT_EQ(form.FinishIcon(), "Information");
  EXPECT_EQ(form.PictureOfFinish(), FinishPicture::Done);
  EXPECT_EQ(form.DefaultButton(), Button::Finish);

  // The preview shows with its own help, and leaves the page as it was.
  EXPECT_TRUE(form.PreviewEnabled());
  form.Preview();
  EXPECT_EQ(previews_, 1);
  EXPECT_EQ(previewHelpTopic_, kPreviewHelpTopic);
  EXPECT_EQ(form.HelpTopic(), kPageHelpTopics[7]);
  EXPECT_EQ(form.CurrentStep, 7);
  EXPECT_EQ(generations_, 0);
}

// Text the code page cannot hold is told beside its field; a path with such characters,
// or with a control character, is not taken at all, whether typed, chosen in the file
// dialog or loaded from a session.
TEST_F(WizardTest, TextTheCodePageCannotHoldIsToldAndPathsRefuseIt) {
  WizardForm& form = Start();
  const std::string lost = "\": these characters would be written as \"?\" in the session file "
                           "and the generated code.";
  const std::string refused =
      "\": a path written with \"?\" would lead nowhere, so it is not taken.";
  GiveProject(form);
  const std::string project = form.State().edLocation;
  const struct {
    Field field;
    std::string text;
    bool taken;
    std::string notice;
  } cases[] = {
      {Field::Author, "José Müller", true, ""},
      {Field::Author, "José Müller 张伟", true, "The code page WINDOWS-1252 cannot hold \"张伟" + lost},
      {Field::Location, InScratch(""), true, ""},  // typed on towards the next case
      {Field::Location, InScratch("项目/Demo.vbp"), false,
       "The code page WINDOWS-1252 cannot hold \"项目" + refused},
      {Field::Model, "/models/Ж.mod", false, "The code page WINDOWS-1252 cannot hold \"Ж" + refused},
      {Field::Model, "/models/é.mod", true, ""},
      {Field::Data, std::string("/data/a\0b.dms", 13), false,
       "The path holds the control character NUL (code 0), which no file name can hold, so it "
       "is not taken."},
      {Field::Data, "/data/a\tb.dms", false,
       "The path holds the control character HT (code 9), which no file name can hold, so it "
       "is not taken."},
      {Field::File, InScratch("项目.bvg"), true, ""},  // never written in the code page
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(form.TextEdited(c.field, c.text), c.taken);
    EXPECT_EQ(form.FieldNotice(c.field), c.notice);
    EXPECT_EQ(form.FieldText(c.field), c.text);  // shown as typed, taken or not
  }
  // The record goes back to the path it had before the typing began, and leaving the field
  // checks nothing.
  form.FieldLeft(Field::Location);
  EXPECT_EQ(form.State().edLocation, project);
  EXPECT_TRUE(form.FinishEnabled());
  EXPECT_EQ(form.State().edModel, "/models/é.mod");
  form.Browsed(Browse::Sketch, "/pictures/草图.bmp");
  EXPECT_EQ(form.State().edSketch, "");
  EXPECT_EQ(form.FieldText(Field::Sketch), "/pictures/草图.bmp");
  EXPECT_NE(form.FieldNotice(Field::Sketch), "");
  EXPECT_TRUE(prompter_.shown.empty()) << "told beside the field, not in a box";
  form.TextEdited(Field::Sketch, "");
  EXPECT_EQ(form.FieldNotice(Field::Sketch), "");

  const std::string cut = InScratch("Coil.vbp") + '\0' + ".x";
  form.TextEdited(Field::File, scratch_.Write("nul.bvg", "[GENERAL]\r\nPROJECT=" + cut +
                                                             "\r\nAUTHOR=Loaded\r\n\r\n[END]\r\n")
                                   .string());
  form.FieldLeft(Field::File);
  EXPECT_EQ(form.State().edAuthor, "Loaded");
  EXPECT_EQ(form.State().edLocation, project);
  EXPECT_EQ(form.State().theName, "Coil");
  EXPECT_EQ(form.FieldText(Field::Location), cut);
  EXPECT_NE(form.FieldNotice(Field::Location).find("NUL (code 0)"), std::string::npos);
  EXPECT_TRUE(prompter_.shown.empty());
}

TEST_F(WizardTest, CancelAnsweredNoChangesNothingAndYesSavesAndCloses) {
  WizardForm& form = Start();
  const std::string session = form.State().edFile;
  form.TextEdited(Field::Author, "Ann Author");

  prompter_.Answer(MsgAnswer::No);
  EXPECT_FALSE(form.Cancel());
  ExpectTold(prompter_, "Are you sure to exit ExploringObject Wizard?", MsgIcon::Question,
             MsgButtons::YesNo);
  EXPECT_EQ(wizard_.Form(), &form);
  EXPECT_FALSE(fs::exists(session));

  prompter_.Answer(MsgAnswer::Yes);
  EXPECT_TRUE(form.Cancel());
  EXPECT_EQ(wizard_.Form(), nullptr);
  EXPECT_FALSE(wizard_.FormDisplayed);
  EXPECT_TRUE(view_.viewDestroyed);
  EXPECT_FALSE(analysisAlive_);
  EXPECT_NE(ReadBytes(session).find("Ann Author"), std::string::npos);
}

TEST_F(WizardTest, FinishKeepsTheWizardWithNothingLostUntilSavedAndGenerated) {
  WizardForm& form = Start();
  GiveProject(form);
  form.TextEdited(Field::Author, "Ann Author");
  form.ChoiceChanged(Choice::Type, 4);
  for (int i = 0; i < 7; ++i) form.Next();
  const std::string session = form.State().edFile;
  const auto expectBack = [&] {
    EXPECT_EQ(wizard_.Form(), &form);
    EXPECT_TRUE(view_.formShown);
    EXPECT_EQ(form.CurrentStep, 7);
    EXPECT_EQ(form.State().edAuthor, "Ann Author");
    EXPECT_EQ(form.State().cmbType.listIndex, 4);
    EXPECT_TRUE(analysisAlive_);
  };

  // A session that cannot be saved, answered "back to the wizard", stops Finish before
  // anything else.
  form.TextEdited(Field::File, InScratch("no such folder/s.bvg"));
  prompter_.Answer(MsgAnswer::Cancel);
  EXPECT_FALSE(form.Finish());
  EXPECT_EQ(generations_, 0);
  prompter_.shown.clear();
  expectBack();

  form.TextEdited(Field::File, session);
  generationSucceeds_ = false;
  EXPECT_FALSE(form.Finish());
  EXPECT_EQ(generations_, 1);
  expectBack();
  generationThrows_ = true;
  EXPECT_FALSE(form.Finish());
  ExpectTold(prompter_, "project folder vanished", MsgIcon::Critical);
  expectBack();

  generationThrows_ = false;
  generationSucceeds_ = true;
  EXPECT_TRUE(form.Finish());
  EXPECT_EQ(generations_, 3);
  EXPECT_FALSE(formShownWhileGenerating_);
  EXPECT_EQ(generatedLocation_, scratch_.Path().string());
  EXPECT_TRUE(fs::exists(session));
  EXPECT_EQ(wizard_.Form(), nullptr);
  EXPECT_FALSE(analysisAlive_);
}

// A session that cannot be saved as the wizard closes or finishes is told with its path,
// and the user goes on: to another session file, on without saving (after confirming),
// or back to the wizard, which never closes without a word.
TEST_F(WizardTest, ASessionThatCannotBeSavedOffersAWayOn) {
  const std::string bad = InScratch("no such folder/s.bvg");
  const std::string chosen = InScratch("chosen.bvg");
  const std::string cannotOpen = "Error: Cann't open generation file '" + bad + "' for writing";
  const struct {
    const char* what;
    bool finish;  // else Cancel, its exit question answered Yes
    std::vector<MsgAnswer> answers;
    std::optional<std::string> saveAs;  // each save dialog's answer
    bool closed;
    int generations;
    std::string told;  // the way-on question; "" to skip
  } cases[] = {
      {"Finish, back to the wizard", true, {MsgAnswer::Cancel}, std::nullopt, false, 0,
       cannotOpen + "\nThe session was not saved: '" + bad + "' is as it was.\nClick Yes to "
       "save it in another file. Click No to generate the project without saving it. Click "
       "Cancel to go back to the wizard."},
      {"Finish, another file", true, {MsgAnswer::Yes}, chosen, true, 1, ""},
      {"Finish, a dialog cancelled, then back", true, {MsgAnswer::Yes, MsgAnswer::Cancel},
       std::nullopt, false, 0, ""},
      {"Finish without saving, confirmed the second time", true,
       {MsgAnswer::No, MsgAnswer::No, MsgAnswer::No, MsgAnswer::Yes}, std::nullopt, true, 1, ""},
      {"Cancel, closed without saving", false, {MsgAnswer::No, MsgAnswer::Yes}, std::nullopt,
       true, 0,
       cannotOpen + "\nThe session was not saved: '" + bad + "' is as it was.\nClick Yes to "
       "save it in another file. Click No to close the wizard without saving it. Click Cancel "
       "to go back to the wizard."},
      {"Cancel, another file", false, {MsgAnswer::Yes}, chosen, true, 0, ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    if (wizard_.Form() != nullptr) wizard_.AddinInstance_OnDisconnection();
    generations_ = 0;
    fs::remove(chosen);
    WizardForm& form = Start();
    GiveProject(form);
    form.TextEdited(Field::File, bad);
    if (!c.finish) prompter_.Answer(MsgAnswer::Yes);
    for (const MsgAnswer answer : c.answers) prompter_.Answer(answer);
    view_.saveAs = c.saveAs;
    EXPECT_EQ(c.finish ? form.Finish() : form.Cancel(), c.closed);
    EXPECT_EQ(prompter_.Pending(), 0u);
    EXPECT_EQ(wizard_.Form() == nullptr, c.closed);
    EXPECT_EQ(generations_, c.generations);
    EXPECT_EQ(fs::exists(chosen), c.saveAs.has_value());
    EXPECT_FALSE(fs::exists(bad));
    const auto& told = prompter_.shown[c.finish ? 0 : 1];
    if (!c.told.empty()) {
      EXPECT_EQ(told.text, c.told);
    }
    EXPECT_EQ(told.buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(told.icon, MsgIcon::Exclamation);
    for (const FileDialogSetup& dialog : view_.saveDialogs) {
      EXPECT_EQ(dialog.initialFolder, (ProgramFolder() / "WizardSessions").string());
      EXPECT_EQ(dialog.fileName, (ProgramFolder() / "WizardSessions" / "Generation1.bvg").string());
    }
  }
}

// After a session file failed to load, the wizard says which file and why, and the next
// save over it asks first: Yes replaces it, No saves beside it under the next free
// numbered name, Cancel goes back.
TEST_F(WizardTest, ASessionThatFailedToLoadIsNotReplacedWithoutAsking) {
  // Cut inside its second input.
  const std::string bytes = std::string("[GENERAL]\r\nAPPLICATION=") + kTitle +
                            "\r\n\r\n[INPUT]\r\nDESCRIPTION=Gap\r\n\r\n[INPUT]\r\nDESCRIPTION=Wi";
  const std::string broken = scratch_.Write("Broken.bvg", bytes).string();
  scratch_.Write("Broken 2.bvg", "taken");
  const struct {
    MsgAnswer answer;
    bool closed;
    std::string saved;  // the file the session went to; "" for none
  } cases[] = {
      {MsgAnswer::Cancel, false, ""},
      {MsgAnswer::No, true, InScratch("Broken 3.bvg")},
      {MsgAnswer::Yes, true, broken},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(static_cast<int>(c.answer));
    if (wizard_.Form() != nullptr) wizard_.AddinInstance_OnDisconnection();
    WizardForm& form = Start();
    form.Next();
    form.TextEdited(Field::File, broken);
    prompter_.Answer(MsgAnswer::Yes);  // load it over the changed settings
    form.FieldLeft(Field::File);
    ASSERT_EQ(prompter_.shown.size(), 2u);
    EXPECT_EQ(prompter_.shown[1].text, "'" + broken + "' could not be read completely: Error "
                                       "loading data from generation file");
    prompter_.shown.clear();

    prompter_.Answer(MsgAnswer::Yes);  // exit
    prompter_.Answer(c.answer);
    EXPECT_EQ(form.Cancel(), c.closed);
    ASSERT_EQ(prompter_.shown.size(), 2u);
    EXPECT_EQ(prompter_.shown[1].text,
              "The session file '" + broken + "' could not be read completely when it was "
              "loaded; saving the session replaces it, and what could not be read is lost.\n"
              "Click Yes to replace it. Click No to save the session as '" +
                  InScratch("Broken 3.bvg") + "' instead. Click Cancel to go back to the wizard.");
    EXPECT_EQ(prompter_.shown[1].buttons, MsgButtons::YesNoCancel);
    EXPECT_EQ(ReadBytes(broken) == bytes, c.saved != broken);
    if (!c.saved.empty()) {
      EXPECT_NE(ReadBytes(c.saved).find("\r\n[END]\r\n"), std::string::npos);
    }
    EXPECT_EQ(fs::exists(InScratch("Broken 3.bvg")), c.answer == MsgAnswer::No);
    fs::remove(InScratch("Broken 3.bvg"));
  }
}

TEST_F(WizardTest, AnalysisApplicationThatCannotStartStopsTheStartUpUntilReconnection) {
  for (const Launch launch : {Launch::Fails, Launch::Throws}) {
    launch_ = launch;
    wizard_.AddinInstance_OnConnection(nullptr);
    EXPECT_EQ(wizard_.Form(), nullptr);
    EXPECT_FALSE(wizard_.FormDisplayed);
    ExpectTold(prompter_, "Error launch Zentrix.", MsgIcon::Critical);
    EXPECT_FALSE(view_.launchShown);
    EXPECT_FALSE(view_.busy);
  }
  launch_ = Launch::Starts;
  Start();
  EXPECT_EQ(formsMade_, 3);
  EXPECT_TRUE(wizard_.FormDisplayed);
}

TEST_F(WizardTest, VersionIsCheckedInPlainStringOrder) {
  for (const char* product : {"Zentrix 5.2", "Zentrix 5.10", "Zentrix 5.3", "zentrix 5.2"}) {
    SCOPED_TRACE(product);
    product_ = product;
    wizard_.AddinInstance_OnConnection(nullptr);
    if (wizard_.Form() != nullptr) {
      EXPECT_LE(std::string(product), "Zentrix 5.2");
      EXPECT_TRUE(prompter_.shown.empty());
      wizard_.AddinInstance_OnDisconnection();
      continue;
    }
    EXPECT_GT(std::string(product), "Zentrix 5.2");
    EXPECT_FALSE(analysisAlive_);
    ExpectTold(prompter_,
               "This version of Bravant must run with Zentrix 5.2. If you have installed Zentrix "
               "5.2 run it to make it active. Then execute Bravant ExploringObject Wizard.",
               MsgIcon::Exclamation, MsgButtons::OK, kLongTitle);
  }
}

TEST_F(WizardTest, ChangedSettingsAskBeforeASessionIsLoaded) {
  WizardForm& form = Start();
  session::FormState saved;
  saved.edAuthor = "Saved Author";
  vbrt::FileTable files;
  std::string message;
  const std::string path = InScratch("saved.bvg");
  ASSERT_TRUE(session::SaveSession(saved, {files, files_}, path, message)) << message;
  form.Next();  // the session-file page: the settings count as changed now
  EXPECT_THAT(view_.focused, ElementsAre("btnNext", "edFile"));  // each page's first control
  view_.focused.clear();
  form.TextEdited(Field::Author, "Typed Author");
  const auto leaveFileField = [&] {
    form.TextEdited(Field::File, path);
    form.FieldLeft(Field::File);
  };

  prompter_.Answer(MsgAnswer::No);
  leaveFileField();
  ExpectTold(prompter_, "Load old Exploring Object Wizard saving ?", MsgIcon::Question,
             MsgButtons::YesNoCancel);
  EXPECT_EQ(form.State().edAuthor, "Typed Author");
  EXPECT_TRUE(form.SettingsChanged);

  prompter_.Answer(MsgAnswer::Cancel);
  leaveFileField();
  EXPECT_THAT(view_.focused, ElementsAre("edFile"));
  EXPECT_EQ(form.State().edAuthor, "Typed Author");

  prompter_.Answer(MsgAnswer::Yes);
  leaveFileField();
  EXPECT_EQ(form.State().edAuthor, "Saved Author");
  EXPECT_FALSE(form.SettingsChanged);
}

// A page change puts the focus into the page's first field; passing on without touching
// it is no leaving of it (an unexpected question would fail the test here).
TEST_F(WizardTest, PassingByAPagesFirstFieldChecksNothingUntilItIsClickedOrTyped) {
  WizardForm& form = Start();
  session::FormState saved;
  vbrt::FileTable files;
  std::string message;
  ASSERT_TRUE(session::SaveSession(saved, {files, files_}, InScratch("s.bvg"), message));
  form.State().edFile = InScratch("s.bvg");
  form.Next();
  form.FieldLeft(Field::File);
  EXPECT_TRUE(prompter_.shown.empty());
  form.Back();
  form.Next();
  form.FieldEntered(Field::File);
  prompter_.Answer(MsgAnswer::No);
  form.FieldLeft(Field::File);
  ExpectTold(prompter_, "Load old Exploring Object Wizard saving ?", MsgIcon::Question,
             MsgButtons::YesNoCancel);
}

TEST_F(WizardTest, HelpShowsTheTopicOfThePageOrDialogBesideTheProgramFolder) {
  WizardForm& form = Start();
  form.Help();
  form.Next();
  form.Help();
  form.CurrentStep = 6;
  form.Outputs().AddCustomClicked();  // the dialog in view has its own topic
  form.Help();
  form.Outputs().DialogCancel();
  form.CurrentStep = 5;
  form.Inputs().AddClicked();  // so has the input dialog: its section of the page's
  form.Help();
  form.Inputs().DialogCancel();
  form.CurrentStep = 8;
  form.Help();
  const std::string program = ProgramFolder().string();
  EXPECT_THAT(help_.topics,
              ElementsAre(program + "/../../Help/Bravant.chm::/HTML/Wizard.htm",
                          program + "/../../Help/Bravant.chm::/HTML/WizardSavingFile.htm",
                          program + "/../../Help/Bravant.chm::/HTML/WizardOutputs.htm#Custom",
                          program + "/../../Help/Bravant.chm::/HTML/WizardInputs.htm#Dialog"));
}

// Saving the sketch: a file that exists is replaced only on Yes, a path the field would
// not take and a failed write are told, and only a written sketch becomes the sketch file.
TEST_F(WizardTest, SketchIsSavedOnlyWhereAndWhenTheUserSaysAndThenBecomesTheSketchFile) {
  WizardForm& form = Start();
  scratch_.Write("Old.bmp", "old");
  const struct {
    std::string file;
    std::optional<MsgAnswer> replace;  // asked when the file exists
    const char* failure;               // the writer's, or nullptr
    std::string told;                  // besides the question
  } rows[] = {
      {"Old.bmp", MsgAnswer::No, nullptr, ""},
      {"New.bmp", std::nullopt, "No space left on device",
       "The sketch could not be saved as '" + InScratch("New.bmp") + "': No space left on device"},
      {"张.bmp", std::nullopt, nullptr,
       "The code page WINDOWS-1252 cannot hold \"张\": a path written with \"?\" would lead "
       "nowhere, so "
       "it is not taken."},
      {"Old.bmp", MsgAnswer::Yes, nullptr, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file);
    const std::string path = InScratch(row.file);
    if (row.replace) prompter_.Answer(*row.replace);
    int written = 0;
    form.SaveSketch(Sketch{}, path, [&](const Drawing&, const std::filesystem::path& file) {
      EXPECT_EQ(file, path);
      if (row.failure != nullptr) throw std::runtime_error(row.failure);
      ++written;
    });
    if (row.replace) {
      EXPECT_EQ(prompter_.shown.at(0).text, "Sketch file '" + path + "' already exists. Replace ?");
      prompter_.shown.erase(prompter_.shown.begin());
    }
    if (!row.told.empty()) ExpectTold(prompter_, row.told, MsgIcon::Exclamation);
    EXPECT_TRUE(prompter_.shown.empty());
    const bool saved = row.replace == MsgAnswer::Yes;
    EXPECT_EQ(written, saved ? 1 : 0);
    EXPECT_EQ(form.State().theSketch, saved ? path : "");
  }
}

// A caption as a control shows it: "&" marks the access key, "&&" shows one "&".
std::string Shown(const std::string& caption) {
  std::string shown;
  for (size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

// Within a page, with the buttons below every page, and within a dialog no access key is
// given twice; each marks a letter of its caption, which reads as it did.
TEST(AccessKeyTest, UniqueWithinAPageOrDialogAndMarkedInTheirCaptions) {
  std::map<std::string_view, std::set<char>> used;
  for (const AccessKey& key : AccessKeys()) {
    SCOPED_TRACE(std::string(key.control));
    const std::string caption = resources::LoadResString(key.caption);
    const std::string marked = WithAccessKey(caption, key.key);
    const size_t mark = marked.find('&');
    ASSERT_NE(mark, std::string::npos);
    EXPECT_EQ(std::toupper(static_cast<unsigned char>(marked[mark + 1])), key.key);
    EXPECT_EQ(Shown(marked), Shown(caption));
    EXPECT_EQ(AccessKeyOf(key.control), key.key);
    EXPECT_TRUE(used[key.scope].insert(key.key).second)
        << key.scope << " has " << key.key << " twice";
  }
  for (const auto& [scope, keys] : used) {
    if (!scope.starts_with("page")) continue;
    for (const char key : keys) EXPECT_FALSE(used["bar"].contains(key)) << scope << ": " << key;
  }
  EXPECT_EQ(WithAccessKey("Model, Data && Sketch", 'S'), "Model, Data && &Sketch");
  EXPECT_EQ(WithAccessKey("Help", std::nullopt), "Help");
}

TEST_F(WizardTest, BrowseButtonsStartWhereTheFieldPointsOrFallBack) {
  WizardForm& form = Start();
  const FileDialogSetup file = form.BrowseSetup(Browse::File);
  EXPECT_EQ(file.initialFolder, (ProgramFolder() / "WizardSessions").string());
  EXPECT_EQ(file.filter, "Exploring Object Wizard saving files (*.bvg)|*.bvg");
  EXPECT_FALSE(file.fileMustExist);

  GiveProject(form);
  form.TextEdited(Field::Model, "/no/such/folder/m.mod");
  const FileDialogSetup model = form.BrowseSetup(Browse::Model);
  EXPECT_EQ(model.initialFolder, scratch_.Path().string());
  EXPECT_EQ(model.fileName, "/no/such/folder/m.mod");
  EXPECT_TRUE(model.fileMustExist);

  const FileDialogSetup location = form.BrowseSetup(Browse::Location);
  EXPECT_EQ(location.fileName, "Coil");
  EXPECT_EQ(location.initialFolder, scratch_.Path().string());
  EXPECT_TRUE(location.pathMustExist);

  // Stress Analysis offers the Current Flow filter and the other way round.
  form.ChoiceChanged(Choice::Type, 4);
  EXPECT_EQ(form.BrowseSetup(Browse::Data).filter, "ZX Data for Current Flow (*.dcf)|*.dcf");
  form.ChoiceChanged(Choice::Type, 5);
  EXPECT_EQ(form.BrowseSetup(Browse::Data).filter, "ZX Data for Stress Analysis (*.dsa)|*.dsa");
}

TEST_F(WizardTest, BrowsedFileRunsTheFieldCheck) {
  WizardForm& form = Start();
  const std::string model = scratch_.Write("m.mod", "x").string();
  form.Browsed(Browse::Model, model);
  EXPECT_EQ(form.State().edModel, model);
  EXPECT_EQ(form.State().theModel, model);
  EXPECT_TRUE(form.State().optModelLink.enabled);
  form.OptionChosen(Option::ModelCode);  // never enabled by the wizard
  EXPECT_EQ(form.State().ModelCase(), "Load");
}

}  // namespace
}  // namespace wizard::test
