#include "platform/posix/program_folder.h"

#include <cstdlib>
#include <system_error>

namespace platform {

std::filesystem::path ProgramFolder() {
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return std::filesystem::current_path(ec);
  return exe.parent_path();
}

std::filesystem::path InstalledDataFolder() {
  return ProgramFolder().parent_path() / "share" / "eowizard";
}

std::filesystem::path UserDataFolder() {
  const char* dataHome = std::getenv("XDG_DATA_HOME");
  if (dataHome && std::filesystem::path(dataHome).is_absolute()) {
    return std::filesystem::path(dataHome) / "eowizard";
  }
  const char* home = std::getenv("HOME");
  return std::filesystem::path(home ? home : "") / ".local" / "share" / "eowizard";
}

}  // namespace platform
