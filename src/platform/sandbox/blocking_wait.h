#pragma once
// Waiting for a model reader as the commands wait: the program does nothing else meanwhile.
#include "platform/model_read_wait.h"

namespace platform::sandbox {

// Waits with poll(); a read is never cancelled.
class BlockingWait : public ModelReadWait {
 public:
  Outcome Watch(int descriptor, Deadline deadline, std::string_view model,
                const std::function<bool()>& readable) override;
};

}  // namespace platform::sandbox
