#include "wizard/input_dialog.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "resources/string_ids.h"
#include "resources/string_table.h"
#include "wizard/help_window.h"
#include "wizard/model/access_keys.h"
#include "wizard/model/control_names.h"
#include "wizard/notice_label.h"
#include "wizard/qt_text.h"

namespace wizard {
namespace {

using resources::LoadResString;

// The caption of string `number`, with the access key of `control` marked.
QString Keyed(int number, const char* control) {
  return ToQt(WithAccessKey(LoadResString(number), AccessKeyOf(control)));
}

struct FieldRow {
  const char* name;
  InputField field;
  const char* labelName;
  int label;
};
constexpr FieldRow kFields[] = {
    {"edName", InputField::Name, controls::lblName, resources::kNameLabel},
    {"edVariable", InputField::Variable, controls::lblVariable, resources::kVariableLabel},
    {"edUnit", InputField::Unit, controls::lblUnit, resources::kUnitLabel},
    {"edMin", InputField::Min, controls::lblMin, resources::kMinLabel},
    {"edMax", InputField::Max, controls::lblMax, resources::kMaxLabel},
    {"edValue", InputField::Value, controls::lblDefault, resources::kDefaultValueLabel},
};

// The option buttons of grpType, in the page's option order.
constexpr const char* kOptions[] = {controls::optGeom, controls::optPhys, controls::optPost};
constexpr int kOptionCaptions[] = {resources::kTypeGeometrical, resources::kTypePhysical,
                                   resources::kTypePostprocess};

std::string InputDialog::*TextOf(InputField field) {
  switch (field) {
    case InputField::Name: return &InputDialog::edName;
    case InputField::Variable: return &InputDialog::edVariable;
    case InputField::Unit: return &InputDialog::edUnit;
    case InputField::Min: return &InputDialog::edMin;
    case InputField::Max: return &InputDialog::edMax;
    case InputField::Value: break;
  }
  return &InputDialog::edValue;
}

}  // namespace

InputParameterDialog::InputParameterDialog(FormForwarder forward, QWidget* parent)
    : QDialog(parent), forward_(std::move(forward)) {
  setObjectName(controls::dlgInput);
  setWindowTitle(ToQt(LoadResString(resources::kInputDialogCaption)));
  // It blocks the wizard, not the help window, which the user reads beside it.
  setWindowModality(Qt::WindowModal);

  auto* fields = new QFormLayout;
  for (const FieldRow& row : kFields) {
    auto* label = new QLabel(Keyed(row.label, row.labelName));
    label->setObjectName(row.labelName);
    QLineEdit* edit = AddField(row.name, row.field);
    label->setBuddy(edit);
    fields->addRow(label, edit);
  }

  auto* group = new QGroupBox(Keyed(resources::kTypeGroupCaption, controls::grpType));
  group->setObjectName(controls::grpType);
  auto* options = new QVBoxLayout(group);
  types_ = new QButtonGroup(this);
  for (int option = 0; option < 3; ++option) {
    auto* button = new QRadioButton(Keyed(kOptionCaptions[option], kOptions[option]));
    button->setObjectName(kOptions[option]);
    types_->addButton(button, option);
    options->addWidget(button);
  }
  options->addStretch();
  connect(types_, &QButtonGroup::idClicked, this, [this](int option) {
    forward_([option](WizardForm& form) { form.Inputs().DialogTypeChosen(option); });
  });

  auto* buttons = new QDialogButtonBox;
  ok_ = buttons->addButton(Keyed(resources::kOkButton, controls::btnOK),
                           QDialogButtonBox::AcceptRole);
  ok_->setObjectName(controls::btnOK);
  auto* cancel = buttons->addButton(Keyed(resources::kCancelButton, controls::btnCancel),
                                    QDialogButtonBox::RejectRole);
  cancel->setObjectName(controls::btnCancel);
  auto* help = buttons->addButton(Keyed(resources::kHelpButton, controls::btnHelp),
                                  QDialogButtonBox::HelpRole);
  help->setObjectName(controls::btnHelp);
  connect(ok_, &QPushButton::clicked, this,
          [this] { forward_([](WizardForm& form) { form.Inputs().DialogAccept(); }); });
  connect(cancel, &QPushButton::clicked, this, &InputParameterDialog::reject);
  // While the dialog is open the form's help is the dialog's section of the page's topic.
  connect(help, &QPushButton::clicked, this,
          [this] { forward_([](WizardForm& form) { form.Help(); }); });
  PressOnF1(this, help);

  auto* top = new QHBoxLayout;
  top->addLayout(fields, 1);
  top->addSpacing(12);
  top->addWidget(group);
  // Under the fields: why OK is off, and what the code page would lose.
  status_ = NewNoticeLabel("lblStatus");
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(status_);
  layout->addSpacing(8);
  layout->addWidget(buttons);
  setMinimumWidth(520);
}

QLineEdit* InputParameterDialog::AddField(const char* name, InputField field) {
  auto* edit = new QLineEdit;
  edit->setObjectName(name);
  connect(edit, &QLineEdit::textEdited, this, [this, field](const QString& text) {
    forward_([field, text = FromQt(text)](WizardForm& form) {
      form.Inputs().DialogEdited(field, text);
    });
  });
  return edit;
}

void InputParameterDialog::Show(const InputDialog& state) {
  if (!state.shown) {
    QDialog::accept();  // the page closed it, by OK or by Cancel
    return;
  }
  for (const FieldRow& row : kFields) {
    auto* edit = findChild<QLineEdit*>(row.name);
    const QString text = ToQt(state.*TextOf(row.field));
    if (edit->text() == text) continue;
    edit->setText(text);
    if (!isVisible()) edit->setCursorPosition(0);  // a long text opens at its start
  }
  // No option is checked for a type the dialog does not offer.
  types_->setExclusive(false);
  for (QAbstractButton* button : types_->buttons())
    button->setChecked(types_->id(button) == state.typeOption);
  types_->setExclusive(true);
  ok_->setEnabled(state.okEnabled);
  ShowNotice(*status_, {state.reason, state.notice});
  if (state.focus) {  // a limit that OK refused, ready to be typed over
    for (const FieldRow& row : kFields) {
      if (row.field != *state.focus) continue;
      auto* edit = findChild<QLineEdit*>(row.name);
      edit->setFocus(Qt::OtherFocusReason);
      edit->selectAll();
    }
  }
}

void InputParameterDialog::reject() {
  forward_([](WizardForm& form) { form.Inputs().DialogCancel(); });
  // Without a form to ask, the dialog simply closes.
  if (isVisible()) QDialog::reject();
}

}  // namespace wizard
