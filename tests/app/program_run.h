#pragma once
// Runs the eowizard program as a user runs it, in a scratch folder of the test.
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "../platform/scratch_folder.h"

class ProgramTest : public ::testing::Test {
 protected:
  // Runs eowizard with `arguments` (shell words) from `folder` (the examples folder unless
  // given) with no input; fills out_ and err_ and returns the exit code.
  int Run(const std::string& arguments, const std::string& folder = EOW_EXAMPLES_DIR) {
    const std::string command = "cd '" + folder + "' && '" EOWIZARD_EXE "' " + arguments +
                                " </dev/null >'" + Path("out") + "' 2>'" + Path("err") + "'";
    const int status = std::system(command.c_str());
    out_ = ReadBytes(Path("out"));
    err_ = ReadBytes(Path("err"));
    return WEXITSTATUS(status);
  }
  std::string Path(const std::string& name) const { return (scratch_.Path() / name).string(); }
  // Writes a session file into the scratch folder and returns its path, quoted for the shell.
  std::string Session(const std::string& name, const std::string& bytes) const {
    return "'" + scratch_.Write(name, bytes).string() + "'";
  }

  ScratchFolder scratch_;
  std::string out_;
  std::string err_;
};
