#include "wizard/model/wizard_form.h"

#include <utility>

#include "platform/path_parts.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "session/code_page_notice.h"
#include "session/record_check.h"
#include "vbrt/compare.h"
#include "vbrt/error.h"
#include "wizard/model/control_names.h"
#include "wizard/model/session_folder.h"
#include "wizard/model/wizard_connection.h"

namespace wizard {

using namespace controls;  // the control names

namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using namespace resources;  // LoadResString and the string numbers

constexpr int16_t kBasicFilesPage = 4;
constexpr int16_t kOutputsPage = 6;
constexpr int16_t kFinishPage = kPageCount - 1;

struct Caption {
  const char* control;
  int text;
};

constexpr Caption kCaptions[] = {
    {frmWizard, kFormCaption},
    {btnHelp, kHelpButton},
    {btnCancel, kCancelButton},
    {btnBack, kBackButton},
    {btnNext, kNextButton},
    {btnFinish, kFinishButton},
    {btnPreview, kPreviewButton},
    {lblIntro_Caption, kIntroHeading},
    {lblIntro[0], kIntroText1},
    {lblIntro[1], kIntroText2},
    {lblIntro[2], kIntroText3},
    {lblIntro[3], kIntroText4},
    {lblIntro[4], kIntroText5},
    {lblSaving_Caption, kSavingHeading},
    {lblSaving_Caption2, kSavingExplanation},
    {lblSaving_File, kSavingFileLabel},
    {lblGeneral_Caption, kProjectHeading},
    {lblGeneral_Caption2, kProjectExplanation},
    {lblGeneral_Project, kProjectLocationLabel},
    {lblGeneral_Author, kAuthorLabel},
    {chkAsync, kAsyncCheck},
    {lblProblem_Caption, kProblemHeading},
    {lblProblem_Caption2, kProblemExplanation},
    {lblProblem_Type, kProblemTypeLabel},
    {lblProblem_Class, kProblemClassLabel},
    {lblProblem_Coord, kCoordinatesLabel},
    {lblProblem_Units, kLengthUnitsLabel},
    {lblData_Caption, kDataHeading},
    {lblData_Caption2, kDataExplanation},
    {lblData_ModelFile, kModelFileLabel},
    {optModelCode, kModelCodeOption},
    {optModelLink, kModelLinkOption},
    {lblData_DataFile, kDataFileLabel},
    {optDataCode, kDataCodeOption},
    {optDataLink, kDataLinkOption},
    {lblData_Sketch, kSketchFileLabel},
    {btnCreateSketch, kCreateSketchButton},
    {lblInput_Caption, kInputHeading},
    {lblInput_Caption2, kInputExplanation},
    {lblInput_List, kInputListLabel},
    {btnInputRemove, kInputRemoveButton},
    {lblOutput_Caption, kOutputHeading},
    {lblOutput_Caption2, kOutputExplanation},
    {lblOutput_List1, kOutputListLabel},
    {lblOutput_List2, kStandardListLabel},
    {btnOutputStandard, kOutputStandardButton},
    {btnOutputCustom, kOutputCustomButton},
    {btnOutputEdit, kOutputEditButton},
    {btnOutputRemove, kOutputRemoveButton},
    {lblFin_Caption, kFinishHeading},
};

// A tab index held by a control that only the page's view knows: the form's tab order
// leaves it out.
constexpr const char* kViewsOwn = nullptr;

// How RefreshStep sets up a page: its controls and buttons by rising tab index (the first
// enabled one takes the focus), and the navigation buttons. The finish page's default
// button and texts follow the project location (SetUpFinishPage).
struct PageSetup {
  std::vector<const char*> tabOrder;
  bool backEnabled = true;
  bool nextEnabled = true;
  Button defaultButton = Button::Next;
};

const std::array<PageSetup, kPageCount>& PageSetups() {
  static const std::array<PageSetup, kPageCount> pages = {{
      {.tabOrder = {btnNext, btnFinish, btnHelp, btnCancel}, .backEnabled = false},
      {.tabOrder = {edFile, btnFile, btnNext, btnFinish, btnHelp, btnCancel}},
      {.tabOrder = {edLocation, btnLocation, edAuthor, chkAsync, btnNext, btnFinish, btnHelp,
                    btnCancel}},
      {.tabOrder = {cmbType, cmbClass, cmbCoord, cmbUnit, btnNext, btnFinish, btnHelp,
                    btnCancel}},
      {.tabOrder = {edModel, btnModel, optModelCode, optModelLink, edData, btnData,
                    optDataCode, optDataLink, edSketch, btnSketch, btnCreateSketch, btnNext,
                    btnFinish, btnHelp, btnCancel}},
      // Enter belongs to the list's in-place editors here.
      {.tabOrder = {lvInput, kViewsOwn, kViewsOwn, btnNext, btnFinish, btnHelp, btnCancel},
       .defaultButton = Button::None},
      {.tabOrder = {btnOutputStandard, lvStandard, btnOutputCustom, btnOutputEdit,
                    btnOutputRemove, btnNext, btnFinish, btnHelp, btnCancel, lvOutput}},
      {.tabOrder = {btnFinish, btnPreview, btnHelp, btnCancel}, .nextEnabled = false},
  }};
  return pages;
}

Field FieldOf(Browse button) {
  switch (button) {
    case Browse::File: return Field::File;
    case Browse::Location: return Field::Location;
    case Browse::Model: return Field::Model;
    case Browse::Data: return Field::Data;
    case Browse::Sketch: return Field::Sketch;
  }
  return Field::File;  // not reached
}

constexpr Field kPathFields[] = {Field::Location, Field::Model, Field::Data, Field::Sketch};

// Why a path is not taken, "" when it is: a path written with "?" leads nowhere, and a
// control character cuts it short where the files are opened.
std::string PathRefusal(std::string_view path) {
  std::string refusal = session::CodePagePathRefusal(path);
  return refusal.empty() ? session::ControlCharacterPathRefusal(path) : refusal;
}

// The hourglass for as long as the start-up runs, whichever way it ends.
class BusyPointer {
 public:
  explicit BusyPointer(WizardView* view) : view_(view) {
    if (view_) view_->SetBusy(true);
  }
  ~BusyPointer() {
    if (view_) view_->SetBusy(false);
  }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  WizardView* view_;
};

}  // namespace

