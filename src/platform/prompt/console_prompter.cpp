#include "platform/prompt/console_prompter.h"

#include <cctype>
#include <istream>
#include <ostream>
#include <string>

namespace platform {
namespace {

// The title of a box that names none.
constexpr const char* kDefaultTitle = "eowizard";

const char* IconWord(MsgIcon icon) {
  switch (icon) {
    case MsgIcon::Critical: return "Error";
    case MsgIcon::Question: return "Question";
    case MsgIcon::Exclamation: return "Warning";
    case MsgIcon::Information: return "Information";
    case MsgIcon::None: break;
  }
  return nullptr;
}

// What a box answers when it cannot be answered as asked.
MsgAnswer Unanswered(MsgButtons buttons) {
  return buttons == MsgButtons::YesNo ? MsgAnswer::No : MsgAnswer::Cancel;
}

const char* AnswerWord(MsgAnswer answer) {
  switch (answer) {
    case MsgAnswer::Yes: return "yes";
    case MsgAnswer::No: return "no";
    case MsgAnswer::Cancel: return "cancel";
    case MsgAnswer::OK: break;
  }
  return "ok";
}

}  // namespace

ConsolePrompter::ConsolePrompter(std::istream& in, std::ostream& out, bool interactive,
                                 std::optional<MsgAnswer> policy)
    : in_(in), out_(out), interactive_(interactive), policy_(policy) {}

MsgAnswer ConsolePrompter::Show(const Message& message) {
  out_ << '[' << (message.title.empty() ? kDefaultTitle : message.title.c_str()) << "] ";
  // Many of the system's texts already open with "Error: "; the word is not said twice.
  if (const char* word = IconWord(message.success ? MsgIcon::Information : message.icon);
      word && !message.text.starts_with(std::string(word) + ":")) {
    out_ << word << ": ";
  }
  out_ << message.text << '\n';
  if (message.buttons == MsgButtons::OK) {
    out_.flush();
    return MsgAnswer::OK;
  }
  const MsgAnswer answer = interactive_ ? Ask(message.buttons) : Decide(message.buttons);
  out_.flush();
  return answer;
}

MsgAnswer ConsolePrompter::Ask(MsgButtons buttons) {
  const bool cancel = buttons == MsgButtons::YesNoCancel;
  for (;;) {
    out_ << (cancel ? "[y]es, [n]o or [c]ancel? " : "[y]es or [n]o? ");
    out_.flush();
    std::string line;
    if (!std::getline(in_, line)) {
      out_ << '\n';
      return Unanswered(buttons);
    }
    std::string word;
    for (char c : line) {
      if (!std::isspace(static_cast<unsigned char>(c))) {
        word += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
      }
    }
    if (word == "y" || word == "yes") return MsgAnswer::Yes;
    if (word == "n" || word == "no") return MsgAnswer::No;
    if (cancel && (word == "c" || word == "cancel")) return MsgAnswer::Cancel;
  }
}

MsgAnswer ConsolePrompter::Decide(MsgButtons buttons) {
  if (!policy_) {
    out_ << "This question needs an answer: run on a terminal or give --answer yes|no|cancel.\n";
    return Unanswered(buttons);
  }
  // A Yes/No box has no Cancel: the policy's Cancel declines.
  MsgAnswer answer = *policy_ == MsgAnswer::OK ? MsgAnswer::Yes : *policy_;
  if (answer == MsgAnswer::Cancel) answer = Unanswered(buttons);
  out_ << "Answered " << AnswerWord(answer) << " (--answer " << AnswerWord(*policy_) << ").\n";
  return answer;
}

}  // namespace platform
