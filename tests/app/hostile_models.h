#pragma once
// Basic models that a colleague could send inside a session, each read in the sandbox
// with a time limit of kHostileTimeLimit seconds: none may run a command, leave a file,
// end or freeze the program. The same table runs through `model show`, `generate` and
// the window's basic-files page.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace hostile {

constexpr int kHostileTimeLimit = 2;

struct HostileModel {
  std::string path;
  // In the message that refuses the model; "" for a model that is read.
  std::string message;
};

// What a model could leave behind in `folder`; nothing of it may exist after a read.
inline std::vector<std::filesystem::path> Traces(const std::filesystem::path& folder) {
  return {folder / "ran", folder / "written", folder / "made"};
}

// Writes the models into `folder` and lists them.
inline std::vector<HostileModel> HostileModels(const std::filesystem::path& folder) {
  const std::string traces = folder.string();
  const struct {
    const char* name;
    std::string text;
    std::string message;
  } models[] = {
      {"command.geo", "SystemCall \"touch '" + traces + "/ran'\";\n",
       "tried to run a command, which basic models may not do; it was not read"},
      {"write.geo", "Point(1) = {0, 0, 0};\nPrintf(\"x\") > \"" + traces + "/written\";\n",
       "tried to write a file, which basic models may not do; it was not read"},
      {"folder.geo", "CreateDir \"" + traces + "/made\";\n",
       "tried to write a file, which basic models may not do; it was not read"},
      {"exit.geo", "Point(1) = {0, 0, 0};\nExit;\n",
       "ended its own reading (Exit); it was not read"},
      // A loop on one line runs its body once: Gmsh repeats a loop by reading its lines again.
      {"loop.geo", "For i In {1:1000000000}\n  x = i;\nEndFor\n",
       "took longer than the time limit of 2 s (see --model-time-limit); it was not read"},
      {"broken.geo", "Point(1) = {0, 0\n", "line 1: syntax error"},
      {"include.geo", "Include \"" EOW_TEST_DIR "/platform_gmsh/models/blocks.geo\";\n", ""},
  };
  std::vector<HostileModel> rows;
  for (const auto& model : models) {
    const std::filesystem::path file = folder / model.name;
    std::ofstream(file, std::ios::binary) << model.text;
    rows.push_back({file.string(), model.message});
  }
  return rows;
}

}  // namespace hostile
