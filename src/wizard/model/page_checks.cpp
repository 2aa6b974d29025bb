#include "wizard/model/page_checks.h"

#include <variant>

#include "platform/path_parts.h"
#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "vbrt/error.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using namespace resources;  // LoadResString and the string numbers

// The controls of one basic file on the basic-files page.
struct BasicFileControls {
  std::string session::FormState::*text;
  std::string session::FormState::*value;
  session::OptionButton session::FormState::*code;
  session::OptionButton session::FormState::*link;
  void (session::FormState::*selectCase)(bool);
  int missingBefore;
  int missingAfter;
};

constexpr BasicFileControls kModelControls{
    &session::FormState::edModel,        &session::FormState::theModel,
    &session::FormState::optModelCode,   &session::FormState::optModelLink,
    &session::FormState::SelectModelCase, kModelMissingBefore,
    kModelMissingAfter};
constexpr BasicFileControls kDataControls{
    &session::FormState::edData,        &session::FormState::theData,
    &session::FormState::optDataCode,   &session::FormState::optDataLink,
    &session::FormState::SelectDataCase, kDataMissingBefore,
    kDataMissingAfter};

// "Folder '…' does not exist."; the model message's ending reads as this one needs.
std::string FolderMissingText(const std::string& folder) {
  return LoadResString(kFolderMissingBefore) + folder + LoadResString(kModelMissingAfter);
}

}  // namespace

PageChecks::PageChecks(platform::FileSystem& fs, const platform::Registry& registry,
                       platform::Prompter& prompter, PageCheckOptions options)
    : fs_(fs), registry_(registry), prompter_(prompter), options_(options) {}

std::string PageChecks::ProgIdOf(std::string_view projectName) {
  return std::string(session::kGeneratedProjectName) + "." + std::string(projectName);
}

SessionFileOutcome PageChecks::SessionFileLeft(session::FormState& form, session::SessionIo io,
                                               bool& settingsChanged) {
  if (form.edFile.empty()) return SessionFileOutcome::None;
  const std::string path = fs_.AbsolutePath(form.edFile);
  if (!fs_.Exists(path)) return SessionFileOutcome::None;  // saving will create it
  // A folder, device, FIFO or socket is no session: the reader refuses it at once, so
  // there is nothing to ask, and the settings stay as changed as they were.
  const bool file = fs_.FileExists(path);
  if (settingsChanged && file) {
    const MsgAnswer answer = prompter_.Show({LoadResString(kLoadSessionQuestion),
                                             MsgButtons::YesNoCancel, MsgIcon::Question,
                                             LoadResString(kAppTitle)});
    if (answer == MsgAnswer::Cancel) return SessionFileOutcome::Refocus;
    // The file is overwritten on the next save.
    if (answer == MsgAnswer::No) return SessionFileOutcome::None;
  }
  std::string message;
  sessionCodeModel_.clear();
  sessionCodeData_.clear();
  const bool loaded = session::LoadSession(form, io, path, message);
  if (!file) {
    Tell(message, MsgIcon::Exclamation);
    return SessionFileOutcome::None;
  }
  settingsChanged = false;
  if (loaded) {
    KeepSessionChoices(form);
    return SessionFileOutcome::Loaded;
  }
  // The reader gives no text for a file that ends too early: an empty box helps nobody.
  Tell(message.empty() ? session::IncompleteSessionMessage(path)
                       : session::UnreadSessionMessage(path, message),
       MsgIcon::Exclamation);
  return SessionFileOutcome::Unread;
}

void PageChecks::KeepSessionChoices(session::FormState& form) {
  // The wizard never offers conversion on its own; what the session chose for an existing
  // file stays a choice the user can come back to.
  for (const bool model : {true, false}) {
    const BasicFileControls& controls = model ? kModelControls : kDataControls;
    session::OptionButton& code = form.*controls.code;
    std::string& chosen = model ? sessionCodeModel_ : sessionCodeData_;
    chosen = code.value && !(form.*controls.value).empty() ? form.*controls.text : "";
    if (!chosen.empty()) code.enabled = true;
  }
}

