// Loading and saving a session of 10,000 inputs beside reading and writing the same
// bytes plainly.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string_view>

#include "bench_files.h"
#include "hardening/generation_rig.h"
#include "platform/posix/posix_file_system.h"
#include "session/session_file.h"
#include "vbrt/line_end.h"

namespace {

namespace fs = std::filesystem;

constexpr int kInputs = 10000;
constexpr int kOutputs = 100;

const platform::PosixFileSystem& Files() {
  static const platform::PosixFileSystem files{platform::DriveMap{}};
  return files;
}

// The saved session, written once.
const fs::path& SessionFile() {
  static const fs::path file = [] {
    fs::path path = bench::ScratchFolder() / "session.bvg";
    vbrt::FileTable table;
    std::string message;
    session::SaveSession(hardening::LargeRecord(kInputs, kOutputs), {table, Files()},
                         path.string(), message);
    return path;
  }();
  return file;
}

void BM_SessionLoad(benchmark::State& state) {
  const fs::path& file = SessionFile();
  for (auto _ : state) {
    session::FormState form;
    vbrt::FileTable table;
    std::string message;
    if (!session::LoadSession(form, {table, Files()}, file.string(), message)) {
      state.SkipWithError("load failed");
    }
    benchmark::DoNotOptimize(form.lvInput.Count());
  }
  state.SetBytesProcessed(static_cast<int64_t>(fs::file_size(file) * state.iterations()));
}

void BM_PlainReadOfSessionBytes(benchmark::State& state) {
  const fs::path& file = SessionFile();
  for (auto _ : state) benchmark::DoNotOptimize(bench::PlainRead(file));
  state.SetBytesProcessed(static_cast<int64_t>(fs::file_size(file) * state.iterations()));
}

// The least any line-by-line reader does: the bytes read plainly, split into lines and
// each line at its "=". What loading adds beyond this is the record itself.
void BM_SplitSessionIntoFields(benchmark::State& state) {
  const fs::path& file = SessionFile();
  for (auto _ : state) {
    const std::string bytes = bench::PlainRead(file);
    std::string_view rest = bytes;
    std::size_t values = 0;
    while (!rest.empty()) {
      const std::size_t end = vbrt::FindLineEnd(rest);
      const std::string_view line = rest.substr(0, end);
      if (const std::size_t equals = line.find('='); equals != std::string_view::npos) {
        values += line.size() > equals + 1 ? 1 : 0;
      }
      rest.remove_prefix(std::min(rest.size(), end + (rest.substr(end, 2) == "\r\n" ? 2 : 1)));
    }
    benchmark::DoNotOptimize(values);
  }
  state.SetBytesProcessed(static_cast<int64_t>(fs::file_size(file) * state.iterations()));
}

void BM_SessionSave(benchmark::State& state) {
  const session::FormState form = hardening::LargeRecord(kInputs, kOutputs);
  const std::string path = (bench::ScratchFolder() / "saved.bvg").string();
  for (auto _ : state) {
    vbrt::FileTable table;
    std::string message;
    if (!session::SaveSession(form, {table, Files()}, path, message)) {
      state.SkipWithError("save failed");
    }
  }
  state.SetBytesProcessed(static_cast<int64_t>(fs::file_size(path) * state.iterations()));
}

void BM_PlainWriteOfSessionBytes(benchmark::State& state) {
  const std::string bytes = bench::PlainRead(SessionFile());
  const fs::path path = bench::ScratchFolder() / "plain.bvg";
  for (auto _ : state) bench::PlainWrite(path, bytes);
  state.SetBytesProcessed(static_cast<int64_t>(bytes.size() * state.iterations()));
}

BENCHMARK(BM_SessionLoad)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlainReadOfSessionBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_SplitSessionIntoFields)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_SessionSave)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_PlainWriteOfSessionBytes)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
