// The analysis application used on this platform: Gmsh in its module, loaded only by the
// sandboxed readers of the basic models.
#include <charconv>
#include <iostream>
#include <system_error>

#include <CLI/CLI.hpp>

#include "app/commands.h"
#include "platform/sandbox/blocking_wait.h"
#include "vbrt/error.h"

namespace app {

void AddModelTimeLimitOption(CLI::App& command, platform::sandbox::ReaderLimits& limits) {
  command
      .add_option_function<std::string>(
          "--model-time-limit",
          [&limits](const std::string& text) {
            double seconds = 0;
            const auto [end, error] =
                std::from_chars(text.data(), text.data() + text.size(), seconds);
            // Up to about eleven days: a deadline that far is no limit anyway.
            if (error != std::errc() || end != text.data() + text.size() || !(seconds > 0) ||
                !(seconds <= 1e6)) {
              throw CLI::ValidationError(
                  "--model-time-limit",
                  "a number of seconds above 0 and up to 1000000, not '" + text + "'");
            }
            limits.time = std::chrono::duration<double>(seconds);
          },
          "End the reading of a basic model that takes longer than this (default 30)")
      ->type_name("SECONDS");
}

platform::sandbox::ReaderCommand ModelReaderCommand(std::string program, std::string_view need) {
  return {std::move(program), {kModelReaderCommand, std::string(need)}};
}

std::unique_ptr<platform::AnalysisApplication> CreateAnalysisApplication(
    std::string_view need, const platform::sandbox::ReaderLimits& limits,
    platform::ModelReadWait* wait) {
  static platform::sandbox::BlockingWait blocking;
  try {
    // The reader is this very program, as the kernel names its file.
    return std::make_unique<platform::sandbox::SandboxedApplication>(
        ModelReaderCommand("/proc/self/exe", need), limits, wait ? *wait : blocking);
  } catch (const vbrt::VbError& e) {
    std::cerr << "eowizard: " << e.Description() << "\n";
  }
  return nullptr;  // the caller reports the failed launch in its own words
}

}  // namespace app
