#pragma once
// How the window waits for a basic model's reader: its one thread runs a local event loop
// on the reader's socket, so that the window keeps painting, and the busy notice
// (ModelReadNotice) offers Cancel once the read has taken half a second.
#include "platform/model_read_wait.h"

namespace wizard {

class WindowModelReadWait : public platform::ModelReadWait {
 public:
  Outcome Watch(int descriptor, Deadline deadline, std::string_view model,
                const std::function<bool()>& readable) override;
};

}  // namespace wizard
