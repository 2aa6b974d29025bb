#pragma once
// Whole generations into a scratch folder that drive C: maps to, with the in-memory
// development environment, the demo host's registry and a scripted user.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "../platform/scratch_folder.h"
#include "generation_doubles.h"
#include "generator/generator.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/vbfiles/vb_files_environment.h"

namespace generator::test {

class GenerationTest : public ::testing::Test {
 protected:
  GenerationTest() { std::filesystem::create_directories(scratch_.Path() / "proj"); }

  std::string Read(const std::string& relative) const {
    return ReadBytes(scratch_.Path() / relative);
  }
  bool Exists(const std::string& relative) const {
    return std::filesystem::exists(scratch_.Path() / relative);
  }

  // Generates `form`; the generator copies and deletes through `files` when given.
  bool Generate(session::FormState& form, platform::AnalysisApplication* application,
                platform::FileSystem* files = nullptr) {
    Generator generator(environment_, application, files ? *files : files_, registry_, prompter_,
                        progress_);
    const bool done = generator.Generate(form);
    written_ = generator.WrittenFiles();
    return done;
  }

  static platform::DriveMap DriveC(const std::filesystem::path& root) {
    platform::DriveMap drives;
    drives.Set('C', root);
    return drives;
  }

  ScratchFolder scratch_;
  HostRegistry registry_;
  platform::PosixFileSystem files_{DriveC(scratch_.Path())};
  platform::VbFilesEnvironment environment_{files_, registry_, platform::merge::Libgit2Merger};
  platform::ScriptedPrompter prompter_;
  QuietProgress progress_;
  std::vector<std::string> written_;
};

}  // namespace generator::test
