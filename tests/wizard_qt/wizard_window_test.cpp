// The real wizard window, driven offscreen as a user drives it: what it shows of the
// form, and what its controls forward.
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

#include "app/services.h"
#include "app/window/wizard_host.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using wizard_test::WizardFixture;

class WizardWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void buttonsFollowThePagesAndFinishClosesOnlyAfterAGeneration() {
    WizardFixture ui;
    ui.generationResult = false;
    ui.Connect();
    QCOMPARE(ui.window->windowTitle(), QString("Zentrix ExploringObject Wizard"));
    QVERIFY(!ui.Control("btnBack")->isEnabled());
    QVERIFY(!ui.Control("btnFinish")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnNext")->isDefault());
    ui.GoToPage(2);
    ui.TypeAndLeave("edLocation", ui.Path("Kept.vbp"));
    ui.TypeAndLeave("edAuthor", "Someone");
    QVERIFY(ui.Control("btnFinish")->isEnabled());
    ui.GoToPage(5);  // the input list keeps Return for its editors
    QVERIFY(ui.Control("btnBack")->isEnabled());
    QVERIFY(!ui.Control<QPushButton>("btnNext")->isDefault());
    ui.GoToPage(7);
    QVERIFY(!ui.Control("btnNext")->isEnabled());
    QVERIFY(ui.Control<QPushButton>("btnFinish")->isDefault());
    QCOMPARE(ui.Control<QLabel>("lblFin1")->text(),
             QString("You have succesfully completed the Zentrix Bravant Exploring Object Wizard."));

    // A failed generation brings the same window back as it was.
    ui.Click("btnFinish");
    QCOMPARE(ui.generations, 1);
    QVERIFY(ui.window->isVisible());
    QCOMPARE(ui.Page(), 7);

    ui.generationResult = true;
    ui.Click("btnFinish");
    QVERIFY(ui.addIn.Form() == nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(ui.window.isNull());
  }

  void cancelAndEscapeAskBeforeClosingAndHelpShowsThePageTopic() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    QVERIFY(ui.Control<QLineEdit>("edFile")->text().endsWith("WizardSessions/Generation1.bvg"));
    ui.Click("btnHelp");
    QVERIFY(QString::fromStdString(ui.help.topics.at(0)).endsWith("/HTML/WizardSavingFile.htm"));

    ui.prompter.Answer(MsgAnswer::No);
    ui.Click("btnCancel");
    QVERIFY(ui.addIn.Form() != nullptr);
    ui.prompter.Answer(MsgAnswer::Yes);
    QTest::keyClick(ui.window, Qt::Key_Escape);
    QVERIFY(ui.addIn.Form() == nullptr);
  }

  void loadedSessionIsShownOnThePages() {
    WizardFixture ui;
    ui.Connect();
    ui.Click("btnNext");
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.TypeAndLeave("edFile", EOW_EXAMPLES_DIR "/heater/Heater.bvg");
    QCOMPARE(ui.Control<QLineEdit>("edAuthor")->text(), QString("Example author"));
    QCOMPARE(ui.Control<QComboBox>("cmbType")->currentText(), QString("Heat Transfer"));
    QCOMPARE(ui.Control<QComboBox>("cmbClass")->currentIndex(), 1);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  void pageControlsForwardToTheForm() {
    WizardFixture ui;
    ui.Connect();
    ui.GoToPage(3);
    auto* type = ui.Control<QComboBox>("cmbType");
    type->setFocus();
    QTest::keyClick(type, Qt::Key_Down);
    QCOMPARE(ui.addIn.Form()->State().cmbType.listIndex, int16_t{1});

    ui.Click("btnNext");
    ui.TypeAndLeave("edModel", ui.Path("missing.mod"));
    QVERIFY(!ui.Control("optModelLink")->isEnabled());
    ui.TypeAndLeave("edModel", EOW_EXAMPLES_DIR "/heater/Heater.mod");
    QVERIFY(ui.Control("optModelLink")->isEnabled());
    QVERIFY(!ui.Control("optModelCode")->isEnabled());
    QTest::mouseClick(ui.Control<QRadioButton>("optModelCode"), Qt::LeftButton);
    QVERIFY(ui.Control<QRadioButton>("optModelLink")->isChecked());
  }

  // The window's host, as `eowizard [options] --session FILE` starts it: the session's
  // Windows paths lead to files only through the --drive mapping.
  void sharedOptionsReachTheWindow() {
    const struct {
      std::vector<std::string> drives;
      std::vector<std::string> notices;
    } rows[] = {
        {{"C=" EOW_EXAMPLES_DIR "/coil/drive_c"}, {}},
        {{},
         {"Model file 'C:\\Models\\Coil\\coil.mod' does not exist.",
          "Data file 'C:\\Models\\Coil\\coil.dms' does not exist."}},
    };
    for (const auto& row : rows) {
      app::ServiceOptions options;
      options.drives = row.drives;
      app::SharedServices services(options);
      int argc = 0;
      const app::WindowStart start{argc, nullptr, EOW_EXAMPLES_DIR "/coil/Coil.bvg",
                                   services.fs, services.registry, std::nullopt,
                                   [] { return std::make_unique<wizard_test::FakeAnalysis>(); }};
      platform::ScriptedPrompter boxes;
      app::WizardHost host(start, boxes);
      QVERIFY(host.Connect());
      std::vector<std::string> shown;
      for (const platform::Message& message : boxes.shown) shown.push_back(message.text);
      QCOMPARE(shown, row.notices);
      QCOMPARE(host.AddIn().Form()->State().edAuthor, std::string("Design group"));
      host.Disconnect();
    }
  }
};

int RunWizardWindowTests(int argc, char** argv) {
  WizardWindowTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "wizard_window_test.moc"
