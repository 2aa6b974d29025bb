// `eowizard model show FILE [--svg OUT.svg] [--bmp OUT.bmp]`: the basic model as the
// generator sees it, and its sketch as the wizard's "Create sketch file now" saves it.
#include <fmt/format.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "app/model_preview.h"
#include "app/module_entries.h"
#include "app/module_loader.h"
#include "vbrt/error.h"
#include "wizard/model/model_picture.h"

namespace app {
namespace {

struct ShowOptions {
  std::string file;
  std::string svg;
  std::string bmp;
  platform::sandbox::ReaderLimits limits;
};

// The sketch as a bitmap, drawn by the window's module; false after telling why not.
bool WriteSketch(const platform::BasicModel& model, const std::string& file) {
  try {
    const auto write = ModuleEntry<BitmapEntry>(kWindowModule, kBitmapEntry, "Drawing a sketch");
    write(wizard::ModelPicture(model).DrawSketch(), file);
    return true;
  } catch (const ModuleError& e) {
    std::cerr << "eowizard: " << e.what() << "\n";
  } catch (const std::runtime_error& e) {
    std::cerr << fmt::format("eowizard: cannot write '{}': {}\n", file, e.what());
  }
  return false;
}

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
    if (!options.bmp.empty() && !WriteSketch(*model, options.bmp)) return 1;
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
  show->add_option("--bmp", options->bmp,
                   "Also save the model's sketch, as the wizard's \"Create sketch file now\" "
                   "saves it, as this Windows bitmap");
  AddModelTimeLimitOption(*show, options->limits);
  show->callback([options, &exitCode] { exitCode = ShowModel(*options); });
}

}  // namespace app
