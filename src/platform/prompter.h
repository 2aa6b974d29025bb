#pragma once
// Message boxes: how the program tells and asks the user.
#include <optional>
#include <string>
#include <string_view>

namespace platform {

enum class MsgIcon { None, Critical, Question, Exclamation, Information };
// MergeYesNoCancel asks about a file the user changed since it was generated: Merge
// keeps those changes, Yes, No and Cancel mean what they mean in YesNoCancel.
enum class MsgButtons { OK, YesNo, YesNoCancel, MergeYesNoCancel };
enum class MsgAnswer { OK, Yes, No, Cancel, Merge };

struct Message {
  std::string text;
  MsgButtons buttons = MsgButtons::OK;
  MsgIcon icon = MsgIcon::None;
  std::string title;  // empty: the program's default title
  // The message reports a job done. A message box shows it with `icon` all the same; a
  // terminal, which says the icon as a word, calls it information.
  bool success = false;
  // For a question about overwriting a file: the answer that loses nothing of the user's
  // (Yes for a file exactly as generated, No for one nothing is known about). Unset for
  // other questions.
  std::optional<MsgAnswer> keepsUserWork = std::nullopt;
};

class Prompter {
 public:
  virtual ~Prompter() = default;
  // Shows the message and returns the button pressed (OK for an OK-only box). An
  // implementation that cannot ask answers Cancel for Yes/No/Cancel and No for Yes/No,
  // after telling the user why.
  virtual MsgAnswer Show(const Message& message) = 0;
};

}  // namespace platform
