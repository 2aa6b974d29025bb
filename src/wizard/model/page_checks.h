#pragma once
// The lost-focus checks of the session-file, project and basic-files pages: they bring
// the form's public fields and option buttons up to date with a text the user typed,
// chose in a file dialog, or a session file set.
#include <string>
#include <string_view>

#include "platform/file_system.h"
#include "platform/prompter.h"
#include "platform/registry.h"
#include "session/form_state.h"
#include "session/session_file.h"

namespace wizard {

struct PageCheckOptions {
  // When the project folder does not exist the window asks whether to create it; the
  // command line sets this to tell the user that the folder is missing instead.
  bool tellMissingFolder = false;
};

// What leaving the session-file field came to.
enum class SessionFileOutcome {
  None,     // nothing was read: no file there, the settings kept, or no session file at all
  Refocus,  // the user cancelled: the focus goes back to edFile
  Loaded,
  Unread,   // the file could not be read completely: what was read of it is in the form
};

class PageChecks : public session::FieldHandlers {
 public:
  // Not owned; they must outlive the checks.
  PageChecks(platform::FileSystem& fs, const platform::Registry& registry,
             platform::Prompter& prompter, PageCheckOptions options = {});

  // edFile lost the focus. An existing session file is loaded; when `settingsChanged`
  // the user is asked first (Yes loads, No keeps the settings, Cancel keeps them too).
  // A failed load is told naming the file: "'…' could not be read completely: " and the
  // reader's words, or "'…' is not a complete session file: …" where the reader gives
  // none. After a load attempt `settingsChanged` is false. A folder, device, FIFO or
  // socket gets the reader's failure at once, without the question. An "into code"
  // option that a loaded session chose stays enabled while the field names the same
  // existing file, so that the choice can be taken back.
  SessionFileOutcome SessionFileLeft(session::FormState& form, session::SessionIo io,
                                     bool& settingsChanged);

  // edLocation lost the focus: sets theName and theLocation from the project path and
  // enables Finish; warns when the project's object is registered already. When the
  // folder does not exist the user is asked whether to create it (with its parents);
  // unless it is created, theLocation is emptied, Finish disabled and MissingFolderNotice()
  // says so. With tellMissingFolder the user is told instead and only theName changes.
  void LocationLeft(session::FormState& form);
  // "Folder '…' does not exist." for the project folder that the last LocationLeft found
  // missing and did not create; "" when there is none.
  std::string MissingFolderNotice() const;
  // edModel / edData lost the focus: theModel / theData and the "from file" options.
  void ModelLeft(session::FormState& form);
  void DataLeft(session::FormState& form);
  // edSketch lost the focus: theSketch.
  void SketchLeft(session::FormState& form);

  // Creates `folder` and every missing parent. True when the folder exists afterwards.
  bool CreateFolderPath(std::string_view folder);

  // Runs the check of `field`; the session reader calls this for the fields it sets.
  void TextSet(session::FormState& form, session::TextField field) override;

  // The ProgID that a generation of project `projectName` registers.
  static std::string ProgIdOf(std::string_view projectName);

 private:
  void BasicFileLeft(session::FormState& form, bool model);
  // True when the user lets the missing `folder` be created and it was.
  bool CreateMissingFolder(const std::string& folder);
  void KeepSessionChoices(session::FormState& form);
  void Tell(const std::string& text, platform::MsgIcon icon);

  platform::FileSystem& fs_;
  const platform::Registry& registry_;
  platform::Prompter& prompter_;
  PageCheckOptions options_;
  std::string missingFolder_;
  // The model and data paths whose conversion into code the loaded session chose; "".
  std::string sessionCodeModel_;
  std::string sessionCodeData_;
};

}  // namespace wizard
