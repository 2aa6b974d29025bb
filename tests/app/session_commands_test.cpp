// `eowizard session ...` run as a user runs it: exit codes, standard output and errors.
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "program_test.h"
#include "../platform/special_files.h"

namespace {

namespace fs = std::filesystem;

class SessionCommandsTest : public ProgramTest {};

const std::string kDrive = "--drive C=coil/drive_c";

TEST_F(SessionCommandsTest, ShowListsTheExample) {
  ASSERT_EQ(Run("session show " + kDrive + " coil/Coil.bvg"), 0) << err_;
  EXPECT_EQ(err_, "");
  EXPECT_NE(out_.find("  1  Coil radius  Geometrical  R         mm    1    20   5\n"),
            std::string::npos)
      << out_;
}

TEST_F(SessionCommandsTest, ShowPassesOnTheWizardsNoticesAboutMissingFiles) {
  ASSERT_EQ(Run("session show coil/Coil.bvg"), 0) << err_;
  EXPECT_NE(err_.find("Model file 'C:\\Models\\Coil\\coil.mod' does not exist."),
            std::string::npos)
      << err_;
}

TEST_F(SessionCommandsTest, ShowTellsWhyALoadFailed) {
  EXPECT_EQ(Run("session show no-such.bvg"), 1);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(err_,
            "eowizard: Error: Cannt open generation file 'no-such.bvg' for reading\n"
            "eowizard: there is no file 'no-such.bvg'\n");

  EXPECT_EQ(Run("session show " + Session("cut.bvg", "[GENERAL]\r\nAUTHOR=x\r\n\r\n")), 1);
  EXPECT_NE(err_.find("is not a complete session file"), std::string::npos) << err_;
}

// A device, FIFO, socket or folder gets the reader's own failure at once from every
// command that reads a session; nothing is written.
TEST_F(SessionCommandsTest, SpecialFilesAreRefusedAtOnce) {
  const struct {
    const char* command;
    int exitCode;
  } commands[] = {{"session show", 1}, {"session check", 2},
                  {"session rewrite", 1}, {"generate", 1}};
  for (const SpecialFile& special : SpecialFiles(scratch_)) {
    const std::string path = special.path.string();
    for (const auto& [command, exitCode] : commands) {
      SCOPED_TRACE(std::string(special.kind) + ": " + command);
      const std::string rewritten = Path("rewritten.bvg");
      const std::string out =
          std::string(command) == "session rewrite" ? " '" + rewritten + "'" : "";
      EXPECT_EQ(Run(std::string(command) + " '" + path + "'" + out), exitCode);
      EXPECT_NE(
          err_.find("eowizard: Error: Cannt open generation file '" + path + "' for reading\n"),
          std::string::npos)
          << err_;
      EXPECT_FALSE(fs::exists(rewritten));
    }
  }
}

TEST_F(SessionCommandsTest, JsonIsPrintedAfterAFailedLoadToo) {
  const std::string bad = "[OUTPUT]\r\nDESCRIPTION=Flux\r\nICON=\r\n\r\n[END]\r\n";
  EXPECT_EQ(Run("session show --json " + Session("bad.bvg", bad)), 1);
  EXPECT_NE(out_.find("\"result\": false,\n  \"message\": \"Error loading data from generation "
                      "file\",\n"),
            std::string::npos)
      << out_;

  // The message names the file as given: quotes, controls and characters beyond ASCII
  // escaped, each byte that starts no UTF-8 character as U+FFFD.
  EXPECT_EQ(Run("session show --json '\"\\\x01\b\f\t\xC3\xBC\xF0\x9F\x98\x80 \x80|\xC0\xAF|"
                "\xE2\x82'"),
            1);
  EXPECT_NE(out_.find(R"(file '\"\\\u0001\u0008\u000c\t\u00fc\ud83d\ude00 )"
                      R"(\ufffd|\ufffd\ufffd|\ufffd\ufffd' for reading",)"),
            std::string::npos)
      << out_;
}

TEST_F(SessionCommandsTest, CheckReportsProblemsAndUnreadableFiles) {
  EXPECT_EQ(Run("session check " + kDrive + " coil/Coil.bvg"), 0) << out_ << err_;
  EXPECT_EQ(out_, "coil/Coil.bvg: no problems found\n");

  EXPECT_EQ(Run("session check " + Session("odd.bvg", "[GENERAL]\r\nPROJECT=" + Path("Odd.vbp") +
                                             "\r\n\r\n[INPUT]\r\nDESCRIPTION=Gap\r\nTYPE=Physical\r\n"
                                             "VARIABLE=g\r\nUNIT=µm\r\nMIN=3\r\nMAX=1\r\n"
                                             "DEFAULT=2\r\n\r\n[END]\r\n")),
            1);
  EXPECT_EQ(out_, "Input 1 \"Gap\": MIN 3 is greater than MAX 1\n"
                  "line 8 UNIT: \"µm\" is UTF-8 text, which WINDOWS-1252 reads as \"Âµm\"; save "
                  "the file in WINDOWS-1252\n" +
                      Path("odd.bvg") + ": 2 problems\n");

  EXPECT_EQ(Run("session check '" + scratch_.Path().string() + "'"), 2);
  EXPECT_NE(err_.find("is a folder, not a session file"), std::string::npos) << err_;
}

TEST_F(SessionCommandsTest, RewriteSavesAsTheWizardDoes) {
  ASSERT_EQ(Run("session rewrite " + kDrive + " coil/Coil.bvg '" + Path("copy.bvg") + "'"), 0)
      << err_;
  EXPECT_EQ(ReadBytes(Path("copy.bvg")),
            ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "coil" / "Coil.bvg"));

