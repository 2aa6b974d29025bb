#include "wizard/model/wizard_connection.h"

#include <exception>
#include <utility>

#include "vbrt/error.h"

namespace wizard {

Wizard::Wizard(FormFactory makeForm, platform::Prompter& prompter)
    : makeForm_(std::move(makeForm)), prompter_(prompter) {}

Wizard::~Wizard() = default;

void Wizard::Hide() {
  FormDisplayed = false;
  if (form_) form_->HideForm();
}

void Wizard::Show() {
  if (!form_) form_ = makeForm_();
  form_->VBI = VBInstance;
  form_->AddIn = this;
  // The start-up tells the user itself why it failed; nothing more is said here.
  if (form_->InitWizard()) {
    FormDisplayed = true;
    form_->ShowForm();
  } else {
    CloseMe();
  }
}

void Wizard::CloseMe() {
  FormDisplayed = false;
  form_.reset();
}

void Wizard::AddinInstance_OnConnection(platform::DevEnvironment* application) {
  try {
    VBInstance = application;
    Show();
  } catch (const vbrt::VbError& e) {
    prompter_.Show({e.Description(), platform::MsgButtons::OK, platform::MsgIcon::None, ""});
  } catch (const std::exception& e) {
    prompter_.Show({e.what(), platform::MsgButtons::OK, platform::MsgIcon::None, ""});
  }
}

void Wizard::AddinInstance_OnDisconnection() { CloseMe(); }

}  // namespace wizard
