// `eowizard internal-model-reader NEED`, hidden: the program as a basic model's reader,
// started by the program itself (ModelReaderCommand). Only here is the analysis module
// loaded, so that Gmsh never runs in the process that the user works with.
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/module_entries.h"
#include "app/module_loader.h"
#include "platform/sandbox/model_reader.h"
#include "vbrt/error.h"

namespace app {
namespace {

int ServeModelRead(const std::string& need) {
  std::unique_ptr<platform::AnalysisApplication> application;
  try {
    const auto create = ModuleEntry<AnalysisEntry>(kAnalysisModule, kAnalysisEntry, need);
    application.reset(create());
  } catch (const ModuleError& e) {
    return platform::sandbox::RefuseToServe(e.what());
  } catch (const vbrt::VbError& e) {
    return platform::sandbox::RefuseToServe(e.Description());
  }
  return platform::sandbox::ServeOneRead(*application);
}

}  // namespace

void AddModelReaderCommand(CLI::App& cli, int& exitCode) {
  auto need = std::make_shared<std::string>();
  CLI::App* reader = cli.add_subcommand(kModelReaderCommand, "");
  reader->group("");  // not for users: not in the help
  reader->add_option("NEED", *need)->required();
  reader->callback([need, &exitCode] { exitCode = ServeModelRead(*need); });
}

}  // namespace app
