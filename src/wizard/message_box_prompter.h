#pragma once
// Message boxes of the window front end.
#include <QString>

#include "platform/prompter.h"

namespace wizard {

class MessageBoxPrompter : public platform::Prompter {
 public:
  // `defaultTitle` titles a message that brings no title of its own.
  explicit MessageBoxPrompter(QString defaultTitle) : defaultTitle_(std::move(defaultTitle)) {}

  // A modal box over the active window; Escape answers No (Yes/No) or Cancel. A box that
  // offers Merge shows it as its first button and its default.
  platform::MsgAnswer Show(const platform::Message& message) override;

 private:
  QString defaultTitle_;
};

}  // namespace wizard
