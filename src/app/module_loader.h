#pragma once
// Loads the program's modules (module_entries.h) the first time they are needed.
#include <filesystem>
#include <stdexcept>
#include <string_view>

namespace app {

// A module that cannot be loaded; what() names it, what needed it and why.
class ModuleError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The folder the modules are loaded from: $EOWIZARD_MODULE_DIR when it is set, otherwise
// libexec/eowizard beside the program's bin folder (../libexec/eowizard from the program's own
// folder), which is where they are installed and where the build puts them.
std::filesystem::path ModuleFolder();

// The entry `symbol` of `module` (a file name in ModuleFolder()), loading the module on
// the first call; later calls find it loaded. A module stays loaded until the program
// ends. `need` says what needs the module ("Converting the basic model into code"), for
// the message of the ModuleError thrown when the module or its entry cannot be loaded.
void* LoadModuleEntry(const char* module, const char* symbol, std::string_view need);

template <typename Entry>
Entry ModuleEntry(const char* module, const char* symbol, std::string_view need) {
  return reinterpret_cast<Entry>(LoadModuleEntry(module, symbol, need));
}

}  // namespace app
