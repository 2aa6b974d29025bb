// Pages 5 and 6 of the real window, driven offscreen with the mouse and the keyboard: the
// in-place editors of the input list, both dialogs and the output lists.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QRadioButton>
#include <QTreeWidget>
#include <QtTest>

#include "page_helpers.h"
#include "wizard_fixture.h"

using platform::MsgAnswer;
using platform::MsgIcon;
using wizard_test::DoubleClickRow;
using wizard_test::ClickCell;
using wizard_test::Field;
using wizard_test::GoToPage;
using wizard_test::OnNextDialog;
using wizard_test::RowTexts;
using wizard_test::WizardFixture;

class ParameterPagesTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { QDir::setCurrent(EOW_TEST_DIR "/.."); }

  void enterAndShiftEnterWalkTheColumns() {
    WizardFixture ui;
    ui.Connect();
    GoToPage(ui, 5);
    auto* list = ui.Control<QTreeWidget>("lvInput");
    auto* edit = ui.Control<QLineEdit>("lvEdit");
    auto* combo = ui.Control<QComboBox>("lvCombo");
    QCOMPARE(RowTexts(*list, 0), QStringList({"<new>", "", "", "", "", "", ""}));

    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 0, 0);
    QCOMPARE(ui.prompter.shown.back().text, std::string("Add new parameter ?"));
    QCOMPARE(RowTexts(*list, 0), QStringList({"p1", "Geometrical", "p1", "", "0", "10", "1"}));
    QCOMPARE(list->topLevelItem(1)->text(0), QString("<new>"));
    QVERIFY(edit->isVisible() && edit->hasFocus());
    QCOMPARE(edit->geometry(), list->visualRect(list->model()->index(0, 0)));

    QTest::keyClicks(edit, "Air gap");  // the opened text is selected: typing replaces it
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(list->topLevelItem(0)->text(0), QString("Air gap"));
    QVERIFY(combo->isVisible() && !edit->isVisible());
    QCOMPARE(combo->geometry(), list->visualRect(list->model()->index(0, 1)));
    QCOMPARE(combo->currentText(), QString("Geometrical"));

    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Return);
    QCOMPARE(list->topLevelItem(0)->text(1), QString("Physical"));
    QVERIFY(edit->isVisible() && edit->hasFocus());
    QCOMPARE(edit->text(), QString("p1"));

    QTest::keyClicks(edit, "gap");
    QTest::keyClick(edit, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(list->topLevelItem(0)->text(2), QString("gap"));
    QVERIFY(combo->isVisible());
    QTest::keyClick(combo, Qt::Key_Down);
    QTest::keyClick(combo, Qt::Key_Escape);  // the type chosen is not stored
    QVERIFY(!combo->isVisible() && !edit->isVisible());
    QVERIFY(list->hasFocus());
    QCOMPARE(RowTexts(*list, 0),
             QStringList({"Air gap", "Physical", "gap", "", "0", "10", "1"}));
    QCOMPARE(ui.prompter.shown.size(), std::size_t{1});
  }

  void upDownAndClicksCommitRefusalsKeepTheEditor() {
    WizardFixture ui;
    ui.Connect();
    GoToPage(ui, 5);
    auto* list = ui.Control<QTreeWidget>("lvInput");
    auto* edit = ui.Control<QLineEdit>("lvEdit");

    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 0, 4);
    QTest::keyClicks(edit, "5");
    QTest::keyClick(edit, Qt::Key_Up);  // on the first row the editor stays on it
    QCOMPARE(RowTexts(*list, 0), QStringList({"p1", "Geometrical", "p1", "", "5", "10", "5"}));
    QCOMPARE(edit->geometry(), list->visualRect(list->model()->index(0, 4)));

    ui.prompter.Answer(MsgAnswer::Yes);
    QTest::keyClick(edit, Qt::Key_Down);  // onto "<new>": asks and adds p2
    QCOMPARE(list->topLevelItemCount(), 3);
    QCOMPARE(list->topLevelItem(1)->text(0), QString("p2"));
    QCOMPARE(edit->geometry(), list->visualRect(list->model()->index(1, 4)));
    QTest::keyClicks(edit, "abc");
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Validation error: Parameter minimum must be numeric."));
    QCOMPARE(ui.prompter.shown.back().icon, MsgIcon::None);
    QVERIFY(edit->isVisible());
    QCOMPARE(list->topLevelItem(1)->text(4), QString("0"));
    QTest::keyClick(edit, Qt::Key_Escape);
    QVERIFY(!edit->isVisible());

    ClickCell(*list, 1, 2);
    QTest::keyClicks(edit, "9x");
    QTest::keyClick(edit, Qt::Key_Return);
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Validation error: Invalid parameter variable name."));
    QCOMPARE(ui.prompter.shown.back().icon, MsgIcon::Exclamation);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, "x 9");
    ClickCell(*list, 0, 3);  // clicking elsewhere commits first
    QCOMPARE(list->topLevelItem(1)->text(2), QString("x 9"));
    QCOMPARE(edit->geometry(), list->visualRect(list->model()->index(0, 3)));
    QTest::keyClicks(edit, "mm");
    QTest::mouseClick(ui.Control<QPushButton>("btnNext"), Qt::LeftButton);  // and leaving
    QCOMPARE(ui.Page(), 6);
    QCOMPARE(ui.addIn.Form()->State().lvInput.SubItem(0, 3), std::string("mm"));
  }

  void inputDialogAddsEditsAndRemoves() {
    WizardFixture ui;
    ui.Connect();
    GoToPage(ui, 5);
    auto* list = ui.Control<QTreeWidget>("lvInput");

    auto ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QString("Input parameter"));
      QCOMPARE(dialog.findChild<QLabel*>()->text(), QString("Name:"));
      auto* ok = dialog.findChild<QPushButton*>("btnOK");
      QVERIFY(!ok->isEnabled());
      QTest::keyClicks(Field(dialog, "edName"), "Coil current");
      QVERIFY(!ok->isEnabled());
      QTest::keyClicks(Field(dialog, "edVariable"), "9");
      QVERIFY(!ok->isEnabled());
      QTest::keyClick(Field(dialog, "edVariable"), Qt::Key_Backspace);
      QTest::keyClicks(Field(dialog, "edVariable"), "current");
      QVERIFY(ok->isEnabled());
      QTest::mouseClick(dialog.findChild<QRadioButton*>("optPhys"), Qt::LeftButton);
      QTest::keyClicks(Field(dialog, "edUnit"), "A");
      QTest::keyClicks(Field(dialog, "edMax"), "20");
      QTest::mouseClick(ok, Qt::LeftButton);
    });
    ui.Click("btnInputAdd");
    QVERIFY(*ran);
    QCOMPARE(RowTexts(*list, 0),
             QStringList({"Coil current", "Physical", "current", "A", "0", "20", "1"}));
    QCOMPARE(list->topLevelItem(1)->text(0), QString("<new>"));

    ui.prompter.Answer(MsgAnswer::Yes);
    ClickCell(*list, 1, 0);  // p1 below it, with its editor open
    // Edit takes the selected row, after the open editor is committed.
    ClickCell(*list, 0, 0);
    ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(Field(dialog, "edName")->text(), QString("Coil current"));
      QCOMPARE(Field(dialog, "edMax")->text(), QString("20"));
      QVERIFY(dialog.findChild<QRadioButton*>("optPhys")->isChecked());
      Field(dialog, "edVariable")->selectAll();
      QTest::keyClicks(Field(dialog, "edVariable"), "amps");
      QTest::keyClick(&dialog, Qt::Key_Return);  // OK is the default button
    });
    ui.Click("btnInputEdit");
    QVERIFY(*ran);
    // A changed variable makes a new row, before "<new>".
    QCOMPARE(list->topLevelItem(0)->text(0), QString("p1"));
    QCOMPARE(RowTexts(*list, 1),
             QStringList({"Coil current", "Physical", "amps", "A", "0", "20", "1"}));

    ClickCell(*list, 1, 0);
    ran = OnNextDialog([&](QDialog& dialog) {
      QTest::keyClicks(Field(dialog, "edName"), " changed");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ui.Click("btnInputEdit");
    QVERIFY(*ran);
    QCOMPARE(list->topLevelItem(1)->text(0), QString("Coil current"));
    QVERIFY(QString::fromStdString(ui.help.topics.back()).endsWith("/HTML/WizardInputs.htm"));

    ClickCell(*list, 0, 0);
    QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.Click("btnInputRemove");
    QCOMPARE(ui.prompter.shown.back().text, std::string("Are you sure to remove 'p1' parameter ?"));
    QCOMPARE(list->topLevelItemCount(), 2);
    QCOMPARE(list->topLevelItem(0)->text(0), QString("Coil current"));

    ui.prompter.Answer(MsgAnswer::No);
    ClickCell(*list, 1, 0);  // "<new>" selected, nothing added
    QCOMPARE(list->topLevelItemCount(), 2);
    ui.Click("btnInputEdit");
    QCOMPARE(ui.prompter.shown.back().text, std::string("No parameter selected."));
    QCOMPARE(ui.prompter.Pending(), std::size_t{0});
  }

  void outputsFromStandardQuantitiesAndTheDialog() {
    WizardFixture ui;
    ui.Connect();
    GoToPage(ui, 6);
    auto* standard = ui.Control<QTreeWidget>("lvStandard");
    auto* outputs = ui.Control<QTreeWidget>("lvOutput");
    const session::FormState& state = ui.addIn.Form()->State();
    QVERIFY(standard->topLevelItemCount() > 4);
    QCOMPARE(standard->topLevelItem(0)->text(0), QString("Contour length"));
    QVERIFY(!standard->topLevelItem(0)->icon(0).isNull());

    ui.Click("btnOutputStandard");
    QCOMPARE(ui.prompter.shown.back().text, std::string("Nothing's selected."));

    ClickCell(*standard, 1, 0);
    ClickCell(*standard, 3, 0, Qt::ControlModifier);
    ui.Click("btnOutputStandard");
    QCOMPARE(outputs->topLevelItemCount(), 2);
    QCOMPARE(outputs->topLevelItem(0)->text(0), standard->topLevelItem(1)->text(0));
    QCOMPARE(outputs->topLevelItem(1)->text(0), standard->topLevelItem(3)->text(0));
    QCOMPARE(outputs->topLevelItem(0)->text(1), QString("Res.GetIntegral(zxSurface, Cnt).Abs"));

    // The list refuses the same quantity twice.
    const std::size_t told = ui.prompter.shown.size();
    DoubleClickRow(*standard, 1);
    QCOMPARE(ui.prompter.shown.size(), told + 1);
    QCOMPARE(outputs->topLevelItemCount(), 2);

    // A changed standard output becomes a custom one at the end.
    auto ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(dialog.windowTitle(), QString("Custom output parameter"));
      QCOMPARE(Field(dialog, "edName")->text(), QString("Surface area"));
      QTest::keyClicks(Field(dialog, "edValue"), " * 2");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    });
    DoubleClickRow(*outputs, 0);
    QVERIFY(*ran);
    QCOMPARE(outputs->topLevelItem(1)->text(0), QString("Surface area"));
    QCOMPARE(outputs->topLevelItem(1)->text(1), QString("Res.GetIntegral(zxSurface, Cnt).Abs * 2"));
    QCOMPARE(state.lvOutput.Item(1).smallIcon, std::optional<int16_t>(wizard::kCustomOutputIcon));
    QCOMPARE(state.lvOutput.Item(1).key, std::string());

    ran = OnNextDialog([&](QDialog& dialog) {
      QCOMPARE(Field(dialog, "edName")->selectedText(), QString("New out parameter"));
      QCOMPARE(Field(dialog, "edValue")->text(), QString("0"));
      QTest::keyClicks(Field(dialog, "edName"), "Losses");
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnHelp"), Qt::LeftButton);
      QTest::mouseClick(dialog.findChild<QPushButton*>("btnOK"), Qt::LeftButton);
    });
    ui.Click("btnOutputCustom");
    QVERIFY(*ran);
    QCOMPARE(RowTexts(*outputs, 2), QStringList({"Losses", "0"}));
    QVERIFY(QString::fromStdString(ui.help.topics.back())
                .endsWith("/../../Help/Bravant.chm::/HTML/WizardOutputs.htm#Custom"));

    ClickCell(*outputs, 0, 0);
    ui.prompter.Answer(MsgAnswer::Yes);
    ui.Click("btnOutputRemove");
    QCOMPARE(ui.prompter.shown.back().text,
             std::string("Are you sure to remove 'Cross section area' parameter ?"));
    QCOMPARE(outputs->topLevelItemCount(), 2);
    QCOMPARE(outputs->topLevelItem(0)->text(0), QString("Surface area"));

    outputs->clearSelection();
    ui.Click("btnOutputEdit");
    QCOMPARE(ui.prompter.shown.back().text, std::string("No parameter selected."));
  }
};

int RunParameterPagesTests(int argc, char** argv) {
  ParameterPagesTest test;
  return QTest::qExec(&test, argc, argv);
}

#include "parameter_pages_test.moc"
