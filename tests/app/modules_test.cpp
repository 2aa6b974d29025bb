// Gmsh, Qt and libgit2 are loaded only by what needs them (Qt by the window and by the
// sketch of `model show --bmp`), a module that cannot be loaded is named, and the window
// takes the shared options. The loaded objects are the dynamic
// loader's own record (LD_DEBUG=files).
#include <filesystem>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "program_test.h"

namespace {

class ModulesTest : public ProgramTest {
 protected:
  // The objects the dynamic loader loaded (and initialised) in the runs logged under
  // `prefix`, one line each.
  std::string Loaded(const std::string& prefix) const {
    std::string loaded;
    for (const auto& entry : std::filesystem::directory_iterator(scratch_.Path())) {
      if (!entry.path().filename().string().starts_with(prefix + ".")) continue;
      std::istringstream log(ReadBytes(entry.path()));
      for (std::string line; std::getline(log, line);) {
        if (line.find("calling init:") != std::string::npos) loaded += line + "\n";
      }
    }
    return loaded;
  }
};

TEST_F(ModulesTest, OnlyWhatNeedsAModuleLoadsIt) {
  const std::string none = "EOWIZARD_MODULE_DIR='" + Path("none") + "'";
  const std::string root = "cd .. &&";  // the example sessions name their files from there
  const std::string actuator = "generate examples/actuator/Actuator.bvg --project '" +
                               Path("a/Actuator.vbp") +
                               "' --registry examples/registry/demo-host.reg --answer ";
  // The engineer adds a line to the generated module.
  const auto edit = [&](const std::string& line) {
    return root + " printf \"' " + line + "\\r\\n\" >>'" + Path("a/Actuator.bas") + "' &&";
  };
  struct Row {
    std::string environment;
    std::string arguments;
    int exitCode;
    bool gmsh;
    std::string message;  // in the standard output or error
    bool merge = false;
    bool qt = false;  // the window's module draws a sketch
  } rows[] = {
      {"", "session check --drive C=coil/drive_c coil/Coil.bvg", 0, false, ""},
      {root, actuator + "yes", 0, false, ""},
      {root, actuator + "merge", 0, false, ""},  // nothing was edited: nothing to merge
      {edit("mine"), actuator + "merge", 0, false, "(merged with your changes)", true},
      {edit("more") + " " + none, actuator + "merge", 1, false,
       "Error: Preparing the files of project 'Actuator' failed: Merging your changes into the "
       "new code needs the module eowizard-merge.so, which cannot be loaded: " +
           Path("none") + "/eowizard-merge.so: cannot open shared object file"},
      {root + " " + none, actuator + "yes --dry-run --diff", 1, false,
       "eowizard: Showing the differences (--diff) needs the module eowizard-merge.so"},
      {"", "model show converter/Converter.geo", 0, true, ""},
      {"env -u DISPLAY -u WAYLAND_DISPLAY",
       "model show converter/Converter.geo --bmp '" + Path("Converter.bmp") + "'", 0, true, "",
       false, true},
      {"", "model show converter/Converter.geo --bmp '" + Path("none/Converter.bmp") + "'", 1,
       true, "eowizard: cannot write '" + Path("none/Converter.bmp") + "': ", false, true},
      {"env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM",
       "--session coil/Coil.bvg --drive C=coil/drive_c --registry registry/demo-host.reg "
       "--codepage CP1250 --answer yes",
       1, false, "no display to open the wizard window on"},
      {none, "model show converter/Converter.geo", 1, false,
       "eowizard: Showing a basic model needs the module eowizard-gmsh.so, which cannot be "
       "loaded: " + Path("none") + "/eowizard-gmsh.so: cannot open shared object file"},
      {root + " " + none, "generate examples/converter/Converter.bvg --project '" +
                              Path("c/Converter.vbp") +
                              "' --registry examples/registry/demo-host.reg --answer yes",
       1, false, "Converting the basic model into code needs the module eowizard-gmsh.so"},
      {"QT_QPA_PLATFORM=offscreen " + none, "", 1, false,
       "The wizard window needs the module eowizard-window.so, which cannot be loaded"},
      {"", "--drive Q", 2, false, "drive mapping 'Q' is not of the form X=/folder"},
      {"", "--drive C=coil/drive_c session show coil/Coil.bvg", 2, false,
       "--drive: an option before a command is the window's; a command takes its options "
       "after its name"},
  };
  int run = 0;
  for (const Row& row : rows) {
    SCOPED_TRACE(row.environment + " eowizard " + row.arguments);
    const std::string log = "ld" + std::to_string(++run);
    EXPECT_EQ(Run(row.arguments, row.environment + " LD_DEBUG=files LD_DEBUG_OUTPUT='" +
                                     Path(log) + "'"),
              row.exitCode)
        << out_ << err_;
    EXPECT_NE((out_ + err_).find(row.message), std::string::npos) << out_ << err_;
    const std::string loaded = Loaded(log);
    EXPECT_NE(loaded.find("libc.so"), std::string::npos);  // the record was kept
    EXPECT_EQ(loaded.find("eowizard-gmsh.so") != std::string::npos, row.gmsh);
    EXPECT_EQ(loaded.find("libgmsh") != std::string::npos, row.gmsh);
    EXPECT_EQ(loaded.find("eowizard-merge.so") != std::string::npos, row.merge);
    EXPECT_EQ(loaded.find("libgit2") != std::string::npos, row.merge);
    EXPECT_EQ(loaded.find("libQt6") != std::string::npos, row.qt);
  }
  // The sketch, without a display: a Windows bitmap of 480 by 480 pixels (the model is as
  // high as it is wide).
  const std::string bitmap = ReadBytes(Path("Converter.bmp"));
  ASSERT_GT(bitmap.size(), 26u);
  EXPECT_TRUE(bitmap.starts_with("BM"));
  EXPECT_EQ(bitmap.substr(18, 8), std::string("\xE0\x01\0\0\xE0\x01\0\0", 8));
  EXPECT_FALSE(std::filesystem::exists(Path("c/Converter.vbp")));
  // The merge that could not be made left the engineer's module and the pristine copies
  // as they were.
  EXPECT_TRUE(ReadBytes(Path("a/Actuator.bas")).ends_with("' mine\r\n' more\r\n"));
  EXPECT_EQ(ReadBytes(Path("a/.eowizard/Actuator.bas")).find("' mine"), std::string::npos);
}

}  // namespace
