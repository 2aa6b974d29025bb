#include "app/module_loader.h"

#include <dlfcn.h>

#include <cstdlib>
#include <string>

#include "platform/posix/program_folder.h"

namespace app {

std::filesystem::path ModuleFolder() {
  if (const char* folder = std::getenv("EOWIZARD_MODULE_DIR"); folder && *folder) return folder;
  return (platform::ProgramFolder() / ".." / "lib" / "eowizard").lexically_normal();
}

void* LoadModuleEntry(const char* module, const char* symbol, std::string_view need) {
  const auto fail = [&](const char* reason) -> ModuleError {
    return ModuleError(std::string(need) + " needs the module " + module +
                       ", which cannot be loaded: " + (reason ? reason : "unknown reason"));
  };
  const std::filesystem::path file = ModuleFolder() / module;
  // Lazy binding: Gmsh's hundred libraries would otherwise all be bound up front.
  void* handle = ::dlopen(file.c_str(), RTLD_LAZY | RTLD_LOCAL);
  if (handle == nullptr) throw fail(::dlerror());
  void* entry = ::dlsym(handle, symbol);
  if (entry == nullptr) throw fail(::dlerror());
  return entry;
}

}  // namespace app
