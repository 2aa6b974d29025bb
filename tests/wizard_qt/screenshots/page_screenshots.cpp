// Saves a picture of every page of the wizard, of the finish page without a project, and
// of the progress and start-up windows into the build folder, for a person to look at.
#include <QDir>
#include <QLabel>
#include <QtTest>

#include "../wizard_fixture.h"
#include "wizard/launch_notice.h"
#include "wizard/progress_window.h"

using wizard_test::WizardFixture;

// Pages 5 and 6 with a dozen rows each, their editors and dialogs.
void SaveParameterPageScreenshots();

class PageScreenshots : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    QDir::setCurrent(EOW_TEST_DIR "/..");
    QVERIFY(QDir().mkpath(EOW_SCREENSHOT_DIR));
  }

  void everyPage() {
    WizardFixture ui;
    ui.Connect();
    // The heater example fills every page; its paths are relative to the source tree.
    ui.Click("btnNext");
    ui.prompter.Answer(platform::MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    ui.Click("btnBack");
    for (int page = 0; page < wizard::kPageCount; ++page) {
      QCOMPARE(ui.Page(), page);
      Save(ui.window, QString("page%1.png").arg(page));
      ui.Click("btnNext");
    }
  }

  void finishPageWithoutProject() {
    WizardFixture ui;
    ui.Connect();
    for (int i = 0; i < 7; ++i) ui.Click("btnNext");
    Save(ui.window, "page7-without-project.png");
  }

  void parameterPages() { SaveParameterPageScreenshots(); }

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
};

QTEST_MAIN(PageScreenshots)
#include "page_screenshots.moc"
