#pragma once
// dlgOutput, "Custom output parameter": the name and value of one output. It shows the
// OutputPage's dialog state and forwards every keystroke and button to the page.
#include <QDialog>

#include "wizard/form_forwarder.h"
#include "wizard/model/output_page.h"

class QLabel;
class QLineEdit;

namespace wizard {

class OutputParameterDialog : public QDialog {
  Q_OBJECT

 public:
  OutputParameterDialog(FormForwarder forward, QWidget* parent);

  // Shows the page's dialog state; a state that is no longer shown closes the dialog.
  void Show(const OutputDialog& state);

 protected:
  // Escape and the close box cancel through the page.
  void reject() override;

 private:
  QLineEdit* AddField(const char* name, OutputField field);

  FormForwarder forward_;
  QLineEdit* name_ = nullptr;
  QLineEdit* value_ = nullptr;
  QLabel* notice_ = nullptr;  // characters the code page cannot hold
};

}  // namespace wizard
