#pragma once
// The program run as a user runs it, from the examples folder, in a scratch folder of
// the test: exit code, standard output and errors.
#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "../platform/scratch_folder.h"

class ProgramTest : public ::testing::Test {
 protected:
  // Runs eowizard with `arguments` (shell words) and `environment` (shell assignments, or
  // an env command, put before it); fills out_ and err_ and returns the exit code (124
  // when it hangs for a minute).
  int Run(const std::string& arguments, const std::string& environment = "") {
    const std::string command = "cd '" EOW_EXAMPLES_DIR "' && " + environment + " timeout 60 '" EOWIZARD_EXE
                                "' " + arguments + " </dev/null >'" + Path("out") + "' 2>'" +
                                Path("err") + "'";
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
