#pragma once
// A disk that fills up, for one scope: the process may not grow any file beyond `bytes`
// (RLIMIT_FSIZE), so a write that passes the limit fails as a write to a full disk does.
// SIGXFSZ, which the kernel sends then, is ignored so that the write just fails.
#include <csignal>

#include <sys/resource.h>

namespace hardening {

class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    getrlimit(RLIMIT_FSIZE, &saved_);
    previous_ = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = saved_;
    limit.rlim_cur = bytes;
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &saved_);
    std::signal(SIGXFSZ, previous_);
  }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit saved_{};
  void (*previous_)(int) = nullptr;
};

}  // namespace hardening
