#pragma once
// The wizard as the window's host runs it: the add-in, the services of its form and the
// development environment it is connected with.
#include <memory>
#include <string>

#include "app/module_entries.h"
#include "platform/prompt/console_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "wizard/chm_help_viewer.h"
#include "wizard/model/wizard_connection.h"
#include "wizard/model_read_window.h"

namespace app {

// Questions answered as on the command line (--answer), each noted on standard error;
// every other message goes to the boxes.
class AnsweredQuestions : public platform::Prompter {
 public:
  AnsweredQuestions(platform::Prompter& boxes, platform::MsgAnswer answer);
  platform::MsgAnswer Show(const platform::Message& message) override;

 private:
  platform::Prompter& boxes_;
  platform::ConsolePrompter console_;
};

class WizardHost {
 public:
  // `start` and `boxes` (the message boxes) must outlive the host. Nothing starts yet.
  WizardHost(const WindowStart& start, platform::Prompter& boxes);
  WizardHost(const WizardHost&) = delete;
  WizardHost& operator=(const WizardHost&) = delete;

  // Connects the add-in: the wizard starts (launch notice, analysis application) and
  // shows its window; then the start's session file, if any, is loaded as if typed into
  // the session-file field. False when the wizard did not start (it told the user why).
  // The window's closing quits the application's event loop.
  bool Connect();
  // Disconnects the add-in: a wizard still open is unloaded without questions.
  void Disconnect() { addIn_.AddinInstance_OnDisconnection(); }

  wizard::Wizard& AddIn() { return addIn_; }

 private:
  const WindowStart& start_;
  std::unique_ptr<AnsweredQuestions> answered_;
  platform::Prompter& prompter_;
  platform::VbFilesEnvironment environment_;
  wizard::ChmHelpViewer help_;
  wizard::WindowModelReadWait modelReadWait_;
  wizard::FormServices services_;
  wizard::Wizard addIn_;
};

}  // namespace app
