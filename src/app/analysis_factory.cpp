// The analysis application used on this platform, from its module.
#include <iostream>

#include "app/commands.h"
#include "app/module_entries.h"
#include "app/module_loader.h"
#include "vbrt/error.h"

namespace app {

std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication(std::string_view need) {
  try {
    const auto create = ModuleEntry<AnalysisEntry>(kAnalysisModule, kAnalysisEntry, need);
    return std::unique_ptr<platform::AnalysisApplication>(create());
  } catch (const ModuleError& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
  } catch (const vbrt::VbError& e) {
    std::cerr << "eowizard: " << e.Description() << "\n";
  }
  return nullptr;  // the caller reports the failed launch in its own words
}

}  // namespace app