  scratch_.Write("file", "a regular file");
  EXPECT_EQ(Run("session rewrite " + kDrive + " coil/Coil.bvg '" + Path("file") + "/x.bvg'"), 1);
  EXPECT_EQ(err_, "eowizard: Error: Cann't open generation file '" + Path("file") +
                      "/x.bvg' for writing\n");
}

TEST_F(SessionCommandsTest, WrongSharedOptionsAreNamed) {
  EXPECT_EQ(Run("session show --drive Q coil/Coil.bvg"), 2);
  EXPECT_NE(err_.find("'Q'"), std::string::npos) << err_;
  EXPECT_EQ(Run("session show --codepage NO-SUCH-PAGE coil/Coil.bvg"), 2);
  EXPECT_NE(err_.find("--codepage"), std::string::npos) << err_;
  EXPECT_EQ(Run("session show --registry /no/such.reg coil/Coil.bvg"), 2);
  EXPECT_NE(err_.find("/no/such.reg"), std::string::npos) << err_;
  EXPECT_EQ(Run("model show --model-time-limit 0 converter/Converter.geo"), 2);
  EXPECT_NE(err_.find("--model-time-limit: a number of seconds above 0"), std::string::npos)
      << err_;
  EXPECT_EQ(Run("session shw coil/Coil.bvg"), 2);  // a usage mistake, as with other tools
  EXPECT_NE(err_.find("--help"), std::string::npos) << err_;
}

TEST_F(SessionCommandsTest, CodePageOptionChangesTheFileBytes) {
  const std::string latin = Session("latin.bvg", "[GENERAL]\r\nAUTHOR=\xC4\r\n\r\n[END]\r\n");
  ASSERT_EQ(Run("session rewrite --codepage CP437 " + latin + " '" + Path("dos.bvg") + "'"), 0)
      << err_;
  // 0xC4 is a box-drawing character in code page 437, written back as the same byte.
  EXPECT_NE(ReadBytes(Path("dos.bvg")).find("\r\nAUTHOR=\xC4\r\n"), std::string::npos);
  ASSERT_EQ(Run("session show --json --codepage CP437 " + latin), 0);
  EXPECT_NE(out_.find("\"AUTHOR\": \"\\u2500\""), std::string::npos) << out_;
}

}  // namespace
