#include "wizard/output_dialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
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

// The caption of string `number`, with the access key of `control` marked.
QString Keyed(int number, const char* control) {
  return ToQt(WithAccessKey(resources::LoadResString(number), AccessKeyOf(control)));
}

QLabel* Label(const char* name, int caption, QWidget* buddy) {
  auto* label = new QLabel(Keyed(caption, name));
  label->setObjectName(name);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

OutputParameterDialog::OutputParameterDialog(FormForwarder forward, QWidget* parent)
    : QDialog(parent), forward_(std::move(forward)) {
  setObjectName(controls::dlgOutput);
  setWindowTitle(ToQt(resources::LoadResString(resources::kOutputDialogCaption)));
  // It blocks the wizard, not the help window, which the user reads beside it.
  setWindowModality(Qt::WindowModal);

  name_ = AddField("edName", OutputField::Name);
  value_ = AddField("edValue", OutputField::Value);
  auto* fields = new QFormLayout;
  fields->addRow(Label(controls::lblName, resources::kNameLabel, name_), name_);
  fields->addRow(Label(controls::lblValue, resources::kValueLabel, value_), value_);

  auto* buttons = new QDialogButtonBox;
  auto* ok = buttons->addButton(Keyed(resources::kOkButton, controls::btnOK),
                                QDialogButtonBox::AcceptRole);
  ok->setObjectName(controls::btnOK);
  auto* cancel = buttons->addButton(Keyed(resources::kCancelButton, controls::btnCancel),
                                    QDialogButtonBox::RejectRole);
  cancel->setObjectName(controls::btnCancel);
  auto* help = buttons->addButton(Keyed(resources::kHelpButton, controls::btnHelp),
                                  QDialogButtonBox::HelpRole);
  help->setObjectName(controls::btnHelp);
  connect(ok, &QPushButton::clicked, this,
          [this] { forward_([](WizardForm& form) { form.Outputs().DialogAccept(); }); });
  connect(cancel, &QPushButton::clicked, this, &OutputParameterDialog::reject);
  // While the dialog is open the form's help is the dialog's topic.
  connect(help, &QPushButton::clicked, this,
          [this] { forward_([](WizardForm& form) { form.Help(); }); });
  PressOnF1(this, help);

  notice_ = NewNoticeLabel("lblStatus");
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(fields);
  layout->addWidget(notice_);
  layout->addSpacing(8);
  layout->addWidget(buttons);
  setMinimumWidth(460);
}

QLineEdit* OutputParameterDialog::AddField(const char* name, OutputField field) {
  auto* edit = new QLineEdit;
  edit->setObjectName(name);
  connect(edit, &QLineEdit::textEdited, this, [this, field](const QString& text) {
    forward_([field, text = FromQt(text)](WizardForm& form) {
      form.Outputs().DialogEdited(field, text);
    });
  });
  return edit;
}

void OutputParameterDialog::Show(const OutputDialog& state) {
  if (!state.shown) {
    QDialog::accept();  // the page closed it, by OK or by Cancel
    return;
  }
  const QString name = ToQt(state.edName);
  if (name_->text() != name) name_->setText(name);
  const QString value = ToQt(state.edValue);
  if (value_->text() != value) value_->setText(value);
  ShowNotice(*notice_, {state.notice});
  if (state.nameSelected && !isVisible()) {  // ready to be typed over when it opens
    name_->setFocus(Qt::OtherFocusReason);
    name_->selectAll();
  }
}

void OutputParameterDialog::reject() {
  forward_([](WizardForm& form) { form.Outputs().DialogCancel(); });
  // Without a form to ask, the dialog simply closes.
  if (isVisible()) QDialog::reject();
}

}  // namespace wizard
