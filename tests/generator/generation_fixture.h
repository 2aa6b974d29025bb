#pragma once
// Generations into a temporary folder that drive C: maps to, with the in-memory development
// environment, the demo host's registry and a scripted user.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "generation_doubles.h"
#include "generator/generator.h"
#include "golden_lines.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"

namespace generator::test {

class GenerationTest : public ::testing::Test {
 protected:
  GenerationTest() {
    std::filesystem::remove_all(root_);
    std::filesystem::create_directories(root_ / "proj");
  }
  ~GenerationTest() override { std::filesystem::remove_all(root_); }

  static platform::DriveMap DriveC(const std::filesystem::path& root) {
    platform::DriveMap drives;
    drives.Set('C', root);
    return drives;
  }
  void Write(const std::string& relative, const std::string& text) {
    std::ofstream(root_ / relative, std::ios::binary) << text;
  }
  std::string Read(const std::string& relative) const { return ReadFile(root_ / relative); }
  bool Exists(const std::string& relative) const {
    return std::filesystem::exists(root_ / relative);
  }

  bool Generate(session::FormState& form, platform::AnalysisApplication* application) {
    Generator generator(environment_, application, files_, registry_, prompter_, progress_);
    const bool done = generator.Generate(form);
    written_ = generator.WrittenFiles();
    return done;
  }

  const std::filesystem::path root_ =
      std::filesystem::temp_directory_path() / ("eow_generation_" + std::to_string(::getpid()));
  HostRegistry registry_;
  platform::PosixFileSystem files_{DriveC(root_)};
  platform::VbFilesEnvironment environment_{files_, registry_};
  platform::ScriptedPrompter prompter_;
  QuietProgress progress_;
  std::vector<std::string> written_;
};

}  // namespace generator::test
