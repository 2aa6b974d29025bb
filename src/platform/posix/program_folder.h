#pragma once
// Where the running program's own file lives.
#include <filesystem>

namespace platform {

// The folder that holds the running program's executable (from /proc/self/exe); the
// current folder if the link cannot be read.
std::filesystem::path ProgramFolder();

}  // namespace platform
