// The real wizard window, driven offscreen as a user drives it.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>
#include <filesystem>

#include "wizard/generation_runner.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::WizardFixture;

class WizardWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { QDir::setCurrent(EOW_TEST_DIR "/.."); }

  void buttonsFollowThePagesAndFinishGenerates() {
    WizardFixture ui;
    ui.Connect();
    QCOMPARE(ui.window->windowTitle(), QString("Zentrix ExploringObject Wizard"));
    QCOMPARE(ui.Page(), 0);
    QVERIFY(!ui.Control("btnBack")->isEnabled());
    QVERIFY(!ui.Control("btnFinish")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnNext")->isDefault());

    ui.Click("btnNext");
    QCOMPARE(ui.Page(), 1);
    const QString sessionFile = ui.Control<QLineEdit>("edFile")->text();
    QVERIFY(sessionFile.endsWith("WizardSessions/Generation1.bvg"));

    ui.Click("btnNext");
    ui.TypeAndLeave("edLocation", ui.Path("Project1.vbp"));
    QVERIFY(ui.Control("btnFinish")->isEnabled());
    QCOMPARE(ui.addIn.Form()->State().theName, std::string("Project1"));

    for (int page = 3; page <= 7; ++page) {
      ui.Click("btnNext");
      QCOMPARE(ui.Page(), page);
      QVERIFY(ui.Control("btnBack")->isEnabled());
      QCOMPARE(ui.Control<QPushButton>("btnNext")->isDefault(), page != 5 && page != 7);
    }
    QVERIFY(!ui.Control("btnNext")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnFinish")->isDefault());
    QCOMPARE(ui.Control<QLabel>("lblFin1")->text(),
             QString("You have succesfully completed the Zentrix Bravant Exploring Object Wizard."));

    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 1);
    QVERIFY(std::filesystem::exists(sessionFile.toStdString()));
    QVERIFY(ui.addIn.Form() == nullptr);
    WizardFixture::DeleteLater();
    QVERIFY(ui.window.isNull());
  }

  void finishPageWithoutLocationSaysWhatIsMissing() {
    WizardFixture ui;
    ui.Connect();
    for (int i = 0; i < 7; ++i) ui.Click("btnNext");
    QCOMPARE(ui.Page(), 7);
    QVERIFY(!ui.Control("btnFinish")->isEnabled());
    QCOMPARE(ui.Control<QLabel>("lblFin1")->text(),
             QString("You must specify project name and location."));
    QCOMPARE(ui.Control<QLabel>("lblFin2")->text(),
             QString("Input 'Project name and location' on 'General' page of this Wizard."));
    ui.Click("btnBack");
    QCOMPARE(ui.Page(), 6);
  }

  void failedGenerationBringsTheSameWizardBack() {
    WizardFixture ui;
    ui.generationResult = false;
    ui.Connect();
    ui.Click("btnNext");
    ui.Click("btnNext");
    ui.TypeAndLeave("edLocation", ui.Path("Kept.vbp"));
    ui.TypeAndLeave("edAuthor", "Someone");
    for (int i = 0; i < 5; ++i) ui.Click("btnNext");
    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 1);
    QVERIFY(ui.addIn.Form() != nullptr);
    QVERIFY(ui.window->isVisible());
    QCOMPARE(ui.Page(), 7);
    QCOMPARE(ui.Control<QLineEdit>("edLocation")->text(),
             QString::fromStdString(ui.Path("Kept.vbp")));
    QCOMPARE(ui.Control<QLineEdit>("edAuthor")->text(), QString("Someone"));
  }

  void cancelAsksAndSavesBeforeClosing() {
    WizardFixture ui;
    ui.Connect();
    const std::string sessionFile = ui.addIn.Form()->State().edFile;
    ui.prompter.Answer(MsgAnswer::No);
    ui.Click("btnCancel");
    QVERIFY(ui.addIn.Form() != nullptr);
    QVERIFY(!std::filesystem::exists(sessionFile));
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Are you sure to exit ExploringObject Wizard?"));

    ui.prompter.Answer(MsgAnswer::Yes);
    QTest::keyClick(ui.window, Qt::Key_Escape);  // the close box and Escape ask the same
    QVERIFY(ui.addIn.Form() == nullptr);
    QVERIFY(std::filesystem::exists(sessionFile));
  }

  void leavingTheSessionFieldLoadsTheSession() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");  // a page after the first: the settings count as changed
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    QCOMPARE(ui.prompter.Pending(), std::size_t{0});
    QCOMPARE(ui.prompter.shown.back().text, std::string("Load old Exploring Object Wizard saving ?"));
    QCOMPARE(ui.Control<QLineEdit>("edAuthor")->text(), QString("Example author"));
    QCOMPARE(ui.Control<QComboBox>("cmbType")->currentText(), QString("Heat Transfer"));
    QCOMPARE(ui.Control<QComboBox>("cmbClass")->currentIndex(), 1);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  void pageControlsForwardToTheForm() {
    WizardFixture ui;
    ui.Connect();
    for (int i = 0; i < 3; ++i) ui.Click("btnNext");
    auto* type = ui.Control<QComboBox>("cmbType");
    type->setFocus();
    QTest::keyClick(type, Qt::Key_Down);
    QCOMPARE(ui.addIn.Form()->State().cmbType.listIndex, int16_t{1});

    ui.Click("btnNext");
    ui.TypeAndLeave("edModel", ui.Path("missing.mod"));
    QCOMPARE(ui.prompter.shown.back().icon, platform::MsgIcon::Information);
    QVERIFY(!ui.Control("optModelLink")->isEnabled());
    QCOMPARE(ui.Control<QLineEdit>("edModel")->text(),
             QString::fromStdString(ui.Path("missing.mod")));
    ui.TypeAndLeave("edModel", EOW_EXAMPLES_DIR "/heater/Heater.mod");
    QVERIFY(ui.Control("optModelLink")->isEnabled());
    QVERIFY(!ui.Control("optModelCode")->isEnabled());
    QTest::mouseClick(ui.Control<QRadioButton>("optModelCode"), Qt::LeftButton);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  void helpOpensThePageTopic() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.Click("btnHelp");
    QCOMPARE(ui.help.topics.size(), std::size_t{1});
    QVERIFY(QString::fromStdString(ui.help.topics[0])
                .endsWith("/../../Help/Bravant.chm::/HTML/WizardSavingFile.htm"));
  }

  void finishRunsTheGeneratorWithItsProgressWindow() {
    // The runner is made when Finish needs it, from the fixture's own services.
    WizardFixture ui([&ui](wizard::WizardForm& form) {
      return wizard::GenerationWithProgressWindow(ui.fs, ui.registry, ui.prompter)(form);
    });
    ui.registry.AddFile(EOW_EXAMPLES_DIR "/registry/demo-host.reg");
    ui.Connect();
    ui.Click("btnNext");
    ui.Click("btnNext");
    ui.TypeAndLeave("edLocation", ui.Path("Generated.vbp"));
    ui.Click("btnFinish");
    QVERIFY(ui.addIn.Form() == nullptr);
    QVERIFY(std::filesystem::exists(ui.Path("Generated.vbp")));
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Your ExploringObject project was succesfully created."));
  }
};

int RunWizardWindowTests(int argc, char** argv) {
  WizardWindowTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "wizard_window_test.moc"
