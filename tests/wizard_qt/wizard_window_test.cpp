// The real wizard window, driven offscreen as a user drives it: what it shows of the
// form, and what its controls forward.
#include <QComboBox>
#include <QLabel>
#include <QRadioButton>
#include <QtTest>

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

  void focusGoesToThePagesFirstControlAfterStartNextAndBack() {
    WizardFixture ui;
    ui.Connect();
    // Without a project Finish is disabled: the finish page begins with Help then.
    const char* const first[wizard::kPageCount] = {
        "btnNext", "edFile", "edLocation", "cmbType", "edModel", "lvInput", "btnOutputStandard",
        "btnHelp"};
    auto focused = [] {
      return QApplication::focusWidget() ? QApplication::focusWidget()->objectName() : QString();
    };
    QCOMPARE(focused(), QString(first[0]));
    for (int page = 1; page < wizard::kPageCount; ++page) {
      ui.Click("btnNext");
      QCOMPARE(focused(), QString(first[page]));
    }
    for (int page = wizard::kPageCount - 2; page >= 0; --page) {
      ui.Click("btnBack");
      QCOMPARE(focused(), QString(first[page]));
    }
    // Next pressed with Enter, then typing: the text lands in the first field.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClicks(QApplication::focusWidget(), "typed");
    QVERIFY(ui.Control<QLineEdit>("edFile")->text().endsWith("Generation1.bvgtyped"));
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
};

int RunWizardWindowTests(int argc, char** argv) {
  WizardWindowTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "wizard_window_test.moc"
