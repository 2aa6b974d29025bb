// Generation of a large project (5,000 inputs of the four types, 500 outputs, a basic
// model of 30,000 edges converted into code) beside a plain write of the same bytes. Both
// report bytes per second; the generation's counters give the output's size and the
// process's peak memory.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench_files.h"
#include "generator/generator.h"
#include "hardening/generation_rig.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"

namespace {

namespace fs = std::filesystem;

constexpr int kInputs = 5000;
constexpr int kOutputs = 500;
constexpr int kEdges = 30000;

const fs::path& Folder() {
  static const fs::path folder = bench::ScratchFolder() / "generation";
  return folder;
}

// One generation into a fresh folder; returns the bytes of the three project files.
std::size_t GenerateOnce(const session::FormState& record,
                         hardening::FixedApplication& application) {
  fs::remove_all(Folder());
  fs::create_directories(Folder());
  session::FormState form = record;
  form.theLocation = Folder().string();
  platform::PosixFileSystem files{platform::DriveMap{}};
  hardening::HostRegistry registry;
  platform::VbFilesEnvironment environment(files, registry);
  platform::ScriptedPrompter prompter;
  hardening::QuietProgress progress;
  generator::Generator generator(environment, &application, files, registry, prompter, progress);
  if (!generator.Generate(form)) return 0;
  std::size_t bytes = 0;
  for (const char* name : {"Big.cls", "Big.bas", "Big.vbp"}) bytes += fs::file_size(Folder() / name);
  return bytes;
}

struct Workload {
  session::FormState record = hardening::LargeRecord(kInputs, kOutputs);
  hardening::FixedApplication application{hardening::RingModel(kEdges)};
};

Workload& TheWorkload() {
  static Workload workload;
  return workload;
}

void BM_Generate(benchmark::State& state) {
  Workload& work = TheWorkload();
  std::size_t bytes = 0;
  for (auto _ : state) {
    bytes = GenerateOnce(work.record, work.application);
    if (bytes == 0) state.SkipWithError("generation failed");
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes * state.iterations()));
  state.counters["output_MB"] = static_cast<double>(bytes) / 1e6;
  state.counters["peak_MB"] = bench::PeakMegabytes();
}

void BM_PlainWriteOfGeneratedBytes(benchmark::State& state) {
  Workload& work = TheWorkload();
  if (GenerateOnce(work.record, work.application) == 0) state.SkipWithError("generation failed");
  std::vector<std::string> files;
  std::size_t bytes = 0;
  for (const char* name : {"Big.cls", "Big.bas", "Big.vbp"}) {
    files.push_back(bench::PlainRead(Folder() / name));
    bytes += files.back().size();
  }
  const fs::path copies = bench::ScratchFolder() / "plain";
  fs::create_directories(copies);
  for (auto _ : state) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      bench::PlainWrite(copies / ("copy" + std::to_string(i)), files[i]);
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes * state.iterations()));
}

BENCHMARK(BM_Generate)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlainWriteOfGeneratedBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