WizardForm::WizardForm(FormServices services)
    : services_(std::move(services)),
      checks_(services_.fs, services_.registry, services_.prompter),
      saver_(services_.fs, services_.prompter),
      inputs_(state_.lvInput, services_.prompter),
      outputs_(state_, services_.prompter) {
  Load();
}

WizardForm::~WizardForm() { ReleaseZX(); }

void WizardForm::AttachView(std::unique_ptr<WizardView> view) { view_ = std::move(view); }

void WizardForm::Load() {
  // FormState starts with the options of page 4 disabled and "from file" selected, and
  // with the choice lists filled from the string table.
  state_.SetFieldHandlers(&checks_);
  state_.lvInput.Clear();
  outputs_.FillStandardOutputs();
  SetCaptions();
  finishText1_ = std::string(FindString(kFinishReady1).value_or(""));
  finishText2_ = std::string(FindString(kFinishReady2).value_or(""));
  finishIcon_ = "Information";
}

void WizardForm::SetCaptions() {
  for (const Caption& caption : kCaptions) {
    if (const auto text = FindString(caption.text)) captions_[caption.control] = *text;
  }
}

bool WizardForm::InitWizard() {
  try {
    appTitle_ = LoadResString(kAppTitle);
    longTitle_ = LoadResString(kLongTitle);
    requiredVersion_ = LoadResString(kRequiredVersion);
    const BusyPointer hourglass(view_.get());

    const SessionsFolderChoice folder = PrepareSessionsFolder(
        services_.fs, checks_, services_.programFolder, services_.userDataFolder);
    sessionsFolder_ = folder.path;
    if (folder.fellBack && folder.created) {
      Tell(LoadResString(kSessionsFolderMovedBefore) +
               platform::JoinPath(services_.programFolder, kSessionsFolderName) +
               LoadResString(kSessionsFolderMovedMiddle) + folder.path +
               LoadResString(kSessionsFolderMovedAfter),
           MsgIcon::Information, appTitle_);
    }
    state_.edFile = DefaultSessionFile(services_.fs, sessionsFolder_);

    CurrentStep = 0;
    for (session::ComboBox* combo :
         {&state_.cmbType, &state_.cmbClass, &state_.cmbCoord, &state_.cmbUnit}) {
      if (!combo->items.empty()) combo->SetListIndex(0);
    }
    // A second start-up of the same form keeps its placeholder row: two would make the
    // first one look like a parameter.
    const int rows = state_.lvInput.Count();
    if (rows == 0 || state_.lvInput.Item(rows - 1).text != session::kNewInputText) {
      state_.lvInput.Add(LoadResString(kNewInputRow));
    }
    RefreshStep();

    if (view_) view_->ShowLaunchNotice(LoadResString(kLaunchCaption), LoadResString(kLaunchText));
    try {
      zx_ = services_.createAnalysis();
    } catch (const std::exception&) {
      zx_.reset();
    }
    if (!zx_) {
      if (view_) view_->HideLaunchNotice();
      Tell(LoadResString(kLaunchFailed), MsgIcon::Critical, appTitle_);
      return false;
    }
    // Plain character-code order, not a parse of version numbers: "Zentrix 5.10" passes.
    // Only the upper bound is checked: the table's lower bound (kLowestVersion) is empty,
    // and no product name orders below the empty text.
    if (vbrt::CompareBinary(zx_->ProductName(), requiredVersion_) > 0) {
      ReleaseZX();
      if (view_) view_->HideLaunchNotice();
      Tell(LoadResString(kWrongVersion), MsgIcon::Exclamation, longTitle_);
      return false;
    }
    if (view_) view_->HideLaunchNotice();
    return true;
  } catch (const std::exception& e) {
    ReleaseZX();
    if (view_) view_->HideLaunchNotice();
    Tell(e.what(), MsgIcon::Exclamation, appTitle_);
    return false;
  }
}

