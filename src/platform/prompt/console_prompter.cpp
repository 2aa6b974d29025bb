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
    case MsgAnswer::Merge: return "merge";
    case MsgAnswer::OK: break;
  }
  return "ok";
}

}  // namespace

MsgAnswer PolicyAnswer(const Message& question, MsgAnswer policy) {
  MsgAnswer answer = policy == MsgAnswer::OK ? MsgAnswer::Yes : policy;
  // Merge where it is offered; elsewhere the answer that keeps the user's work, and Yes
  // to a question that puts none of it at risk.
  if (answer == MsgAnswer::Merge && question.buttons != MsgButtons::MergeYesNoCancel) {
    answer = question.keepsUserWork.value_or(MsgAnswer::Yes);
  }
  // A Yes/No box has no Cancel: the policy's Cancel declines.
  if (answer == MsgAnswer::Cancel) answer = Unanswered(question.buttons);
  return answer;
}

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
  const MsgAnswer answer = interactive_ ? Ask(message.buttons) : Decide(message);
  out_.flush();
  return answer;
}

MsgAnswer ConsolePrompter::Ask(MsgButtons buttons) {
  const bool merge = buttons == MsgButtons::MergeYesNoCancel;
  const bool cancel = merge || buttons == MsgButtons::YesNoCancel;
  for (;;) {
    out_ << (merge    ? "[m]erge, [y]es, [n]o or [c]ancel? "
             : cancel ? "[y]es, [n]o or [c]ancel? "
                      : "[y]es or [n]o? ");
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
    if (merge && (word == "m" || word == "merge")) return MsgAnswer::Merge;
  }
}

MsgAnswer ConsolePrompter::Decide(const Message& message) {
  const MsgButtons buttons = message.buttons;
  if (!policy_) {
    out_ << "This question needs an answer: run on a terminal or give --answer yes|no|cancel"
         << (buttons == MsgButtons::MergeYesNoCancel ? "|merge" : "") << ".\n";
    return Unanswered(buttons);
  }
  const MsgAnswer answer = PolicyAnswer(message, *policy_);
  out_ << "Answered " << AnswerWord(answer) << " (--answer " << AnswerWord(*policy_) << ").\n";
  return answer;
}

}  // namespace platform
