#pragma once
// Saving the session as the wizard closes (Cancel) or finishes: a session file that could
// not be read completely is not replaced without asking, and a save that fails offers a
// way on instead of leaving the user in a wizard that can neither save nor close.
#include <functional>
#include <optional>
#include <set>
#include <string>

#include "platform/file_system.h"
#include "platform/prompter.h"
#include "session/form_state.h"
#include "session/session_file.h"

namespace wizard {

// Why the session is saved.
enum class SaveReason { Cancel, Finish };

enum class SaveOutcome {
  Saved,
  NotSaved,  // the user chose to go on without saving it
  Back,      // the user chose to go back to the wizard
};

// Asks the user for another file to save the session in; nullopt when cancelled.
using SessionFileChooser = std::function<std::optional<std::string>()>;

class SessionSaver {
 public:
  // Not owned; they must outlive the saver.
  SessionSaver(const platform::FileSystem& fs, platform::Prompter& prompter);

  // The session file at `path` could not be read completely: what it held is only partly
  // in the form, so the next save over it asks first.
  void LoadFailed(std::string_view path);

  // Saves `form` to its session file (edFile). Over a file that could not be read the user
  // is asked first: Yes replaces it, No saves beside it under the next free numbered name
  // ("Broken 2.bvg"), Cancel goes back. A save that fails is told with the path, and the
  // user chooses: another file (`choose`), going on without saving (after a
  // confirmation), or back. edFile ends as the file the session was saved in.
  SaveOutcome Save(session::FormState& form, session::SessionIo io, SaveReason reason,
                   const SessionFileChooser& choose);

 private:
  // The file a path names, however it is written.
  std::string Key(std::string_view path) const;
  platform::MsgAnswer Ask(std::string text, platform::MsgButtons buttons,
                          platform::MsgIcon icon);

  const platform::FileSystem& fs_;
  platform::Prompter& prompter_;
  std::set<std::string> unread_;  // files that could not be read completely, by Key
};

}  // namespace wizard
