#pragma once
// A wizard connected to test doubles: a scratch program folder, a view that records what
// the form asked of it, a fake analysis application and a generation that answers as told.
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../platform/scratch_folder.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "vbrt/error.h"
#include "wizard/model/wizard_connection.h"
#include "wizard/model/wizard_form.h"

namespace wizard::test {

constexpr const char* kTitle = "Zentrix Bravant ExploringObject Wizard";

// Expects exactly one message since the last call, as given; clears it.
inline void ExpectTold(platform::ScriptedPrompter& prompter, const std::string& text,
                       platform::MsgIcon icon,
                       platform::MsgButtons buttons = platform::MsgButtons::OK,
                       const std::string& title = kTitle) {
  ASSERT_EQ(prompter.shown.size(), 1u);
  EXPECT_EQ(prompter.shown[0].text, text);
  EXPECT_EQ(prompter.shown[0].icon, icon);
  EXPECT_EQ(prompter.shown[0].buttons, buttons);
  EXPECT_EQ(prompter.shown[0].title, title);
  prompter.shown.clear();
}

// What the view was asked to do; outlives the view, which dies with its form.
struct ViewLog {
  bool formShown = false;
  bool launchShown = false;
  bool busy = false;
  std::string launchCaption;
  std::string launchText;
  std::vector<std::string> focused;
  bool viewDestroyed = false;
  std::vector<FileDialogSetup> saveDialogs;  // every save-file dialog opened
  std::optional<std::string> saveAs;         // what each one answers; nullopt: cancelled
};

class RecordingView : public WizardView {
 public:
  explicit RecordingView(ViewLog& log) : log_(log) {}
  ~RecordingView() override { log_.viewDestroyed = true; }
  void ShowForm() override { log_.formShown = true; }
  void HideForm() override { log_.formShown = false; }
  void ShowLaunchNotice(const std::string& caption, const std::string& text) override {
    log_.launchShown = true;
    log_.launchCaption = caption;
    log_.launchText = text;
  }
  void HideLaunchNotice() override { log_.launchShown = false; }
  void SetBusy(bool busy) override { log_.busy = busy; }
  void FocusControl(std::string_view control) override { log_.focused.emplace_back(control); }
  void Repaint() override {}
  std::optional<std::string> AskSaveFile(const FileDialogSetup& setup) override {
    log_.saveDialogs.push_back(setup);
    return log_.saveAs;
  }

 private:
  ViewLog& log_;
};

class RecordingHelp : public platform::HelpViewer {
 public:
  std::vector<std::string> topics;
  void ShowTopic(std::string_view fileAndTopic) override { topics.emplace_back(fileAndTopic); }
};

class FakeAnalysis : public platform::AnalysisApplication {
 public:
  FakeAnalysis(std::string product, bool& alive) : product_(std::move(product)), alive_(alive) {
    alive_ = true;
  }
  ~FakeAnalysis() override { alive_ = false; }
  std::string ProductName() const override { return product_; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view) override {
    throw std::logic_error("no model in these tests");
  }

 private:
  std::string product_;
  bool& alive_;
};

class WizardTest : public testing::Test {
 protected:
  // How the next start of the analysis application goes.
  enum class Launch { Starts, Fails, Throws };

  WizardTest() { std::filesystem::create_directories(ProgramFolder()); }

  std::filesystem::path ProgramFolder() const { return scratch_.Path() / "bin"; }
  std::filesystem::path UserData() const { return scratch_.Path() / "user" / "eowizard"; }
  std::string InScratch(const std::string& name) const {
    return (scratch_.Path() / name).string();
  }

  std::unique_ptr<WizardForm> MakeForm() {
    ++formsMade_;
    auto form = std::make_unique<WizardForm>(FormServices{
        files_, registry_, prompter_, help_,
        programFolder_.empty() ? ProgramFolder().string() : programFolder_,
        UserData().string(),
        [this]() -> std::unique_ptr<platform::AnalysisApplication> {
          if (launch_ == Launch::Throws) throw std::runtime_error("cannot start");
          if (launch_ == Launch::Fails) return nullptr;
          return std::make_unique<FakeAnalysis>(product_, analysisAlive_);
        },
        [this](WizardForm& form) {
          ++generations_;
          if (generationThrows_) throw vbrt::VbError(76, "project folder vanished");
          formShownWhileGenerating_ = view_.formShown;
          generatedLocation_ = form.State().theLocation;
          return generationSucceeds_;
        },
        [this](WizardForm& form) {
          ++previews_;
          previewHelpTopic_ = form.HelpTopic();
        }});
    view_ = ViewLog{};
    form->AttachView(std::make_unique<RecordingView>(view_));
    return form;
  }

  // Connects the add-in and expects the wizard on view.
  WizardForm& Start() {
    wizard_.AddinInstance_OnConnection(nullptr);
    EXPECT_NE(wizard_.Form(), nullptr) << "the wizard did not start";
    EXPECT_TRUE(view_.formShown);
    prompter_.shown.clear();
    return *wizard_.Form();
  }

  // The project path of a project in the scratch folder, typed and left.
  void GiveProject(WizardForm& form) {
    form.TextEdited(Field::Location, InScratch("Coil.vbp"));
    form.FieldLeft(Field::Location);
  }

  ScratchFolder scratch_;
  platform::PosixFileSystem files_{platform::DriveMap{}};
  platform::RegistryFiles registry_;
  platform::ScriptedPrompter prompter_;
  RecordingHelp help_;
  std::string programFolder_;  // "" = ProgramFolder()

  Launch launch_ = Launch::Starts;
  std::string product_ = "Zentrix 5.2";
  bool analysisAlive_ = false;

  bool generationSucceeds_ = true;
  bool generationThrows_ = false;
  int generations_ = 0;
  int previews_ = 0;
  std::string_view previewHelpTopic_;  // the help in view while the preview was shown
  bool formShownWhileGenerating_ = false;
  std::string generatedLocation_;

  ViewLog view_;
  int formsMade_ = 0;
  Wizard wizard_{[this] { return MakeForm(); }, prompter_};
};

}  // namespace wizard::test
