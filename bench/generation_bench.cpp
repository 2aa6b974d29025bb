// Generation of a large project (5,000 inputs of the four types, 500 outputs, a basic
// model of 30,000 edges converted into code) beside a plain write of the same bytes, and
// the same generation merged into a project the engineer edited in 100 places after
// generating it with one input less. They report bytes per second; the counters give the
// output's size and the process's peak memory.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <initializer_list>
#include <map>

#include "bench_files.h"
#include "generator/generator.h"
#include "hardening/generation_rig.h"
#include "platform/merge/libgit2_merger.h"
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

const char* const kProjectFiles[] = {"Big.cls", "Big.bas", "Big.vbp"};

// One generation into `folder`, answering its questions from `answers`; returns the bytes
// of the three project files, 0 when it failed.
std::size_t GenerateInto(const fs::path& folder, const session::FormState& record,
                         hardening::FixedApplication& application,
                         std::initializer_list<platform::MsgAnswer> answers = {}) {
  session::FormState form = record;
  form.theLocation = folder.string();
  platform::PosixFileSystem files{platform::DriveMap{}};
  hardening::HostRegistry registry;
  platform::VbFilesEnvironment environment(files, registry, platform::merge::Libgit2Merger);
  platform::ScriptedPrompter prompter;
  for (const platform::MsgAnswer answer : answers) prompter.Answer(answer);
  hardening::QuietProgress progress;
  generator::Generator generator(environment, &application, files, registry, prompter, progress);
  if (!generator.Generate(form)) return 0;
  std::size_t bytes = 0;
  for (const char* name : kProjectFiles) bytes += fs::file_size(folder / name);
  return bytes;
}

// One generation into a fresh folder.
std::size_t GenerateOnce(const session::FormState& record,
                         hardening::FixedApplication& application) {
  fs::remove_all(Folder());
  fs::create_directories(Folder());
  return GenerateInto(Folder(), record, application);
}

// Appends an engineer's comment to `count` lines spread evenly over `text`.
std::string Edited(std::string text, int count) {
  const auto lines = static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
  const std::size_t every = lines / static_cast<std::size_t>(count);
  std::size_t line = 0;
  for (std::size_t at = text.find("\r\n"); at != std::string::npos; at = text.find("\r\n", at + 2)) {
    if (++line % every != every / 2) continue;
    text.insert(at, "  ' checked by the engineer");
    at += 27;
  }
  return text;
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
  // Written twice, as the generation writes them: the project and its pristine copies.
  const fs::path copies = bench::ScratchFolder() / "plain";
  fs::create_directories(copies);
  for (auto _ : state) {
    for (const char* kept : {"project", "pristine"}) {
      for (std::size_t i = 0; i < files.size(); ++i) {
        bench::PlainWrite(copies / (kept + std::to_string(i)), files[i]);
      }
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(2 * bytes * state.iterations()));
}

// The project of one input less, generated and then edited in 100 places (80 in the class,
// 20 in the module); each iteration puts that state back (not timed) and generates the
// whole record over it with Merge for the class and the module.
void BM_MergeRegeneration(benchmark::State& state) {
  Workload& work = TheWorkload();
  const fs::path folder = bench::ScratchFolder() / "merge";
  fs::remove_all(folder);
  fs::create_directories(folder);
  session::FormState earlier = work.record;
  earlier.lvInput.Remove(earlier.lvInput.Count() - 2);  // the last input before "<new>"
  if (GenerateInto(folder, earlier, work.application) == 0) state.SkipWithError("generation failed");
  std::map<fs::path, std::string> engineers;
  for (const char* name : kProjectFiles) {
    const fs::path pristine = folder / ".eowizard" / name;
    engineers[pristine] = bench::PlainRead(pristine);
    engineers[folder / name] = bench::PlainRead(folder / name);
  }
  engineers[folder / "Big.cls"] = Edited(engineers[folder / "Big.cls"], 80);
  engineers[folder / "Big.bas"] = Edited(engineers[folder / "Big.bas"], 20);
  using platform::MsgAnswer;
  std::size_t bytes = 0;
  for (auto _ : state) {
    state.PauseTiming();
    for (const auto& [file, text] : engineers) bench::PlainWrite(file, text);
    state.ResumeTiming();
    bytes = GenerateInto(folder, work.record, work.application,
                         {MsgAnswer::Yes, MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Merge});
    if (bytes == 0) state.SkipWithError("generation failed");
  }
  const std::string merged = bench::PlainRead(folder / "Big.cls");
  if (merged.find("<<<<<<<") != std::string::npos) state.SkipWithError("the merge conflicted");
  state.SetBytesProcessed(static_cast<int64_t>(bytes * state.iterations()));
  state.counters["output_MB"] = static_cast<double>(bytes) / 1e6;
  state.counters["peak_MB"] = bench::PeakMegabytes();
}

BENCHMARK(BM_Generate)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_MergeRegeneration)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlainWriteOfGeneratedBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
