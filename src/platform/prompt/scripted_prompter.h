#pragma once
// A prompter for tests: records what is shown and answers from a queue.
#include <deque>
#include <vector>

#include "platform/prompter.h"

namespace platform {

class ScriptedPrompter : public Prompter {
 public:
  // Every message shown, in order.
  std::vector<Message> shown;

  // Queues the answer to the next question.
  void Answer(MsgAnswer answer) { answers_.push_back(answer); }
  // Answers not used yet.
  std::size_t Pending() const { return answers_.size(); }

  // Records the message. An OK box returns OK; a question takes the next queued answer
  // and throws std::logic_error naming the question's text when none is queued.
  MsgAnswer Show(const Message& message) override;

 private:
  std::deque<MsgAnswer> answers_;
};

}  // namespace platform