void WizardForm::RefreshStep() {
  state_.btnFinishEnabled = !state_.theLocation.empty();
  static const PageSetup kNoPage;
  const bool onPage = CurrentStep >= 0 && CurrentStep < kPageCount;
  const PageSetup& page = onPage ? PageSetups()[CurrentStep] : kNoPage;
  backEnabled_ = page.backEnabled;
  nextEnabled_ = page.nextEnabled;
  defaultButton_ = page.defaultButton;
  if (onPage) {
    tabOrder_.clear();
    for (std::size_t index = 0; index < page.tabOrder.size(); ++index) {
      const char* control = page.tabOrder[index];
      if (control != kViewsOwn) tabOrder_.push_back({control, static_cast<int>(index)});
    }
  }
  if (CurrentStep == kFinishPage) SetUpFinishPage();
  // The standard outputs follow the problem type chosen since the page was last on view.
  if (CurrentStep == kOutputsPage) {
    outputs_.FillStandardOutputs();
    outputs_.SyncOutputs();
  }
  if (CurrentStep > 0) SettingsChanged = true;
}

void WizardForm::SetUpFinishPage() {
  const bool ready = state_.btnFinishEnabled;
  if (ready) defaultButton_ = Button::Finish;
  finishText1_ = LoadResString(ready ? kFinishReady1 : kFinishMissing1);
  finishText2_ = LoadResString(ready ? kFinishReady2 : kFinishMissing2);
  finishIcon_ = ready ? "Information" : "Exclamation";
  // A check mark beside "You must specify project name and location." would say the
  // opposite of the text.
  finishPicture_ = ready ? FinishPicture::Done : FinishPicture::NotYet;
}

FileDialogSetup WizardForm::BrowseSetup(Browse button) const {
  FileDialogSetup setup;
  if (button == Browse::Location) {
    setup.fileName = state_.theName;
    setup.initialFolder = state_.theLocation;
    setup.filter = LoadResString(kProjectFilter);
    setup.pathMustExist = true;
    return setup;
  }
  const std::string& text = state_.Text(FieldOf(button));
  const std::string parent = platform::ParentFolder(text);
  const std::string& fallback =
      button == Browse::File ? sessionsFolder_ : state_.theLocation;
  setup.initialFolder = !parent.empty() && services_.fs.FolderExists(parent) ? parent : fallback;
  setup.fileName = text;
  switch (button) {
    case Browse::File:
      setup.filter = LoadResString(kSessionFilter);
      break;
    case Browse::Model:
      setup.filter = LoadResString(kModelFilter);
      break;
    case Browse::Data:
      // The filter table orders Current Flow before Stress Analysis, the type list the
      // other way round; the crossing is kept.
      setup.filter = FindString(kDataFilterBase + state_.cmbType.listIndex).value_or("");
      break;
    default:
      setup.filter = LoadResString(kSketchFilter);
      break;
  }
  setup.fileMustExist = button != Browse::File;
  return setup;
}

void WizardForm::Next() {
  if (nextEnabled_) ChangePage(+1);
}

