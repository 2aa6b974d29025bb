#pragma once
// A basic model's reader as a process of its own (Linux: posix_spawn, a socket pair).
#include <sys/types.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace platform::sandbox {

// The program that reads models and the arguments that make it a reader.
struct ReaderCommand {
  std::string program;
  std::vector<std::string> arguments;
};

// How a reader ended.
struct ReaderEnd {
  bool signalled = false;  // stopped by signal `code`; else exited with status `code`
  int code = 0;
  std::uint64_t peakMemory = 0;  // the most memory it held at once, in bytes
};

class ReaderProcess {
 public:
  // Starts the program, not a copy of this process: it inherits the environment and the
  // standard error, reads standard input from and writes standard output to /dev/null,
  // and has one end of a socket pair as descriptor 3; nothing else is inherited. Throws
  // std::system_error when it cannot be started.
  explicit ReaderProcess(const ReaderCommand& command);
  // Kills a reader that is still running and collects it.
  ~ReaderProcess();
  ReaderProcess(const ReaderProcess&) = delete;
  ReaderProcess& operator=(const ReaderProcess&) = delete;

  // The program's end of the socket, never blocking.
  int Channel() const { return channel_; }
  // Sends all of `bytes` (small: they fit the socket's buffer); false when the reader
  // has closed its end.
  bool Send(std::string_view bytes);
  // Appends what the socket holds now to `into`; false once the reader's end is closed
  // and everything was read.
  bool Receive(std::string& into);
  // Waits until the reader has ended (after its end of the socket closed) and says how.
  ReaderEnd Collect();
  // Ends the reader at once (SIGKILL) and collects it.
  void Kill();

 private:
  pid_t pid_ = -1;  // -1 once collected
  int channel_ = -1;
};

}  // namespace platform::sandbox
