#pragma once
// The wizard window without its widgets: the state the window shows and the handlers of
// its buttons and fields. A view (the Qt window, or a test double) shows the state and
// forwards the user's actions here; the form talks back through WizardView.
#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/analysis_application.h"
#include "platform/dev_environment.h"
#include "platform/file_system.h"
#include "platform/help_viewer.h"
#include "platform/prompter.h"
#include "platform/registry.h"
#include "session/form_state.h"
#include "session/session_file.h"
#include "vbrt/file_table.h"
#include "wizard/model/basic_files_picture.h"
#include "wizard/model/control_names.h"
#include "wizard/model/input_page.h"
#include "wizard/model/output_page.h"
#include "wizard/model/page_checks.h"
#include "wizard/model/session_saver.h"

namespace wizard {

class Wizard;
class WizardForm;
struct FileDialogSetup;

inline constexpr int16_t kPageCount = 8;  // pages 0 (introduction) to 7 (finish)

// The help topic of each page, relative to the program folder: the help file lies two
// folders above it. The finish page shares the introduction's topic.
inline constexpr std::array<std::string_view, kPageCount> kPageHelpTopics = {
    "/../../Help/Bravant.chm::/HTML/Wizard.htm",
    "/../../Help/Bravant.chm::/HTML/WizardSavingFile.htm",
    "/../../Help/Bravant.chm::/HTML/WizardProject.htm",
    "/../../Help/Bravant.chm::/HTML/WizardProblemProperties.htm",
    "/../../Help/Bravant.chm::/HTML/WizardBasicFiles.htm",
    "/../../Help/Bravant.chm::/HTML/WizardInputs.htm",
    "/../../Help/Bravant.chm::/HTML/WizardOutputs.htm",
    "/../../Help/Bravant.chm::/HTML/Wizard.htm",
};

// The help topic of the preview of a generation, opened from the finish page.
inline constexpr std::string_view kPreviewHelpTopic =
    "/../../Help/Bravant.chm::/HTML/WizardPreview.htm";

// What the form asks of the window that shows it. Every call comes from inside one of the
// form's handlers, on the user-interface thread. The form owns its view and destroys it
// when it unloads, which can happen inside a handler the view called (Cancel, Finish): a
// view that is a widget must defer deleting itself to the event loop.
class WizardView {
 public:
  virtual ~WizardView() = default;
  // Shows the window modeless / hides it without closing it.
  virtual void ShowForm() = 0;
  virtual void HideForm() = 0;
  // The start-up notice. It must be on the screen when ShowLaunchNotice returns: the
  // analysis application starts right after and blocks the event loop meanwhile.
  virtual void ShowLaunchNotice(const std::string& caption, const std::string& text) = 0;
  virtual void HideLaunchNotice() = 0;
  // The busy (hourglass) pointer over the window, on or off.
  virtual void SetBusy(bool busy) = 0;
  // Puts the keyboard focus into the control of that name (e.g. "edFile").
  virtual void FocusControl(std::string_view control) = 0;
  // The form's state changed: show it again (page, buttons, texts, lists).
  virtual void Repaint() = 0;
  // Opens the save-file dialog as `setup` says: the chosen file's full path (the dialog
  // has asked before one that exists is replaced), or nullopt when the user cancelled.
  virtual std::optional<std::string> AskSaveFile(const FileDialogSetup& setup) = 0;
};

// Creates the analysis application; nullptr (or a thrown error) when it cannot be started.
using AnalysisFactory = std::function<std::unique_ptr<platform::AnalysisApplication>()>;
// Generates the project of the form's settings; true on success. The real one runs the
// generator with a progress window; it reads VBI, ZX() and State() of the form.
using GenerationRunner = std::function<bool(WizardForm&)>;
// Shows what generating the form's settings would do, writing nothing and changing
// neither the form nor the session; returns when the user closes what it shows. It reads
// ZX() and State() of the form.
using PreviewRunner = std::function<void(WizardForm&)>;

// The services a form works with. The references must outlive the form.
struct FormServices {
  platform::FileSystem& fs;
  const platform::Registry& registry;
  platform::Prompter& prompter;
  platform::HelpViewer& help;
  // The folder that holds the program file, in the form FileSystem takes; the sessions
  // folder and the help file are found from here.
  std::string programFolder;
  // The per-user data folder that takes the sessions folder when the program folder
  // cannot (created with its parents when missing).
  std::string userDataFolder;
  AnalysisFactory createAnalysis;
  GenerationRunner generate;
  PreviewRunner preview = {};  // none: the finish page offers no preview
};

enum class Button { None, Back, Next, Finish };

// The finish page's own picture: a project that Finish will generate, or none yet.
enum class FinishPicture { Done, NotYet };

// The text fields of pages 1, 2 and 4, and their controls.
using Field = session::TextField;
inline constexpr std::pair<Field, const char*> kFieldControls[] = {
    {Field::File, controls::edFile},     {Field::Location, controls::edLocation},
    {Field::Author, controls::edAuthor}, {Field::Model, controls::edModel},
    {Field::Data, controls::edData},     {Field::Sketch, controls::edSketch},
};
// The four choice lists of page 3.
enum class Choice { Type, Class, Coord, Unit };
// The option buttons of page 4.
enum class Option { ModelCode, ModelLink, DataCode, DataLink };
// The browse buttons of pages 1, 2 and 4.
enum class Browse { File, Location, Model, Data, Sketch };

// One entry of the tab order: the control's name and its tab index.
struct TabStop {
  std::string control;
  int tabIndex = 0;
};

// How a browse button opens the open-file dialog.
struct FileDialogSetup {
  std::string initialFolder;  // "" = the dialog's own choice
  std::string fileName;       // preset file name (may carry a folder)
  std::string filter;         // "description|pattern|description|pattern..."
  bool pathMustExist = false;
  bool fileMustExist = false;
  // A save dialog asks before an existing file is replaced; false where the form asks.
  bool askBeforeReplacing = false;
};

// What "Create sketch file now" offers to save: the basic model's sketch, and how the
// save dialog opens.
struct Sketch {
  Drawing drawing;
  FileDialogSetup saveAs;
};
// Writes `drawing` to `file` as a Windows bitmap, replacing it; throws std::exception
// saying why when it cannot, leaving no partial file behind.
using BitmapWriter = std::function<void(const Drawing& drawing, const std::filesystem::path& file)>;

class WizardForm {
 public:
  // Runs the load handler: captions and lists from the string table, the options of
  // page 4 disabled with "from file" selected, lvInput empty. No view yet.
  explicit WizardForm(FormServices services);
  // Unloading: releases ZX (errors ignored), then the view.
  ~WizardForm();
  WizardForm(const WizardForm&) = delete;
  WizardForm& operator=(const WizardForm&) = delete;

