#include "wizard/model/wizard_connection.h"

#include <gtest/gtest.h>

#include "wizard_test_support.h"

namespace wizard::test {
namespace {

namespace fs = std::filesystem;

TEST_F(WizardTest, ConnectingTwiceKeepsOneWizardAndStartsItAgain) {
  WizardForm& form = Start();
  form.Next();
  form.Next();
  form.TextEdited(Field::Author, "Ann Author");

  wizard_.AddinInstance_OnConnection(nullptr);
  EXPECT_EQ(formsMade_, 1);
  EXPECT_EQ(wizard_.Form(), &form);
  EXPECT_TRUE(wizard_.FormDisplayed);
  EXPECT_EQ(form.CurrentStep, 0);
  EXPECT_EQ(form.State().edAuthor, "Ann Author");
}

TEST_F(WizardTest, DisconnectingClosesWithoutQuestionsOrSaving) {
  WizardForm& form = Start();
  const std::string session = form.State().edFile;
  form.Next();
  wizard_.AddinInstance_OnDisconnection();
  EXPECT_EQ(wizard_.Form(), nullptr);
  EXPECT_FALSE(wizard_.FormDisplayed);
  EXPECT_TRUE(view_.viewDestroyed);
  EXPECT_FALSE(analysisAlive_);
  EXPECT_TRUE(prompter_.shown.empty());
  EXPECT_FALSE(fs::exists(session));
}

TEST_F(WizardTest, HideKeepsTheFormAndShowBringsItBack) {
  WizardForm& form = Start();
  wizard_.Hide();
  EXPECT_FALSE(wizard_.FormDisplayed);
  EXPECT_FALSE(view_.formShown);
  EXPECT_EQ(wizard_.Form(), &form);
  wizard_.Show();
  EXPECT_TRUE(wizard_.FormDisplayed);
  EXPECT_TRUE(view_.formShown);
}

TEST(WizardConnection, ErrorWhileConnectingIsToldUnderTheDefaultTitle) {
  platform::ScriptedPrompter prompter;
  Wizard wizard([]() -> std::unique_ptr<WizardForm> {
                  throw vbrt::VbError(429, "ActiveX component can't create object");
                },
                prompter);
  wizard.AddinInstance_OnConnection(nullptr);
  ExpectTold(prompter, "ActiveX component can't create object", platform::MsgIcon::None,
             platform::MsgButtons::OK, "");
  EXPECT_EQ(wizard.Form(), nullptr);
}

}  // namespace
}  // namespace wizard::test