void WizardForm::Back() {
  if (backEnabled_) ChangePage(-1);
}

void WizardForm::ChangePage(int delta) {
  inputs_.EditorLeft();
  CurrentStep = static_cast<int16_t>(CurrentStep + delta);
  RefreshStep();
  picture_.Forget();  // the model's file may have changed since the page was on view
  Repaint();
  FocusFirstControl();
}

void WizardForm::FocusFirstControl() {
  if (!view_) return;
  for (const TabStop& stop : tabOrder_) {
    // A page may begin with a navigation button that is disabled (Finish on page 7).
    const bool enabled = stop.control == btnBack      ? backEnabled_
                         : stop.control == btnNext    ? nextEnabled_
                         : stop.control == btnFinish  ? state_.btnFinishEnabled
                         : stop.control == btnPreview ? PreviewEnabled()
                                                      : true;
    if (enabled) {
      for (const auto& [field, name] : kFieldControls) {
        if (stop.control == name) untouched_.insert(field);
      }
      view_->FocusControl(stop.control);
      return;
    }
  }
}

std::string_view WizardForm::HelpTopic() const {
  if (outputs_.Dialog().shown) return kCustomOutputHelpTopic;
  if (inputs_.Dialog().shown) return kInputDialogHelpTopic;
  if (previewShown_) return kPreviewHelpTopic;
  if (CurrentStep < 0 || CurrentStep >= kPageCount) return {};
  return kPageHelpTopics[CurrentStep];
}

void WizardForm::Help() {
  const std::string_view topic = HelpTopic();
  if (!topic.empty()) services_.help.ShowTopic(services_.programFolder + std::string(topic));
}

bool WizardForm::Cancel() {
  const MsgAnswer answer = services_.prompter.Show(
      {LoadResString(kExitQuestion), MsgButtons::YesNo, MsgIcon::Question, appTitle_});
  if (answer != MsgAnswer::Yes) return false;
  if (SaveSession(SaveReason::Cancel) == SaveOutcome::Back) return false;
  ReleaseZX();
  Wizard* const addIn = AddIn;
  if (!addIn) return false;
  addIn->CloseMe();  // this form is gone from here on
  return true;
}

bool WizardForm::Finish() {
  if (!state_.btnFinishEnabled) return false;
  if (SaveSession(SaveReason::Finish) == SaveOutcome::Back) return false;
  HideForm();
  bool generated = false;
  try {
    generated = services_.generate(*this);
  } catch (const vbrt::VbError& e) {
    Tell(e.Description(), MsgIcon::Critical, appTitle_);
  } catch (const std::exception& e) {
    Tell(e.what(), MsgIcon::Critical, appTitle_);
  }
  Wizard* const addIn = AddIn;
  if (generated && addIn) {
    ReleaseZX();
    addIn->CloseMe();  // this form is gone from here on
    return true;
  }
  // The generator has told the user why; everything typed is still here.
  ShowForm();
  Repaint();
  return false;
}

bool WizardForm::PreviewVisible() const {
  return services_.preview && CurrentStep == kFinishPage;
}

void WizardForm::Preview() {
  if (!PreviewEnabled()) return;
  previewShown_ = true;
  services_.preview(*this);
  previewShown_ = false;
}

bool WizardForm::TextEdited(Field field, std::string text) {
  untouched_.erase(field);
  if (field != Field::File && field != Field::Author) {
    // A path written with "?" leads nowhere; the session's own path is no such text, as
    // it is never written in the code page.
    editedFrom_.try_emplace(field, state_.Text(field));
    std::string refusal = PathRefusal(text);
    if (!refusal.empty()) {
      refusedPaths_[field] = {std::move(text), std::move(refusal)};
      // Keystrokes taken before the refusal made no path the user meant either.
      state_.Text(field) = editedFrom_[field];
      return false;
    }
  }
  refusedPaths_.erase(field);
  state_.Text(field) = std::move(text);
  return true;
}

const std::string& WizardForm::FieldText(Field field) const {
  const auto refused = refusedPaths_.find(field);
  return refused != refusedPaths_.end() ? refused->second.text : state_.Text(field);
}

std::string WizardForm::FieldNotice(Field field) const {
  if (field == Field::Author) return session::CodePageWarning(state_.edAuthor);
  const auto refused = refusedPaths_.find(field);
  if (refused != refusedPaths_.end()) return refused->second.notice;
  return field == Field::Location ? checks_.MissingFolderNotice() : std::string();
}

