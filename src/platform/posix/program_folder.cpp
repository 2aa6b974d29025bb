#include "platform/posix/program_folder.h"

#include <system_error>

namespace platform {

std::filesystem::path ProgramFolder() {
  std::error_code ec;
  const std::filesystem::path exe = std::filesystem::read_symlink("/proc/self/exe", ec);
  if (ec) return std::filesystem::current_path(ec);
  return exe.parent_path();
}

}  // namespace platform
