// The Gmsh load of a basic model of 30,000 curves (a .geo written here: a polygon with
// every tenth side an arc, around one surface) in this process, beside the same load as
// the program makes it, in a sandboxed reader of its own (started for the read, Gmsh's
// libraries loaded there, the model handed back), and beside the text generation it
// feeds: BuildModel written as code from the loaded model.
#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>

#include "bench_files.h"
#include "generator/emitter.h"
#include "generator/sections.h"
#include "app/commands.h"
#include "platform/gmsh/gmsh_application.h"
#include "platform/sandbox/blocking_wait.h"

namespace {

namespace fs = std::filesystem;

constexpr int kCurves = 30000;

// Points 1..n on a circle, arcs about centre point n + 1, one surface and a label.
const fs::path& GeoFile() {
  static const fs::path file = [] {
    const fs::path path = bench::ScratchFolder() / "ring.geo";
    std::ofstream geo(path);
    const double step = 2 * std::numbers::pi / kCurves;
    for (int i = 0; i < kCurves; ++i) {
      geo << "Point(" << i + 1 << ") = {" << 100 * std::cos(i * step) << ", "
          << 100 * std::sin(i * step) << ", 0};\n";
    }
    geo << "Point(" << kCurves + 1 << ") = {0, 0, 0};\n";
    for (int i = 0; i < kCurves; ++i) {
      const int from = i + 1;
      const int to = (i + 1) % kCurves + 1;
      if (i % 10 == 9) {
        geo << "Circle(" << i + 1 << ") = {" << from << ", " << kCurves + 1 << ", " << to << "};\n";
      } else {
        geo << "Line(" << i + 1 << ") = {" << from << ", " << to << "};\n";
      }
    }
    geo << "Curve Loop(1) = {1:" << kCurves << "};\nPlane Surface(1) = {1};\n"
        << "Physical Surface(\"Core\") = {1};\nPhysical Curve(\"Boundary\") = {1:" << kCurves
        << ":50};\n";
    return path;
  }();
  return file;
}

platform::AnalysisApplication& Application() {
  static const auto application = platform::gmsh_io::CreateGmshApplication();
  return *application;
}

// Counts what it is given.
class CountingEmitter : public generator::Emitter {
 public:
  std::size_t bytes = 0;
  void AddClassLine(std::string_view text) override { bytes += text.size() + 2; }
  void AddModuleLine(std::string_view text) override { bytes += text.size() + 2; }
  void StepProgress(int) override {}
};

void BM_GmshLoad(benchmark::State& state) {
  const std::string path = GeoFile().string();
  for (auto _ : state) {
    const auto model = Application().OpenModel(path);
    if (model->EdgeCount() != kCurves) state.SkipWithError("wrong number of curves");
    model->Close();
  }
  state.counters["curves"] = kCurves;
}

void BM_SandboxedLoad(benchmark::State& state) {
  const std::string path = GeoFile().string();
  platform::sandbox::BlockingWait wait;
  for (auto _ : state) {
    platform::sandbox::SandboxedApplication application(
        app::ModelReaderCommand(EOWIZARD_EXE, "The benchmark"), {std::chrono::minutes(5)},
        wait);
    const auto model = application.OpenModel(path);
    if (model->EdgeCount() != kCurves) state.SkipWithError("wrong number of curves");
  }
  state.counters["curves"] = kCurves;
}

void BM_BuildModelTextFromLoadedModel(benchmark::State& state) {
  const auto model = Application().OpenModel(GeoFile().string());
  std::size_t bytes = 0;
  for (auto _ : state) {
    CountingEmitter out;
    if (!generator::WriteBuildModelGenerate(*model, out)) state.SkipWithError("failed");
    bytes = out.bytes;
  }
  state.SetBytesProcessed(static_cast<int64_t>(bytes * state.iterations()));
  state.counters["curves"] = kCurves;
}

BENCHMARK(BM_GmshLoad)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_SandboxedLoad)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_BuildModelTextFromLoadedModel)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
