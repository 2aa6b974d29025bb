#include "platform/prompt/scripted_prompter.h"

#include <stdexcept>

namespace platform {

MsgAnswer ScriptedPrompter::Show(const Message& message) {
  shown.push_back(message);
  if (message.buttons == MsgButtons::OK) return MsgAnswer::OK;
  if (answers_.empty()) {
    throw std::logic_error("unexpected question without a queued answer: \"" + message.text +
                           "\"");
  }
  const MsgAnswer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace platform
