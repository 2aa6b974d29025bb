#pragma once
// Where the running program's own file lives.
#include <filesystem>

namespace platform {

// The folder that holds the running program's executable (from /proc/self/exe); the
// current folder if the link cannot be read.
std::filesystem::path ProgramFolder();

// The folder of the program's installed data: <prefix>/share/eowizard for a program in
// <prefix>/bin, wherever that prefix lies (an unpacked package too). It may not exist.
std::filesystem::path InstalledDataFolder();

// The user's own data folder of this program: $XDG_DATA_HOME/eowizard, or
// ~/.local/share/eowizard when XDG_DATA_HOME is unset or not absolute. Nothing is created.
std::filesystem::path UserDataFolder();

}  // namespace platform