void WizardForm::FieldEntered(Field field) { untouched_.erase(field); }

void WizardForm::FieldLeft(Field field) {
  editedFrom_.erase(field);
  // Passing by a page is no visit of its first field: nothing is asked or told then.
  if (untouched_.erase(field) > 0) return;
  if (refusedPaths_.contains(field)) return;  // nothing was taken, so nothing is checked
  switch (field) {
    case Field::File: {
      refusedPaths_.clear();  // a loaded session sets the paths anew
      std::map<Field, std::string> before;
      for (const Field pathField : kPathFields) before[pathField] = state_.Text(pathField);
      switch (checks_.SessionFileLeft(state_, Io(), SettingsChanged)) {
        case SessionFileOutcome::Refocus:
          if (view_) view_->FocusControl(edFile);
          break;
        case SessionFileOutcome::Unread:
          saver_.LoadFailed(state_.edFile);
          RefuseLoadedPaths(before);
          break;
        case SessionFileOutcome::Loaded:
          RefuseLoadedPaths(before);
          break;
        case SessionFileOutcome::None:
          break;
      }
      break;
    }
    case Field::Location:
      checks_.LocationLeft(state_);
      break;
    case Field::Model:
      checks_.ModelLeft(state_);
      picture_.Forget();  // leaving the field reads its model again
      break;
    case Field::Data:
      checks_.DataLeft(state_);
      break;
    case Field::Sketch:
      checks_.SketchLeft(state_);
      break;
    case Field::Author:
      return;
  }
  Repaint();
}

void WizardForm::Browsed(Browse button, std::string path) {
  const Field field = FieldOf(button);
  if (TextEdited(field, std::move(path))) {
    FieldLeft(field);
  } else {
    editedFrom_.erase(field);
    Repaint();
  }
}

void WizardForm::ChoiceChanged(Choice choice, int16_t listIndex) {
  switch (choice) {
    case Choice::Type: state_.cmbType.SetListIndex(listIndex); break;
    case Choice::Class: state_.cmbClass.SetListIndex(listIndex); break;
    case Choice::Coord: state_.cmbCoord.SetListIndex(listIndex); break;
    case Choice::Unit: state_.cmbUnit.SetListIndex(listIndex); break;
  }
}

void WizardForm::AsyncChanged(bool checked) { state_.chkAsync.SetValue(checked ? 1 : 0); }

void WizardForm::OptionChosen(Option option) {
  switch (option) {
    case Option::ModelCode:
      if (state_.optModelCode.enabled) state_.SelectModelCase(true);
      break;
    case Option::ModelLink:
      if (state_.optModelLink.enabled) state_.SelectModelCase(false);
      break;
    case Option::DataCode:
      if (state_.optDataCode.enabled) state_.SelectDataCase(true);
      break;
    case Option::DataLink:
      if (state_.optDataLink.enabled) state_.SelectDataCase(false);
      break;
  }
  Repaint();
}

void WizardForm::ShowForm() {
  if (!view_) return;
  view_->ShowForm();
  FocusFirstControl();
}

void WizardForm::HideForm() {
  if (view_) view_->HideForm();
}

SaveOutcome WizardForm::SaveSession(SaveReason reason) {
  return saver_.Save(state_, Io(), reason, [this]() -> std::optional<std::string> {
    if (!view_) return std::nullopt;
    FileDialogSetup setup = BrowseSetup(Browse::File);
    setup.initialFolder = sessionsFolder_;
    setup.fileName = DefaultSessionFile(services_.fs, sessionsFolder_);
    setup.askBeforeReplacing = true;
    return view_->AskSaveFile(setup);
  });
}

void WizardForm::RefuseLoadedPaths(const std::map<Field, std::string>& before) {
  for (const Field field : kPathFields) {
    std::string refusal = PathRefusal(state_.Text(field));
    if (refusal.empty()) continue;
    refusedPaths_[field] = {state_.Text(field), std::move(refusal)};
    state_.SetText(field, before.at(field));
  }
}

void WizardForm::Tell(const std::string& text, MsgIcon icon, const std::string& title) {
  services_.prompter.Show({text, MsgButtons::OK, icon, title});
}

void WizardForm::ReleaseZX() { zx_.reset(); }

void WizardForm::Repaint() {
  if (CurrentStep == kBasicFilesPage) picture_.Update(state_, zx_.get(), services_.fs);
  if (view_) view_->Repaint();
}

}  // namespace wizard
