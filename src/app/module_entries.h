#pragma once
// The boundary between the program and the modules it loads on first need. Each module
// exports one entry function under a C name; everything else a module uses of the core
// (string table, file table, number format, code page, the wizard's model) it resolves
// against the program, which exports its symbols, so that there is one copy of each.
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/analysis_application.h"
#include "platform/file_system.h"
#include "platform/model_read_wait.h"
#include "platform/prompter.h"
#include "platform/registry.h"
#include "platform/text_merger.h"
#include "wizard/model/model_picture.h"

namespace app {

// eowizard-gmsh.so: the analysis application (Gmsh reads the basic models).
inline constexpr const char* kAnalysisModule = "eowizard-gmsh.so";
// Starts the analysis application and hands over the object (owned by the caller).
// Throws vbrt::VbError when it cannot be started.
inline constexpr const char* kAnalysisEntry = "eowizard_create_analysis_application";
using AnalysisEntry = platform::AnalysisApplication* (*)();

// eowizard-merge.so: three-way merge and diff of texts (libgit2).
inline constexpr const char* kMergeModule = "eowizard-merge.so";
// The module's merger, which lives until the program ends.
inline constexpr const char* kMergeEntry = "eowizard_text_merger";
using MergeEntry = platform::TextMerger* (*)();

// eowizard-window.so: the wizard window (Qt).
inline constexpr const char* kWindowModule = "eowizard-window.so";
inline constexpr const char* kWindowEntry = "eowizard_run_window";

// What the window starts with: the services the shared options made, and how to start
// the analysis application. The references must outlive the window.
struct WindowStart {
  int& argc;  // the command line, for the toolkit's own options
  char** argv;
  std::string sessionFile;  // loaded once the wizard is up, when not empty
  platform::FileSystem& fs;
  const platform::Registry& registry;
  // Answers every Yes/No(/Cancel) question without a box (--answer); none: boxes ask.
  std::optional<platform::MsgAnswer> answer;
  // Starts the analysis application, whose basic models are read in processes of their
  // own, waited for through the window's `wait`; nullptr after telling why it could not.
  std::function<std::unique_ptr<platform::AnalysisApplication>(platform::ModelReadWait& wait)>
      createAnalysis;
  // Loads the merge module the first time a generation merges the user's changes; throws
  // ModuleError (a std::runtime_error) when it cannot.
  platform::TextMergerSource merger;
};
// Opens the wizard window and runs it until the wizard closes; returns the program's exit
// code (1 when the window cannot open or the wizard could not start).
using WindowEntry = int (*)(const WindowStart& start);
// Writes a drawing to a file as a Windows bitmap, painted as the window paints it, without
// a display (when the window is not open); throws std::runtime_error saying why it cannot.
inline constexpr const char* kBitmapEntry = "eowizard_write_bitmap";
using BitmapEntry = void (*)(const wizard::Drawing& drawing, const std::filesystem::path& file);

}  // namespace app
