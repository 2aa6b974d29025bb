#pragma once
// How the program waits while a basic model is read in a process of its own: the commands
// simply wait; the window keeps handling its events and offers to cancel a long read.
#include <chrono>
#include <functional>
#include <string_view>

namespace platform {

class ModelReadWait {
 public:
  using Deadline = std::chrono::steady_clock::time_point;
  enum class Outcome { Done, TimeUp, Cancelled };

  virtual ~ModelReadWait() = default;

  // Calls `readable` each time `descriptor` (a file descriptor on this platform) can be
  // read, its end included, until `readable` returns true: Done. TimeUp when `deadline`
  // passes first; Cancelled when the user cancels the read. `model` names the file being
  // read, for a notice; it is empty while the application starts for the program's
  // start-up, which has a notice of its own and cannot be cancelled.
  virtual Outcome Watch(int descriptor, Deadline deadline, std::string_view model,
                        const std::function<bool()>& readable) = 0;
};

}  // namespace platform
