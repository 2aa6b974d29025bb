// Pictures of the input and output parameter pages with a dozen rows each, of the type
// list open over a cell, and of both dialogs.
#include <QComboBox>
#include <QDir>
#include <QTreeWidget>
#include <QtTest>

#include "../page_helpers.h"

namespace {

using wizard::InputField;
using wizard_test::WizardFixture;

struct InputRow {
  const char* name;
  const char* variable;
  int type;  // option of the dialog: 0 geometrical, 1 physical, 2 postprocess
  const char* unit;
  const char* min;
  const char* max;
  const char* value;
};

constexpr InputRow kInputs[] = {
    {"Air gap", "gap", 0, "mm", "0.1", "2", "0.5"},
    {"Pole width", "pole", 0, "mm", "5", "40", "12"},
    {"Yoke height", "yoke", 0, "mm", "4", "30", "10"},
    {"Magnet length", "magnet", 0, "mm", "1", "15", "6"},
    {"Slot opening", "slot", 0, "mm", "0.5", "6", "2"},
    {"Coil current", "current", 1, "A", "0", "50", "10"},
    {"Number of turns", "turns", 1, "", "1", "2000", "400"},
    {"Relative permeability of the core", "mu", 1, "", "100", "10000", "1000"},
    {"Remanence", "br", 1, "T", "0.2", "1.4", "1.1"},
    {"Probe x", "px", 2, "mm", "-50", "50", "0"},
    {"Probe y", "py", 2, "mm", "-50", "50", "10"},
    {"Integration contour radius", "radius", 2, "mm", "1", "100", "25"},
};

void Save(QWidget* window, const QString& name) {
  QVERIFY(QTest::qWaitForWindowExposed(window));
  QVERIFY(window->grab().save(QDir(EOW_SCREENSHOT_DIR).filePath(name)));
}

void AddInputs(wizard::InputPage& page) {
  for (const InputRow& row : kInputs) {
    page.AddClicked();
    page.DialogEdited(InputField::Name, row.name);
    page.DialogEdited(InputField::Variable, row.variable);
    page.DialogTypeChosen(row.type);
    page.DialogEdited(InputField::Unit, row.unit);
    page.DialogEdited(InputField::Min, row.min);
    page.DialogEdited(InputField::Max, row.max);
    page.DialogEdited(InputField::Value, row.value);
    page.DialogAccept();
  }
}

// Ten standard quantities of Magnetostatics and two custom outputs.
void AddOutputs(wizard::WizardForm& form) {
  session::ListView& standard = form.State().lvStandard;
  for (int row : {1, 2, 4, 7, 9, 12, 15, 18, 20, 22}) {
    if (row < standard.Count()) standard.SetSelected(row, true);
  }
  form.Outputs().AddStandardClicked();
  for (const char* name : {"Force on the armature", "Energy per unit length"}) {
    form.Outputs().AddCustomClicked();
    form.Outputs().DialogEdited(wizard::OutputField::Name, name);
    form.Outputs().DialogEdited(wizard::OutputField::Value,
                                "Res.GetIntegral(zxMaxwellForce, Cnt).Abs / 2");
    form.Outputs().DialogAccept();
  }
  standard.SetSelected(3, true);
}

}  // namespace

void SaveParameterPageScreenshots() {
  WizardFixture ui;
  ui.Connect();
  wizard::WizardForm& form = *ui.addIn.Form();
  form.ChoiceChanged(wizard::Choice::Type, 1);
  wizard_test::GoToPage(ui, 5);
  AddInputs(form.Inputs());
  ui.window->ApplyState();
  Save(ui.window, "page5-inputs.png");

  auto* list = ui.Control<QTreeWidget>("lvInput");
  wizard_test::ClickCell(*list, 5, 1);
  Save(ui.window, "page5-type-editor.png");
  QTest::keyClick(ui.Control<QComboBox>("lvCombo"), Qt::Key_Escape);
  wizard_test::ClickCell(*list, 7, 0);
  Save(ui.window, "page5-text-editor.png");
  QTest::keyClick(ui.Control<QLineEdit>("lvEdit"), Qt::Key_Escape);

  auto ran = wizard_test::OnNextDialog([](QDialog& dialog) { Save(&dialog, "dlgInput.png"); });
  ui.Click("btnInputEdit");
  QVERIFY(*ran);

  wizard_test::GoToPage(ui, 6);
  AddOutputs(form);
  ui.window->ApplyState();
  Save(ui.window, "page6-outputs.png");
  ran = wizard_test::OnNextDialog([](QDialog& dialog) { Save(&dialog, "dlgOutput.png"); });
  ui.Click("btnOutputCustom");
  QVERIFY(*ran);
}
