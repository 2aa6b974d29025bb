// How long the wizard takes to come up.
// BM_WindowProcess: the whole program, `eowizard` offscreen, from just before the process
// is spawned to the first paint of the launch notice (counter notice_ms) and of the
// wizard window (page_ms, also the iteration time), the analysis module loaded and Gmsh
// started in between. The program reports the paints on the monotonic clock
// (EOWIZARD_STARTUP_TRACE); the process is ended once the wizard is shown.
// BM_WindowUp: in process, once the analysis application is running: the form loads,
// starts up (sessions folder, default session name, version check) and its window is
// built and shown.
#include <benchmark/benchmark.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

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

// Nanoseconds on the monotonic clock, as the program's trace gives them.
long long MonotonicNow() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

void BM_WindowProcess(benchmark::State& state) {
  std::vector<std::string> variables{"QT_QPA_PLATFORM=offscreen", "EOWIZARD_STARTUP_TRACE=1"};
  for (char** variable = environ; *variable != nullptr; ++variable) variables.emplace_back(*variable);
  std::vector<char*> environment;
  for (std::string& variable : variables) environment.push_back(variable.data());
  environment.push_back(nullptr);
  char program[] = EOWIZARD_EXE;
  char* arguments[] = {program, nullptr};
  double notice = 0, page = 0;
  for (auto _ : state) {
    int pipe[2];
    if (::pipe(pipe) != 0) return state.SkipWithError("no pipe");
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipe[1], STDERR_FILENO);
    posix_spawn_file_actions_addclose(&actions, pipe[0]);
    const long long start = MonotonicNow();
    pid_t child = 0;
    const int spawned =
        posix_spawn(&child, program, &actions, nullptr, arguments, environment.data());
    posix_spawn_file_actions_destroy(&actions);
    ::close(pipe[1]);
    if (spawned != 0) return state.SkipWithError("cannot start " EOWIZARD_EXE);
    std::FILE* trace = ::fdopen(pipe[0], "r");
    long long noticeAt = 0, pageAt = 0;
    char line[512], name[64];
    long long at = 0;
    while (pageAt == 0 && std::fgets(line, sizeof line, trace) != nullptr) {
      if (std::sscanf(line, "eowizard-startup %63s %lld", name, &at) != 2) continue;
      (std::string(name) == "frmLaunch" ? noticeAt : pageAt) = at;
    }
    ::kill(child, SIGTERM);
    ::waitpid(child, nullptr, 0);
    std::fclose(trace);
    if (noticeAt == 0 || pageAt == 0) return state.SkipWithError("the wizard did not come up");
    notice += (noticeAt - start) / 1e6;
    page += (pageAt - start) / 1e6;
    state.SetIterationTime((pageAt - start) / 1e9);
  }
  state.counters["notice_ms"] = benchmark::Counter(notice, benchmark::Counter::kAvgIterations);
  state.counters["page_ms"] = benchmark::Counter(page, benchmark::Counter::kAvgIterations);
}
// Registered first: a CSV report takes its columns from the first benchmark's counters.
BENCHMARK(BM_WindowProcess)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);
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
