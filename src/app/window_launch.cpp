// eowizard without a command: the window, loaded from its module only now, so that the
// commands never pay for the toolkit.
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>

#include "app/commands.h"
#include "app/module_entries.h"
#include "app/module_loader.h"

namespace app {

int RunWizardWindow(int& argc, char** argv, const std::string& sessionFile,
                    const ServiceOptions& options,
                    const platform::sandbox::ReaderLimits& modelLimits) {
  std::optional<SharedServices> services;
  try {
    services.emplace(options);
  } catch (const std::exception& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 2;
  }
  // Without any display the toolkit would abort; say what to do instead.
  if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr &&
      std::getenv("QT_QPA_PLATFORM") == nullptr) {
    std::cerr << "eowizard: no display to open the wizard window on; the subcommands work "
                 "without one (see eowizard --help)\n";
    return 1;
  }
  WindowEntry run = nullptr;
  try {
    run = ModuleEntry<WindowEntry>(kWindowModule, kWindowEntry, "The wizard window");
  } catch (const ModuleError& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
    return 1;
  }
  return run({argc, argv, sessionFile, services->fs, services->registry, services->answer,
              [modelLimits](platform::ModelReadWait& wait) {
                return CreateAnalysisApplication("The wizard's start-up", modelLimits, &wait);
              },
              GenerationMerger});
}

}  // namespace app
