// Saves a picture of every page of the wizard filled from the heater example, of the
// cell editors and dialogs of the parameter pages, of the finish page without a project,
// and of the progress and start-up windows into the build folder, for a person to look at.
#include <QComboBox>
#include <QDir>
#include <QtTest>

#include "../wizard_fixture.h"
#include "generator/merge_report.h"
#include "wizard/launch_notice.h"
#include "wizard/message_box_prompter.h"
#include "wizard/progress_window.h"

using wizard_test::ClickCell;
using wizard_test::OnNextDialog;
using wizard_test::WizardFixture;

class PageScreenshots : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QVERIFY(QDir().mkpath(EOW_SCREENSHOT_DIR)); }

  void everyPageWithItsEditorsAndDialogs() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(platform::MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    ui.Click("btnBack");
    for (int page = 0; page < wizard::kPageCount; ++page) {
      QCOMPARE(ui.Page(), page);
      Save(ui.window, QString("page%1.png").arg(page));
      if (page == 5) SaveInputEditors(ui);
      if (page == 6) SaveDialog(ui, "btnOutputCustom", "dlgOutput.png");
      ui.Click("btnNext");
    }
  }

  void finishPageWithoutProject() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(7);
    Save(ui.window, "page7-without-project.png");
  }

  // The question about a class file the engineer changed since it was generated, and the
  // message after a merge with conflicts.
  void mergeQuestionAndConflicts() {
    wizard::MessageBoxPrompter prompter("SondelW");
    auto ran = OnNextDialog([](QDialog& box) { Save(&box, "merge-question.png"); });
    prompter.Show({"Class module 'C:\\Models\\Actuator\\Actuator.cls' already exists. "
                   "Overwrite ?\nThe file was changed since it was generated: Merge keeps "
                   "those changes.",
                   platform::MsgButtons::MergeYesNoCancel, platform::MsgIcon::Exclamation,
                   "Zentrix Bravant ExploringObject Wizard"});
    QVERIFY(*ran);
    using platform::SaveChoice;
    const auto conflicts = generator::MergeOutcome(
        {{"C:\\Models\\Actuator\\Actuator.cls", SaveChoice::Merge, {{218, 224}, {301, 309}}},
         {"C:\\Models\\Actuator\\Actuator.bas", SaveChoice::Merge, {{40, 46}}}});
    ran = OnNextDialog([](QDialog& box) { Save(&box, "merge-conflicts.png"); });
    prompter.Show(conflicts.value());
    QVERIFY(*ran);
  }

  void progressAndLaunchWindows() {
    wizard::ProgressWindow progress;
    progress.Load("Generating ExploringObject project");
    progress.SetState("Writing class module...");
    progress.SetMax(40);
    progress.SetValue(25);
    progress.Show();
    Save(&progress, "progress.png");
    wizard::LaunchNotice notice("Zentrix Bravant ExploringObject Wizard",
                                "Zentrix is starting... Please wait...");
    notice.ShowNow();
    Save(&notice, "launch.png");
  }

 private:
  static void Save(QWidget* window, const QString& name) {
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QVERIFY(window->grab().save(QDir(EOW_SCREENSHOT_DIR).filePath(name)));
  }

  static void SaveDialog(WizardFixture& ui, const char* button, const QString& name) {
    auto ran = OnNextDialog([name](QDialog& dialog) { Save(&dialog, name); });
    ui.Click(button);
    QVERIFY(*ran);
  }

  static void SaveInputEditors(WizardFixture& ui) {
    auto* list = ui.Control<QTreeWidget>("lvInput");
    ClickCell(*list, 1, 1);
    Save(ui.window, "page5-type-editor.png");
    QTest::keyClick(ui.Control<QComboBox>("lvCombo"), Qt::Key_Escape);
    ClickCell(*list, 2, 0);
    Save(ui.window, "page5-text-editor.png");
    QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);
    SaveDialog(ui, "btnInputEdit", "dlgInput.png");
  }
};

QTEST_MAIN(PageScreenshots)
#include "page_screenshots.moc"
