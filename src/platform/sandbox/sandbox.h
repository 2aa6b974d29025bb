#pragma once
// The sandbox a basic model's reader enters before it opens the model file (Linux: a
// seccomp filter through libseccomp, and resource limits).
#include <cstdint>

namespace platform::sandbox {

// From here on the process cannot start programs (execve, execveat), make processes (fork,
// vfork, clone other than a thread's), open files for writing or create them, rename,
// link or truncate files, make folders or device nodes, or open sockets; reading files
// stays allowed. An attempt at a command kills the process with SIGSYS; any other
// attempt writes the "forbidden" answer of reader_pipe.h to `answerChannel` and ends the
// process at once, as does an allocation beyond `memoryLimit` bytes of address space with
// the "memory" answer. The process dies with
// its parent and never leaves a core file. Removing a file or folder fails (EPERM) without
// ending it. Throws std::system_error when the sandbox
// cannot be entered; then nothing may be read.
void EnterSandbox(int answerChannel, std::uint64_t memoryLimit);

}  // namespace platform::sandbox