  // The window that shows this form; owned from here on.
  void AttachView(std::unique_ptr<WizardView> view);

  // Public fields that the add-in and the generator use.
  platform::DevEnvironment* VBI = nullptr;  // set by the add-in before InitWizard
  Wizard* AddIn = nullptr;                  // set by the add-in; closes the wizard
  int16_t CurrentStep = 0;                  // page on view, 0 to 7
  bool SettingsChanged = false;             // a page after the first has been on view

  // The analysis application, or nullptr before start-up and after release.
  platform::AnalysisApplication* ZX() const { return zx_.get(); }

  // The session record as the controls hold it (theLocation, theName, ... live here).
  session::FormState& State() { return state_; }
  const session::FormState& State() const { return state_; }
  // The lost-focus checks of pages 1 to 4, as the session reader runs them too.
  PageChecks& Checks() { return checks_; }
  // How LoadSession / SaveSession reach files from this form.
  session::SessionIo Io() { return {files_, services_.fs}; }

  // Start-up, before the form is shown: titles, sessions folder and default session
  // file, page 0, the launch notice while the analysis application starts, its version
  // check. True when the form may be shown; false after telling the user why.
  bool InitWizard();

  // Brings buttons, default button, tab order and the finish page up to date for
  // CurrentStep; marks the settings changed on every page after the first.
  void RefreshStep();

