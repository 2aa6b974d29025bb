#include "app/module_loader.h"

#include <dlfcn.h>

#include <cstdlib>
#include <string>

#include "platform/posix/program_folder.h"

namespace app {

std::filesystem::path ModuleFolder() {
  if (const char* folder = std::getenv("EOWIZARD_MODULE_DIR"); folder && *folder) return folder;
  return (platform::ProgramFolder() / ".." / "libexec" / "eowizard").lexically_normal();
}

void* LoadModuleEntry(const char* module, const char* symbol, std::string_view need) {
  const auto fail = [&](const char* reason) -> ModuleError {
    return ModuleError(std::string(need) + " needs the module " + module +
                       ", which cannot be loaded: " + (reason ? reason : "unknown reason"));
  };
  const std::filesystem::path file = ModuleFolder() / module;
  // Bound at once, so that a module that does not fit the program fails here, with its
  // name, and not at some later call (it costs no measurable time, Gmsh's libraries
  // included).
  void* handle = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (handle == nullptr) throw fail(::dlerror());
  void* entry = ::dlsym(handle, symbol);
  if (entry == nullptr) throw fail(::dlerror());
  return entry;
}

}  // namespace app
