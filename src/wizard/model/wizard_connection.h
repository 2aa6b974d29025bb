#pragma once
// The add-in's connection class: the host connects it, it creates the wizard form, shows
// it, and closes it when the wizard or the host asks.
#include <functional>
#include <memory>

#include "platform/dev_environment.h"
#include "platform/prompter.h"
#include "wizard/model/wizard_form.h"

namespace wizard {

class Wizard {
 public:
  // A new, loaded form with its view attached.
  using FormFactory = std::function<std::unique_ptr<WizardForm>()>;

  // `prompter` tells the user about an error while connecting; it must outlive this.
  Wizard(FormFactory makeForm, platform::Prompter& prompter);
  ~Wizard();
  Wizard(const Wizard&) = delete;
  Wizard& operator=(const Wizard&) = delete;

  bool FormDisplayed = false;                      // the wizard form is on view
  platform::DevEnvironment* VBInstance = nullptr;  // the host that connected the add-in

  // Hides the form without closing it.
  void Hide();
  // Starts the wizard: creates the form if there is none, runs its start-up and shows it;
  // a failed start-up unloads the form again (the form has told the user why), so the
  // next Show starts from scratch. An error while creating the form is passed on.
  void Show();
  // Unloads the form. Called by the form itself on Cancel and Finish: the form is gone
  // when this returns.
  void CloseMe();

  // The host connected the add-in: remembers the host and shows the wizard. An error is
  // told to the user; the add-in stays connected.
  void AddinInstance_OnConnection(platform::DevEnvironment* application);
  // The host disconnected the add-in: the form is unloaded without saving anything.
  void AddinInstance_OnDisconnection();

  // The form while one is loaded, nullptr otherwise.
  WizardForm* Form() const { return form_.get(); }

 private:
  FormFactory makeForm_;
  platform::Prompter& prompter_;
  std::unique_ptr<WizardForm> form_;
};

}  // namespace wizard