void PageChecks::LocationLeft(session::FormState& form) {
  missingFolder_.clear();
  if (form.edLocation.empty()) {
    form.theName.clear();
    form.theLocation.clear();
    form.btnFinishEnabled = false;
    return;
  }
  form.theName = platform::BaseName(form.edLocation);
  const std::string folder = fs_.AbsolutePath(platform::ParentFolder(form.edLocation));
  if (options_.tellMissingFolder && !fs_.FolderExists(folder)) {
    Tell(FolderMissingText(folder), MsgIcon::Information);
    return;
  }
  if (!fs_.FolderExists(folder) && !CreateMissingFolder(folder)) {
    missingFolder_ = folder;
    form.theLocation.clear();
    form.btnFinishEnabled = false;
    return;
  }
  form.theLocation = folder;
  const std::string progId = ProgIdOf(form.theName);
  const platform::RegistryValue clsid =
      registry_.QueryRegValue(platform::RegistryRoot::ClassesRoot, progId + "\\CLSID", "");
  if (!std::holds_alternative<std::monostate>(clsid)) {
    Tell(LoadResString(kObjectRegisteredBefore) + progId + LoadResString(kObjectRegisteredMiddle) + progId +
             LoadResString(kObjectRegisteredAfter),
         MsgIcon::Information);
  }
  form.btnFinishEnabled = true;
}

std::string PageChecks::MissingFolderNotice() const {
  return missingFolder_.empty() ? std::string() : FolderMissingText(missingFolder_);
}

bool PageChecks::CreateMissingFolder(const std::string& folder) {
  const MsgAnswer answer =
      prompter_.Show({LoadResString(kFolderMissingBefore) + folder + LoadResString(kFolderMissingAfter),
                      MsgButtons::YesNo, MsgIcon::Exclamation, LoadResString(kAppTitle)});
  if (answer != MsgAnswer::Yes) return false;
  if (CreateFolderPath(folder)) return true;
  Tell(LoadResString(kFolderNotCreatedBefore) + folder + LoadResString(kFolderNotCreatedAfter),
       MsgIcon::Exclamation);
  return false;
}

void PageChecks::ModelLeft(session::FormState& form) { BasicFileLeft(form, true); }

void PageChecks::DataLeft(session::FormState& form) { BasicFileLeft(form, false); }

void PageChecks::BasicFileLeft(session::FormState& form, bool model) {
  const BasicFileControls& controls = model ? kModelControls : kDataControls;
  const std::string& text = form.*controls.text;
  std::string& value = form.*controls.value;
  session::OptionButton& code = form.*controls.code;
  session::OptionButton& link = form.*controls.link;
  if (text.empty()) {
    value.clear();
    code.enabled = false;
    link.enabled = false;
  } else if (fs_.FileExists(text)) {
    link.enabled = true;
    code.enabled = text == (model ? sessionCodeModel_ : sessionCodeData_);
    value = text;
  } else {
    Tell(LoadResString(controls.missingBefore) + text + LoadResString(controls.missingAfter),
         MsgIcon::Information);
    (form.*controls.selectCase)(false);
    code.enabled = false;
    link.enabled = false;
    value.clear();
  }
}

void PageChecks::SketchLeft(session::FormState& form) {
  form.theSketch = form.edSketch;
  if (!form.edSketch.empty() && !fs_.FileExists(form.edSketch)) {
    Tell(LoadResString(kSketchMissingBefore) + form.edSketch + LoadResString(kSketchMissingAfter),
         MsgIcon::Information);
    form.theSketch.clear();
  }
}

bool PageChecks::CreateFolderPath(std::string_view folder) {
  if (fs_.FolderExists(folder)) return true;
  const std::string parent = platform::ParentFolder(folder);
  if (!parent.empty() && !CreateFolderPath(parent)) return false;
  try {
    fs_.CreateFolder(folder);
  } catch (const vbrt::VbError&) {
    return false;
  }
  return true;
}

void PageChecks::TextSet(session::FormState& form, session::TextField field) {
  switch (field) {
    case session::TextField::Location: return LocationLeft(form);
    case session::TextField::Model: return ModelLeft(form);
    case session::TextField::Data: return DataLeft(form);
    case session::TextField::Sketch: return SketchLeft(form);
    case session::TextField::File:
    case session::TextField::Author: return;  // no check runs when these are set
  }
}

void PageChecks::Tell(const std::string& text, MsgIcon icon) {
  prompter_.Show({text, MsgButtons::OK, icon, LoadResString(kAppTitle)});
}

}  // namespace wizard
