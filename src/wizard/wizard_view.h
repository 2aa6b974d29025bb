#pragma once
// The form's view on Qt: the wizard window, the start-up notice and the busy pointer.
#include <QPointer>
#include <memory>

#include "platform/file_system.h"
#include "wizard/launch_notice.h"
#include "wizard/model/wizard_form.h"
#include "wizard/wizard_window.h"

namespace wizard {

class QtWizardView : public WizardView {
 public:
  // Creates the (hidden) window of `form`.
  QtWizardView(WizardForm& form, const platform::FileSystem& fs);
  // The form unloads: the window stops forwarding, hides, and is deleted by the event
  // loop (this may run inside one of the window's own handlers).
  ~QtWizardView() override;

  void ShowForm() override;
  void HideForm() override;
  void ShowLaunchNotice(const std::string& caption, const std::string& text) override;
  void HideLaunchNotice() override;
  void SetBusy(bool busy) override;
  void FocusControl(std::string_view control) override;
  void Repaint() override;
  std::optional<std::string> AskSaveFile(const FileDialogSetup& setup) override;

  WizardWindow* Window() const { return window_; }

 private:
  const platform::FileSystem& fs_;
  QPointer<WizardWindow> window_;
  QByteArray hiddenAt_;  // where HideForm found the window; empty while it is shown
  std::unique_ptr<LaunchNotice> launch_;
  bool busy_ = false;
};

}  // namespace wizard
