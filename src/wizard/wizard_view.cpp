#include "wizard/wizard_view.h"

#include <QApplication>
#include <utility>

#include "wizard/browse_dialog.h"

namespace wizard {

QtWizardView::QtWizardView(WizardForm& form, const platform::FileSystem& fs)
    : fs_(fs), window_(new WizardWindow(form, fs)) {}

QtWizardView::~QtWizardView() {
  SetBusy(false);
  if (window_) {
    window_->Detach();
    window_->hide();
    window_->deleteLater();
  }
}

void QtWizardView::ShowForm() {
  // Back where it was hidden: window managers place a window shown again by its frame.
  if (!hiddenAt_.isEmpty()) window_->restoreGeometry(std::exchange(hiddenAt_, {}));
  window_->show();
  window_->raise();
  window_->activateWindow();
}

void QtWizardView::HideForm() {
  if (window_->isVisible()) hiddenAt_ = window_->saveGeometry();
  window_->hide();
}

void QtWizardView::ShowLaunchNotice(const std::string& caption, const std::string& text) {
  launch_ = std::make_unique<LaunchNotice>(caption, text);
  launch_->ShowNow();
}

void QtWizardView::HideLaunchNotice() { launch_.reset(); }

void QtWizardView::SetBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

void QtWizardView::FocusControl(std::string_view control) { window_->FocusControl(control); }

void QtWizardView::Repaint() { window_->ApplyState(); }

std::optional<std::string> QtWizardView::AskSaveFile(const FileDialogSetup& setup) {
  return wizard::AskSaveFile(window_, setup, fs_);
}

}  // namespace wizard
