#include "platform/sandbox/sandbox.h"

#include <fcntl.h>
#include <sched.h>
#include <seccomp.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <new>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/sandbox/reader_pipe.h"

namespace platform::sandbox {
namespace {

// One forbidden call: a system call, and optionally the one argument bit that makes it
// forbidden (an open for writing or creating; a clone that is no thread's).
struct Rule {
  int call;
  Forbidden what;
  int argument = -1;      // -1: the call is forbidden whatever its arguments
  std::uint64_t bit = 0;  // forbidden when (argument & bit) == expected
  std::uint64_t expected = 0;
};

// Each open is forbidden with any of the bits that write, create or truncate.
constexpr std::uint64_t kOpenBits[] = {O_WRONLY, O_RDWR, O_CREAT, O_TRUNC};

std::vector<Rule> Rules() {
  using enum Forbidden;
  std::vector<Rule> rules;
  for (const int call : {SCMP_SYS(execve), SCMP_SYS(execveat), SCMP_SYS(fork), SCMP_SYS(vfork)}) {
    rules.push_back({call, Command});
  }
  rules.push_back({SCMP_SYS(clone), Command, 0, CLONE_THREAD, 0});
  for (const std::uint64_t bit : kOpenBits) {
    rules.push_back({SCMP_SYS(open), File, 1, bit, bit});
    rules.push_back({SCMP_SYS(openat), File, 2, bit, bit});
  }
  for (const int call :
       {SCMP_SYS(creat), SCMP_SYS(open_by_handle_at), SCMP_SYS(rename), SCMP_SYS(renameat),
        SCMP_SYS(renameat2), SCMP_SYS(link), SCMP_SYS(linkat), SCMP_SYS(symlink),
        SCMP_SYS(symlinkat), SCMP_SYS(truncate), SCMP_SYS(ftruncate), SCMP_SYS(fallocate),
        SCMP_SYS(mkdir), SCMP_SYS(mkdirat), SCMP_SYS(mknod), SCMP_SYS(mknodat)}) {
    rules.push_back({call, File});
  }
  rules.push_back({SCMP_SYS(socket), Connection});
  return rules;
}

// Calls whose arguments the filter cannot see are refused as unknown to the kernel, so
// that the C library falls back on the ones above (clone3 on clone, openat2 on openat);
// io_uring, which could open files past the filter, is refused alike.
constexpr int kUnknownCalls[] = {SCMP_SYS(clone3), SCMP_SYS(openat2), SCMP_SYS(io_uring_setup)};
// Removals fail as not permitted, without ending the reader: Gmsh removes its own
// temporary file (~/.gmsh-tmp) whenever it clears its model, and no model command removes
// a file. Nothing is removed either way.
constexpr int kRemovals[] = {SCMP_SYS(unlink), SCMP_SYS(unlinkat), SCMP_SYS(rmdir)};

#ifdef __SANITIZE_ADDRESS__
// AddressSanitizer has terabytes of shadow memory mapped from the start: under an
// address-space limit its every allocation would fail, so its builds go without one.
constexpr bool kLimitAddressSpace = false;
#else
constexpr bool kLimitAddressSpace = true;
#endif

// What the signal handlers need, set before the filter is loaded.
int answerChannel = -1;
const std::vector<Rule>* rules = nullptr;

void WriteAll(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(answerChannel, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

// The filter traps a forbidden file or socket call here: the program learns what was
// tried, and the reader ends before it reads anything more. (The C library blocks every
// signal while it starts a program, so a command would not get here: the filter kills the
// reader with SIGSYS instead, which tells the program as much.)
void OnForbiddenCall(int, siginfo_t* info, void*) {
  Forbidden what = Forbidden::File;
  for (const Rule& rule : *rules) {
    if (rule.call == info->si_syscall) what = rule.what;
  }
  WriteAll(ForbiddenFrame(what));
  ::_exit(125);
}

void OnMemoryExhausted() {
  WriteAll(kMemoryFrame);
  ::_exit(125);
}

[[noreturn]] void Fail(int error, const char* what) {
  throw std::system_error(error, std::generic_category(), what);
}

void Limit(int resource, rlim_t value, const char* what) {
  const rlimit limit{value, value};
  if (::setrlimit(resource, &limit) != 0) Fail(errno, what);
}

}  // namespace

void EnterSandbox(int channel, std::uint64_t memoryLimit) {
  static const std::vector<Rule> ruleList = Rules();
  answerChannel = channel;
  rules = &ruleList;

  if (::prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) Fail(errno, "the reader cannot die with its parent");
  Limit(RLIMIT_CORE, 0, "core files cannot be turned off");
  if (kLimitAddressSpace) {
    Limit(RLIMIT_AS, static_cast<rlim_t>(memoryLimit), "the memory limit cannot be set");
  }
  std::set_new_handler(OnMemoryExhausted);
  struct sigaction trap {};
  trap.sa_sigaction = OnForbiddenCall;
  trap.sa_flags = SA_SIGINFO;
  sigemptyset(&trap.sa_mask);
  if (::sigaction(SIGSYS, &trap, nullptr) != 0) Fail(errno, "forbidden calls cannot be caught");

  const std::unique_ptr<void, decltype(&seccomp_release)> filter(seccomp_init(SCMP_ACT_ALLOW),
                                                                 seccomp_release);
  if (!filter) Fail(ENOMEM, "the system call filter cannot be made");
  // Every thread of the process, Gmsh's included, is filtered alike.
  int error = seccomp_attr_set(filter.get(), SCMP_FLTATR_CTL_TSYNC, 1);
  for (const Rule& rule : ruleList) {
    if (error != 0) break;
    const std::uint32_t action =
        rule.what == Forbidden::Command ? SCMP_ACT_KILL_PROCESS : SCMP_ACT_TRAP;
    if (rule.argument < 0) {
      error = seccomp_rule_add(filter.get(), action, rule.call, 0);
    } else {
      const scmp_arg_cmp compare{static_cast<unsigned>(rule.argument), SCMP_CMP_MASKED_EQ, rule.bit,
                                 rule.expected};
      error = seccomp_rule_add_array(filter.get(), action, rule.call, 1, &compare);
    }
  }
  for (const int call : kUnknownCalls) {
    if (error == 0) error = seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(ENOSYS), call, 0);
  }
  for (const int call : kRemovals) {
    if (error == 0) error = seccomp_rule_add(filter.get(), SCMP_ACT_ERRNO(EPERM), call, 0);
  }
  if (error == 0) error = seccomp_load(filter.get());
  if (error != 0) Fail(-error, "the system call filter cannot be loaded");
}

}  // namespace platform::sandbox
