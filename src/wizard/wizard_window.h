#pragma once
// The wizard's window: the eight pages stacked above Help, Cancel, Back, Next and
// Finish. It shows the state of its WizardForm and forwards what the user does to it;
// every decision (what is enabled, what is checked, what is asked) is the form's.
#include <QDialog>
#include <string_view>

#include "platform/file_system.h"
#include "wizard/model/wizard_form.h"

class QAbstractButton;
class QStackedWidget;

namespace wizard {

class WizardWindow : public QDialog {
  Q_OBJECT

 public:
  // `form` and `fs` must outlive the window or Detach it first.
  WizardWindow(WizardForm& form, const platform::FileSystem& fs);

  // Shows the form's state: page, captions, texts, choices, lists, buttons, tab order.
  void ApplyState();
  // Puts the keyboard focus into the control of that name.
  void FocusControl(std::string_view control);
  // The form is unloading: from now on nothing is shown or forwarded.
  void Detach() { form_ = nullptr; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  // Escape and the window's close box ask as Cancel does.
  void reject() override;

 private:
  void BuildButtons(QWidget* bar);
  void ConnectFields();
  void ApplyCaptions();
  void ApplyFields();
  void ApplyLists();
  void ApplyButtons();
  void ApplyFinishPage();
  // Runs `action` on the form, then shows the state unless the form is gone.
  template <typename Action>
  void Forward(Action action);
  void Browse(wizard::Browse button);
  // "Create sketch file now": the form draws the sketch, the save dialog names its file.
  void CreateSketch();
  void FieldLeft(Field field);
  QAbstractButton* ButtonOf(Button button) const;

  WizardForm* form_;
  const platform::FileSystem& fs_;
  QStackedWidget* pages_ = nullptr;
  bool applying_ = false;  // ApplyState is moving widgets: focus changes are not the user's
};

}  // namespace wizard
