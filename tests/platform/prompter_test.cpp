#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "platform/prompt/console_prompter.h"

namespace platform {
namespace {

using testing::HasSubstr;

const Message kNotice{"The object 'Sondel.Coil' has registered yet", MsgButtons::OK,
                      MsgIcon::Information, "Wizard"};
const Message kLoad{"Load old session ?", MsgButtons::YesNoCancel, MsgIcon::Question, "Wizard"};
const Message kCreate{"Create ?", MsgButtons::YesNo, MsgIcon::Exclamation, ""};
const Message kMerge{"Module 'A.bas' already exists. Overwrite ?\nChanged.",
                     MsgButtons::MergeYesNoCancel, MsgIcon::Exclamation, ""};
const Message kUnknownFile{"Module 'A.bas' already exists. Overwrite ?", MsgButtons::YesNoCancel,
                           MsgIcon::Exclamation, "", false, MsgAnswer::No};

struct Console {
  explicit Console(bool interactive, std::optional<MsgAnswer> policy = {}, std::string input = "")
      : in(std::move(input)), prompter(in, out, interactive, policy) {}
  std::istringstream in;
  std::ostringstream out;
  ConsolePrompter prompter;
};

// Each icon is a word before the text; a success reads as information whatever its icon,
// and a text that already opens with the word does not get it twice.
TEST(ConsolePrompter, PrintsTitleIconWordAndTextAndNeedsNoAnswerForOk) {
  const struct {
    Message message;
    const char* line;
  } cases[] = {
      {kNotice, "[Wizard] Information: The object 'Sondel.Coil' has registered yet\n"},
      {{"x", MsgButtons::OK, MsgIcon::Critical, ""}, "[eowizard] Error: x\n"},
      {{"Error: y", MsgButtons::OK, MsgIcon::Critical, ""}, "[eowizard] Error: y\n"},
      {{"Folder missing", MsgButtons::OK, MsgIcon::Exclamation, "W"},
       "[W] Warning: Folder missing\n"},
      {{"Done?", MsgButtons::OK, MsgIcon::Question, "W"}, "[W] Question: Done?\n"},
      {{"Plain", MsgButtons::OK, MsgIcon::None, "W"}, "[W] Plain\n"},
      {{"Created.", MsgButtons::OK, MsgIcon::Exclamation, "W", true},
       "[W] Information: Created.\n"},
  };
  for (const auto& [message, line] : cases) {
    SCOPED_TRACE(line);
    Console console(false);
    EXPECT_EQ(console.prompter.Show(message), MsgAnswer::OK);
    EXPECT_EQ(console.out.str(), line);
  }
}

TEST(ConsolePrompter, PolicyAnswersQuestions) {
  EXPECT_EQ(Console(false, MsgAnswer::Yes).prompter.Show(kLoad), MsgAnswer::Yes);
  EXPECT_EQ(Console(false, MsgAnswer::Cancel).prompter.Show(kLoad), MsgAnswer::Cancel);
  EXPECT_EQ(Console(false, MsgAnswer::Cancel).prompter.Show(kCreate), MsgAnswer::No);
  EXPECT_EQ(Console(false, MsgAnswer::Yes).prompter.Show(kCreate), MsgAnswer::Yes);
  // --answer merge: Merge where offered, else what keeps the user's work, else Yes.
  EXPECT_EQ(Console(false, MsgAnswer::Merge).prompter.Show(kMerge), MsgAnswer::Merge);
  EXPECT_EQ(Console(false, MsgAnswer::Merge).prompter.Show(kUnknownFile), MsgAnswer::No);
  EXPECT_EQ(Console(false, MsgAnswer::Merge).prompter.Show(kCreate), MsgAnswer::Yes);
  EXPECT_EQ(Console(false, MsgAnswer::Yes).prompter.Show(kMerge), MsgAnswer::Yes);
}

TEST(ConsolePrompter, WithoutPolicyStopsTheQuestionAndSaysWhy) {
  Console console(false);
  EXPECT_EQ(console.prompter.Show(kLoad), MsgAnswer::Cancel);
  EXPECT_EQ(console.prompter.Show(kCreate), MsgAnswer::No);
  EXPECT_THAT(console.out.str(), HasSubstr("run on a terminal or give --answer yes|no|cancel"));
  EXPECT_THAT(console.out.str(), HasSubstr("[Wizard] Question: Load old session ?"));
}

TEST(ConsolePrompter, AsksOnATerminalUntilTheAnswerIsClear) {
  Console console(true, MsgAnswer::Yes, "maybe\n\n  C \n");
  EXPECT_EQ(console.prompter.Show(kLoad), MsgAnswer::Cancel);
  const std::string asked = console.out.str();
  int prompts = 0;
  for (auto at = asked.find("[c]ancel? "); at != std::string::npos; at = asked.find("[c]ancel? ", at + 1)) {
    ++prompts;
  }
  EXPECT_EQ(prompts, 3);  // asked again after "maybe" and after the empty line

  Console yesNo(true, {}, "c\nno\n");
  EXPECT_EQ(yesNo.prompter.Show(kCreate), MsgAnswer::No);  // "c" is no answer to Yes/No

  EXPECT_EQ(Console(true, {}, "Yes\n").prompter.Show(kLoad), MsgAnswer::Yes);
  EXPECT_EQ(Console(true, {}, "").prompter.Show(kLoad), MsgAnswer::Cancel);
  EXPECT_EQ(Console(true, {}, "maybe").prompter.Show(kCreate), MsgAnswer::No);

  Console merge(true, {}, "m\n");
  EXPECT_EQ(merge.prompter.Show(kMerge), MsgAnswer::Merge);
  EXPECT_THAT(merge.out.str(), HasSubstr("[m]erge, [y]es, [n]o or [c]ancel? "));
  EXPECT_EQ(Console(true, {}, "m\nn\n").prompter.Show(kLoad), MsgAnswer::No);  // not offered
}

}  // namespace
}  // namespace platform
