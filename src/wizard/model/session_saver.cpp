#include "wizard/model/session_saver.h"

#include <utility>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/model/session_folder.h"

namespace wizard {
namespace {

using platform::MsgAnswer;
using platform::MsgButtons;
using platform::MsgIcon;
using namespace resources;  // LoadResString and the string numbers

}  // namespace

SessionSaver::SessionSaver(const platform::FileSystem& fs, platform::Prompter& prompter)
    : fs_(fs), prompter_(prompter) {}

std::string SessionSaver::Key(std::string_view path) const {
  return fs_.ToNative(fs_.AbsolutePath(path)).lexically_normal().string();
}

void SessionSaver::LoadFailed(std::string_view path) { unread_.insert(Key(path)); }

MsgAnswer SessionSaver::Ask(std::string text, MsgButtons buttons, MsgIcon icon) {
  return prompter_.Show({std::move(text), buttons, icon, LoadResString(kAppTitle)});
}

SaveOutcome SessionSaver::Save(session::FormState& form, session::SessionIo io,
                               SaveReason reason, const SessionFileChooser& choose) {
  std::string path = form.edFile;
  for (;;) {
    if (!path.empty() && unread_.contains(Key(path))) {
      const std::string beside = NumberedSessionFile(fs_, fs_.AbsolutePath(path));
      const MsgAnswer answer =
          Ask(Compose(kUnreadSessionBefore, path, kUnreadSessionAfter) + "\n" +
                  Compose(kUnreadSessionChoices, beside, kUnreadSessionChoicesEnd),
              MsgButtons::YesNoCancel, MsgIcon::Exclamation);
      if (answer == MsgAnswer::No) {
        path = beside;
      } else if (answer != MsgAnswer::Yes) {
        return SaveOutcome::Back;
      }
    }
    std::string message;
    if (session::SaveSession(form, io, path, message)) {
      if (!path.empty()) unread_.erase(Key(path));
      form.edFile = std::move(path);
      return SaveOutcome::Saved;
    }
    const std::string wayOn =
        message + "\n" + Compose(kSessionNotSavedBefore, path, kSessionNotSavedAfter) + "\n" +
        LoadResString(reason == SaveReason::Cancel ? kNotSavedChoicesOnCancel
                                                   : kNotSavedChoicesOnFinish);
    for (;;) {
      const MsgAnswer answer = Ask(wayOn, MsgButtons::YesNoCancel, MsgIcon::Exclamation);
      if (answer == MsgAnswer::Yes) {
        if (std::optional<std::string> chosen = choose()) {
          path = std::move(*chosen);
          break;
        }
      } else if (answer == MsgAnswer::No) {
        if (Ask(LoadResString(reason == SaveReason::Cancel ? kCloseUnsavedQuestion
                                                           : kGenerateUnsavedQuestion),
                MsgButtons::YesNo, MsgIcon::Question) == MsgAnswer::Yes) {
          return SaveOutcome::NotSaved;
        }
      } else {
        return SaveOutcome::Back;
      }
    }
  }
}

}  // namespace wizard
