// `eowizard model show FILE [--svg OUT.svg]`: the basic model as the generator sees it.
#include <fmt/format.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/model_preview.h"
#include "vbrt/error.h"

namespace app {
namespace {

struct ShowOptions {
  std::string file;
  std::string svg;
  platform::sandbox::ReaderLimits limits;
};

int ShowModel(const ShowOptions& options) {
  const auto application = CreateAnalysisApplication("Showing a basic model", options.limits);
  if (!application) {
    std::cerr << "eowizard: the analysis application cannot be started\n";
    return 1;
  }
  try {
    const auto model = application->OpenModel(options.file);
    WriteModelListing(std::cout, options.file, *model);
    if (!options.svg.empty()) {
      std::ofstream out(options.svg, std::ios::binary);
      WriteModelSvg(out, *model);
      out.close();
      if (!out) {
        std::cerr << fmt::format("eowizard: cannot write '{}'\n", options.svg);
        return 1;
      }
    }
    model->Close();
  } catch (const vbrt::VbError& e) {
    std::cerr << "eowizard: " << e.Description() << "\n";
    return 1;
  }
  return 0;
}

}  // namespace

void AddModelCommands(CLI::App& cli, int& exitCode) {
  CLI::App* model = cli.add_subcommand("model", "Inspect a basic model");
  model->require_subcommand(1);
  auto options = std::make_shared<ShowOptions>();
  CLI::App* show =
      model->add_subcommand("show", "List what generation reads from a basic model");
  show->add_option("FILE", options->file, "Basic model (.geo, .brep, .step)")->required();
  show->add_option("--svg", options->svg, "Also draw the model into this SVG file");
  AddModelTimeLimitOption(*show, options->limits);
  show->callback([options, &exitCode] { exitCode = ShowModel(*options); });
}

}  // namespace app
