#pragma once
// dlgInput, "Input parameter": the name, variable, unit, limits and type of one input
// parameter. It shows the InputPage's dialog state and forwards every keystroke and
// button to the page; whether OK is enabled is the page's decision.
#include <QDialog>

#include "wizard/form_forwarder.h"
#include "wizard/model/input_page.h"

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;

namespace wizard {

class InputParameterDialog : public QDialog {
  Q_OBJECT

 public:
  InputParameterDialog(FormForwarder forward, QWidget* parent);

  // Shows the page's dialog state: fields, type option, OK enabled. A state that is no
  // longer shown closes the dialog.
  void Show(const InputDialog& state);

 protected:
  // Escape and the close box cancel through the page.
  void reject() override;

 private:
  QLineEdit* AddField(const char* name, InputField field);

  FormForwarder forward_;
  QButtonGroup* types_ = nullptr;
  QPushButton* ok_ = nullptr;
  QLabel* status_ = nullptr;  // why OK is off; characters the code page cannot hold
};

}  // namespace wizard
