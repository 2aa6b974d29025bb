// `eowizard session ...` and `model show` run as a user runs them: exit codes, the views'
// whole standard output against golden files under tests/golden/app, and the messages.
// What the reader and the checks decide is theirs to test (tests/session); here the wiring.
#include <string>

#include <gtest/gtest.h>

#include "../generator/golden_lines.h"
#include "program_test.h"

namespace {

class SessionCommandsTest : public ProgramTest {};

TEST_F(SessionCommandsTest, ViewsAndMessages) {
  const std::string coil = " --drive C=coil/drive_c coil/Coil.bvg";
  const std::string sessions = " ../tests/app/sessions/";
  const struct {
    std::string arguments;  // "$S" stands for the scratch folder
    int exitCode;
    std::string golden;   // the whole standard output, "" when not compared
    std::string message;  // in the standard output or error
  } rows[] = {
      {"session show" + sessions + "views.bvg", 0, "session_show_views.txt", ""},
      {"session show --json" + sessions + "views.bvg", 0, "session_show_views.json", ""},
      {"session show --json" + sessions + "bad_icon.bvg", 1, "session_show_bad_icon.json", ""},
      {"session check" + coil, 0, "session_check_coil.txt", ""},
      {"session check" + sessions + "check.bvg", 1, "session_check.txt", ""},
      {"model show converter/Converter.geo --svg /dev/stderr", 0, "model_show_converter.txt",
       "<path d=\"M820.00,439.98 A380.00,380.00 0 0 0 136.00,211.98\""},
      // The pages' notices about missing files pass on to standard error.
      {"session show coil/Coil.bvg", 0, "",
       "Model file 'C:\\Models\\Coil\\coil.mod' does not exist."},
      {"session show no-such.bvg", 1, "",
       "eowizard: Error: Cannt open generation file 'no-such.bvg' for reading\n"
       "eowizard: there is no file 'no-such.bvg'\n"},
      {"session show" + sessions + "cut.bvg", 1, "",
       "eowizard: '../tests/app/sessions/cut.bvg' is not a complete session file: it ends "
       "without \"[END]\", or a parameter key comes before the DESCRIPTION of its section\n"},
      {"session check /dev/zero", 2, "",
       "eowizard: '/dev/zero' is a device, FIFO or socket, not a session file"},
      {"session check '$S'", 2, "", "is a folder, not a session file"},
      {"session rewrite" + coil + " '$S/copy.bvg'", 0, "",
       "Wrote $S/copy.bvg (1 input and 1 output parameters)"},
      {"session rewrite" + coil + " coil/Coil.bvg/x.bvg", 1, "",
       "eowizard: Error: Cann't open generation file 'coil/Coil.bvg/x.bvg' for writing\n"},
      {"session show --json --codepage CP437" + sessions + "views.bvg", 0, "",
       "\"AUTHOR\": \"J\\u207frgen\""},
      // JSON escapes in the message that names the file: controls as \u escapes, characters
      // beyond ASCII too, and each byte that starts no UTF-8 character as U+FFFD.
      {"session show --json '\"\\\x01\b\f\t\xC3\xBC\xF0\x9F\x98\x80 \x80|\xC0\xAF|\xE2\x82'",
       1, "", R"(file '\"\\\u0001\u0008\u000c\t\u00fc\ud83d\ude00 \ufffd|\ufffd\ufffd|\ufffd\ufffd' )"},
      {"session show --codepage NO-SUCH-PAGE" + coil, 2, "", "--codepage"},
      {"session show --registry /no/such.reg" + coil, 2, "", "/no/such.reg"},
      {"model show --model-time-limit 0 converter/Converter.geo", 2, "",
       "--model-time-limit: a number of seconds above 0"},
      {"session shw coil/Coil.bvg", 2, "", "--help"},  // a usage mistake, as with other tools
  };
  for (const auto& row : rows) {
    const auto expanded = [&](std::string text) {
      for (auto at = text.find("$S"); at != std::string::npos; at = text.find("$S", at)) {
        text.replace(at, 2, scratch_.Path().string());
      }
      return text;
    };
    SCOPED_TRACE(row.arguments);
    EXPECT_EQ(Run(expanded(row.arguments)), row.exitCode) << out_ << err_;
    if (!row.golden.empty()) {
      EXPECT_TRUE(generator::test::MatchesGoldenText(out_, row.golden, "app")) << err_;
    }
    EXPECT_NE((out_ + err_).find(expanded(row.message)), std::string::npos) << out_ << err_;
  }
}

}  // namespace