  // --- State for the view ---
  // Caption of every captioned control by its name ("frmWizard" is the window title;
  // "lblIntro(0)" to "lblIntro(4)" are the introduction's five labels).
  const std::map<std::string, std::string>& Captions() const { return captions_; }
  // Items of the input type editor of page 5.
  const std::vector<std::string>& TypeEditorItems() const { return inputs_.TypeItems(); }
  // The input and output parameter pages (5 and 6).
  InputPage& Inputs() { return inputs_; }
  OutputPage& Outputs() { return outputs_; }
  // The picture of the model converted into code on the basic-files page (4): read when
  // the page comes into view, and again when the model's path or option changes there.
  BasicFilesPicture& Picture() { return picture_; }
  bool BackEnabled() const { return backEnabled_; }
  bool NextEnabled() const { return nextEnabled_; }
  bool FinishEnabled() const { return state_.btnFinishEnabled; }
  // The finish page's Preview button: shown on that page when there is a preview, and
  // enabled whenever Finish is.
  bool PreviewVisible() const;
  bool PreviewEnabled() const { return PreviewVisible() && FinishEnabled(); }
  // The button that Enter presses; None on page 5 (Enter belongs to the list editors).
  // It may be a disabled button (page 7 without a project location).
  Button DefaultButton() const { return defaultButton_; }
  // The current page's controls and buttons with their tab indices, by rising index.
  const std::vector<TabStop>& TabOrder() const { return tabOrder_; }
  // The finish page: its two texts and the name of its icon ("Information" or
  // "Exclamation").
  const std::string& FinishText1() const { return finishText1_; }
  const std::string& FinishText2() const { return finishText2_; }
  const std::string& FinishIcon() const { return finishIcon_; }
  // The picture beside them: NotYet while no project location is given.
  FinishPicture PictureOfFinish() const { return finishPicture_; }
  // The sessions folder InitWizard settled on ("" before start-up).
  const std::string& SessionsFolder() const { return sessionsFolder_; }
  // How the browse button opens its file dialog, from the field's current text.
  FileDialogSetup BrowseSetup(Browse button) const;

