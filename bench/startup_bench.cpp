// How long the wizard takes from "open" to a window on the screen, once the analysis
// application is running: the form loads, starts up (sessions folder, default session
// name, version check) and its window is built and shown.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

#include "platform/posix/posix_file_system.h"
#include "platform/prompter.h"
#include "platform/regfile/registry_files.h"
#include "wizard/model/wizard_form.h"
#include "wizard/wizard_view.h"

namespace {

class RunningApplication : public platform::AnalysisApplication {
 public:
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view) override { return nullptr; }
};

class SilentPrompter : public platform::Prompter {
 public:
  platform::MsgAnswer Show(const platform::Message&) override { return platform::MsgAnswer::OK; }
};

class NoHelp : public platform::HelpViewer {
 public:
  void ShowTopic(std::string_view) override {}
};

void BM_WindowUp(benchmark::State& state) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "eow_startup_bench";
  std::filesystem::create_directories(folder);
  platform::PosixFileSystem fs{platform::DriveMap{}};
  platform::RegistryFiles registry;
  SilentPrompter prompter;
  NoHelp help;
  const wizard::FormServices services{
      fs,      registry, prompter, help, folder.string(), (folder / "user").string(),
      [] { return std::make_unique<RunningApplication>(); },
      [](wizard::WizardForm&) { return false; }};
  for (auto _ : state) {
    auto form = std::make_unique<wizard::WizardForm>(services);
    auto view = std::make_unique<wizard::QtWizardView>(*form, fs);
    wizard::WizardWindow* window = view->Window();
    form->AttachView(std::move(view));
    if (!form->InitWizard()) state.SkipWithError("start-up failed");
    form->ShowForm();
    QApplication::processEvents();
    benchmark::DoNotOptimize(window);
    form.reset();
    QApplication::processEvents();  // lets the window delete itself
  }
  std::filesystem::remove_all(folder);
}
BENCHMARK(BM_WindowUp)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
