#include "wizard/model/session_folder.h"

#include <gtest/gtest.h>

#include "wizard_test_support.h"

namespace wizard::test {
namespace {

namespace fs = std::filesystem;

TEST_F(WizardTest, UnwritableProgramFolderMovesTheSessionsToTheUsersFolderOnce) {
  // Running as root, no folder is read-only: a program "folder" below a regular file
  // cannot take a subfolder either.
  const fs::path regularFile = scratch_.Write("program.bin", "x");
  programFolder_ = (regularFile / "bin").string();
  const fs::path perUser = UserData() / "WizardSessions";

  wizard_.AddinInstance_OnConnection(nullptr);
  ASSERT_NE(wizard_.Form(), nullptr);
  EXPECT_TRUE(fs::is_directory(perUser));
  EXPECT_EQ(wizard_.Form()->State().edFile, (perUser / "Generation1.bvg").string());
  ExpectTold(prompter_,
             "Wizard sessions cannot be kept in '" + programFolder_ +
                 "/WizardSessions'. They are kept in '" + perUser.string() + "' instead.",
             platform::MsgIcon::Information);

  // The next start uses the per-user folder without a word.
  wizard_.AddinInstance_OnDisconnection();
  prompter_.shown.clear();
  wizard_.AddinInstance_OnConnection(nullptr);
  ASSERT_NE(wizard_.Form(), nullptr);
  EXPECT_EQ(wizard_.Form()->SessionsFolder(), perUser.string());
  EXPECT_TRUE(prompter_.shown.empty());
}

}  // namespace
}  // namespace wizard::test