  // --- Events from the view ---
  // Both put the focus into the new page's first control in its tab order that is
  // enabled, as ShowForm does, so that typing goes there.
  void Next();  // ignored while btnNext is disabled
  void Back();  // ignored while btnBack is disabled
  // Help (the button or F1, on a page or in a dialog): opens HelpTopic() beside the
  // program folder; nothing without a topic.
  void Help();
  // The help topic of what is in view: the input or custom-output dialog's while it is
  // open, or the preview's while it is shown, otherwise the page's; "" when CurrentStep
  // is no page.
  std::string_view HelpTopic() const;
  // Both return true when the wizard was closed: the form no longer exists then and
  // the caller must not touch it (nor the view it owned) again. Both save the session
  // first; a save that fails offers another session file, going on without saving, or
  // the wizard again, and a session file that could not be read completely is not
  // replaced without asking (see SessionSaver).
  bool Cancel();
  bool Finish();
  // Shows what Finish would do (PreviewRunner); ignored while the button is disabled.
  // While it is shown, Help opens the preview's topic.
  void Preview();
  // The user typed into a field; nothing is checked until the field is left. A project,
  // model, data or sketch path holding characters that the code page cannot hold, or a
  // control character, is not taken: the field shows it with FieldNotice saying why, the
  // record goes back to the path it had before the user began typing into the field, and
  // leaving the field checks nothing. False then. A session loaded with such a path is
  // treated alike: the field keeps the path it had before the load.
  bool TextEdited(Field field, std::string text);
  // What the field shows: its text in the record, or the path it did not take.
  const std::string& FieldText(Field field) const;
  // What the user is told beside the field: the characters of its text that the code page
  // cannot hold, why a path was not taken, or that the project folder does not exist; ""
  // when there is nothing to tell.
  std::string FieldNotice(Field field) const;
  // The user clicked into the field.
  void FieldEntered(Field field);
  // The field lost the focus: its check runs (fields without one do nothing). A field
  // that has the focus only because its page came into view, and that the user has
  // neither typed in nor clicked into since, is passed by, not left: it is not checked.
  void FieldLeft(Field field);
  // A file was chosen in the browse button's dialog: it goes into the field and the
  // field's check runs, as if typed and left (unless the path is not taken).
  void Browsed(Browse button, std::string path);
  void ChoiceChanged(Choice choice, int16_t listIndex);
  void AsyncChanged(bool checked);
  // An option button was clicked; ignored while it is disabled.
  void OptionChosen(Option option);
  // "Create sketch file now": the model that edModel names, read through the analysis
  // application as the model picture reads it (in both model modes), drawn as a sketch;
  // the save dialog proposes "<model folder>/<model base name>.bmp". When no model is
  // named or it cannot be read, the user is told why and nothing changes: nullopt.
  std::optional<Sketch> DrawSketch();
  // The user chose `path` (a path of this machine) in the save dialog: asks before
  // replacing a file, writes the sketch with `write`, then puts the path into edSketch
  // and runs its check, as if browsed. Nothing changes when the user declines, when the
  // path is one the field would not take, or when writing fails (told).
  void SaveSketch(const Sketch& sketch, std::string path, const BitmapWriter& write);

  // Shows (with the focus in the page's first control) / hides the window; the add-in's
  // Show and Hide call these.
  void ShowForm();
  void HideForm();

 private:
  void Load();
  void SetCaptions();
  void ChangePage(int delta);
  // The finish page's default button, texts and picture: whether Finish can generate yet.
  void SetUpFinishPage();
  void FocusFirstControl();
  SaveOutcome SaveSession(SaveReason reason);
  // After a session was loaded: each path it set that cannot be taken is refused, and its
  // field goes back to the path it had `before` the load (by field).
  void RefuseLoadedPaths(const std::map<Field, std::string>& before);
  void Tell(const std::string& text, platform::MsgIcon icon, const std::string& title);
  void ReleaseZX();
  void Repaint();

  FormServices services_;
  session::FormState state_;
  PageChecks checks_;
  SessionSaver saver_;
  InputPage inputs_;
  OutputPage outputs_;
  BasicFilesPicture picture_;
  bool previewShown_ = false;
  std::set<Field> untouched_;  // given the focus by a page change, not touched since
  vbrt::FileTable files_;
  std::unique_ptr<platform::AnalysisApplication> zx_;

  std::string appTitle_;
  std::string longTitle_;
  std::string requiredVersion_;
  std::string sessionsFolder_;

  std::map<std::string, std::string> captions_;
  bool backEnabled_ = false;
  bool nextEnabled_ = true;
  Button defaultButton_ = Button::Next;
  std::vector<TabStop> tabOrder_;
  std::string finishText1_;
  std::string finishText2_;
  std::string finishIcon_;
  FinishPicture finishPicture_ = FinishPicture::Done;
  struct RefusedPath {
    std::string text;
    std::string notice;  // why it was not taken
  };
  std::map<Field, RefusedPath> refusedPaths_;  // what a path field shows but did not take
  std::map<Field, std::string> editedFrom_;  // a path's text when typing into it began

  // Declared last: the view goes first when the form unloads.
  std::unique_ptr<WizardView> view_;
};

}  // namespace wizard
