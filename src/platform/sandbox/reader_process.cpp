#include "platform/sandbox/reader_process.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/sandbox/model_reader.h"

extern char** environ;

namespace platform::sandbox {
namespace {

[[noreturn]] void Fail(int error, const char* what) {
  throw std::system_error(error, std::generic_category(), what);
}

// posix_spawn's attributes and file actions, released whatever happens.
struct SpawnSetup {
  SpawnSetup() {
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_init(&actions);
  }
  ~SpawnSetup() {
    posix_spawn_file_actions_destroy(&actions);
    posix_spawnattr_destroy(&attributes);
  }
  posix_spawnattr_t attributes;
  posix_spawn_file_actions_t actions;
};

}  // namespace

ReaderProcess::ReaderProcess(const ReaderCommand& command) {
  int ends[2];
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
    Fail(errno, "no socket for the model reader");
  }
  channel_ = ends[0];
  // Above the reader's descriptor, so that moving it there always clears close-on-exec.
  const int readerEnd = ::fcntl(ends[1], F_DUPFD_CLOEXEC, kReaderChannel + 1);
  ::close(ends[1]);
  if (readerEnd < 0) {
    ::close(channel_);
    Fail(errno, "no socket for the model reader");
  }

  SpawnSetup setup;
  sigset_t signals;
  sigemptyset(&signals);
  posix_spawnattr_setsigmask(&setup.attributes, &signals);
  sigfillset(&signals);
  posix_spawnattr_setsigdefault(&setup.attributes, &signals);
  posix_spawnattr_setflags(&setup.attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  posix_spawn_file_actions_addopen(&setup.actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&setup.actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&setup.actions, readerEnd, kReaderChannel);
  posix_spawn_file_actions_addclosefrom_np(&setup.actions, kReaderChannel + 1);

  std::vector<char*> argv;
  argv.push_back(const_cast<char*>(command.program.c_str()));
  for (const std::string& argument : command.arguments) {
    argv.push_back(const_cast<char*>(argument.c_str()));
  }
  argv.push_back(nullptr);
  const int error = ::posix_spawn(&pid_, command.program.c_str(), &setup.actions, &setup.attributes,
                                  argv.data(), environ);
  ::close(readerEnd);
  if (error != 0) {
    pid_ = -1;
    ::close(channel_);
    Fail(error, "the model reader cannot be started");
  }
  ::fcntl(channel_, F_SETFL, ::fcntl(channel_, F_GETFL) | O_NONBLOCK);
}

ReaderProcess::~ReaderProcess() {
  if (pid_ > 0) Kill();
  ::close(channel_);
}

bool ReaderProcess::Send(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t sent = ::send(channel_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

bool ReaderProcess::Receive(std::string& into) {
  char buffer[65536];
  for (;;) {
    const ssize_t got = ::read(channel_, buffer, sizeof buffer);
    if (got > 0) {
      into.append(buffer, static_cast<std::size_t>(got));
    } else if (got < 0 && errno == EINTR) {
      continue;
    } else {
      // Nothing more for now, or the end (an error there is the end too).
      return got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK);
    }
  }
}

ReaderEnd ReaderProcess::Collect() {
  int status = 0;
  rusage usage{};
  while (::wait4(pid_, &status, 0, &usage) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  const std::uint64_t peak = static_cast<std::uint64_t>(usage.ru_maxrss) * 1024;
  if (WIFSIGNALED(status)) return {true, WTERMSIG(status), peak};
  return {false, WEXITSTATUS(status), peak};
}

void ReaderProcess::Kill() {
  ::kill(pid_, SIGKILL);
  Collect();
}

}  // namespace platform::sandbox
