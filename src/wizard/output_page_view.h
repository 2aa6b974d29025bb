#pragma once
// Page 6's controls: lvOutput (the chosen outputs), "<", lvStandard (the quantities the
// problem type offers), "Add custom", "Edit", "Remove", and the double-clicks on both
// lists. Everything goes to the form's OutputPage; what is shown is read back from it.
#include <QWidget>
#include <optional>

#include "wizard/form_forwarder.h"
#include "wizard/output_dialog.h"
#include "wizard/modal_dialog.h"
#include "wizard/model/output_page.h"

class QTreeWidget;

namespace wizard {

class OutputPageView : public QWidget {
  Q_OBJECT

 public:
  explicit OutputPageView(QWidget* parent = nullptr);

  // From now on the user's actions go through `forward`.
  void Connect(FormForwarder forward);
  // Shows the form's lvOutput, lvStandard and dialog. A dialog the page has opened is run
  // (modally) once the action that opened it has been shown.
  void Show(WizardForm& form);
  // Room for lvStandard's longest description and for lvOutput's description and
  // expression side by side.
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void SizeColumns();
  void Do(const std::function<void(OutputPage&)>& action);
  void ForwardSelection(QTreeWidget* view, session::ListView session::FormState::*list);

  FormForwarder forward_;
  QTreeWidget* outputs_;   // lvOutput
  QTreeWidget* standard_;  // lvStandard
  bool showing_ = false;   // Show sets the selections: that is not the user's doing
  // lvOutput's width for the longest standard description and expression side by side.
  int wantedOutputsWidth_ = 0;
  ModalDialog<OutputParameterDialog, OutputDialog> dialog_;
};

}  // namespace wizard
