#pragma once
// Message boxes on a terminal, for the command line.
#include <iosfwd>
#include <optional>

#include "platform/prompter.h"

namespace platform {

// The answer `policy` gives to a question (a box with buttons other than OK), as --answer
// gives it: Merge where it is offered, else the question's keepsUserWork answer, else Yes;
// Cancel, where the box has none, declines (No); an OK policy answers Yes.
MsgAnswer PolicyAnswer(const Message& question, MsgAnswer policy);

class ConsolePrompter : public Prompter {
 public:
  // Messages go to `out`. Questions are asked on `in` when `interactive`; otherwise
  // `policy` answers them (a Cancel policy answers No to a Yes/No question, an OK policy
  // answers Yes; a Merge policy answers Merge where it is offered, else the question's
  // keepsUserWork answer, else Yes). With neither, a line says that the question needs an
  // answer and the result is Cancel (No for a Yes/No question).
  ConsolePrompter(std::istream& in, std::ostream& out, bool interactive,
                  std::optional<MsgAnswer> policy);

  // Prints the title, a word for the icon ("Error", "Question", "Warning", "Information";
  // "Information" for a success whatever its icon) and the text. An OK box returns OK at
  // once. On a terminal, y/n/c (and m where Merge is offered; either case) answer and
  // other input asks again; the end of input answers Cancel (No for a Yes/No question).
  MsgAnswer Show(const Message& message) override;

 private:
  MsgAnswer Ask(MsgButtons buttons);
  MsgAnswer Decide(const Message& message);
  std::istream& in_;
  std::ostream& out_;
  bool interactive_;
  std::optional<MsgAnswer> policy_;
};

}  // namespace platform
