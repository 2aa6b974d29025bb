#include "platform/sandbox/blocking_wait.h"

#include <poll.h>

#include <algorithm>
#include <cerrno>

namespace platform::sandbox {

ModelReadWait::Outcome BlockingWait::Watch(int descriptor, Deadline deadline, std::string_view,
                                           const std::function<bool()>& readable) {
  using namespace std::chrono;
  for (;;) {
    const auto left = duration_cast<milliseconds>(deadline - steady_clock::now());
    if (left.count() <= 0) return Outcome::TimeUp;
    pollfd watched{descriptor, POLLIN, 0};
    // Rounded up, so that the wait does not end a moment before the deadline.
    const int ready = ::poll(
        &watched, 1, static_cast<int>(std::min<milliseconds::rep>(left.count() + 1, 60'000)));
    if (ready < 0 && errno == EINTR) continue;
    // A descriptor that poll() refuses fails its read too, which ends the wait.
    if (ready != 0 && readable()) return Outcome::Done;
  }
}

}  // namespace platform::sandbox
