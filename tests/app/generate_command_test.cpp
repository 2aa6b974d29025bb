// `eowizard generate` over a week of the engineer's work on the shipped actuator, step by
// step in one project folder: generated, edited, previewed with --dry-run --diff, merged
// with one more input and output, merged against a changed limit (exit code 3), and
// generated again without pristine copies; a session whose project path holds a NUL is
// refused.
#include <filesystem>
#include <string>
#include <vector>

#include "program_test.h"

namespace {

namespace fs = std::filesystem;

// A change of a generated file: `from` (which occurs once) becomes `to`.
struct Edit {
  std::string file;
  std::string from;
  std::string to;
};

struct Step {
  std::string what;
  std::vector<Edit> edits = {};         // made before the run
  std::vector<std::string> removed = {};  // from the project folder before the run
  std::string arguments = "";           // after "generate"
  int exitCode = 0;
  std::vector<std::string> out = {};  // each on standard output; "@" stands for the project folder
  std::vector<std::string> err = {};  // each on standard error
  bool writesNothing = false;
  int markers = 0;  // conflicts in Actuator.cls afterwards
};

const std::string kRegistry = " --registry examples/registry/demo-host.reg";
const std::string kV2 = "examples/actuator/Actuator-v2.bvg";

class GenerateCommandTest : public ProgramTest {
 protected:
  std::string Project(const std::string& name = "") const { return Path("Act/" + name); }

  void Apply(const Edit& edit) {
    std::string text = ReadBytes(Project(edit.file));
    const std::size_t at = text.find(edit.from);
    ASSERT_NE(at, std::string::npos) << edit.from;
    scratch_.Write("Act/" + edit.file, text.replace(at, edit.from.size(), edit.to));
  }
};

std::string Expanded(std::string text, const std::string& folder) {
  for (std::size_t at = text.find('@'); at != std::string::npos; at = text.find('@', at)) {
    text.replace(at, 1, folder);
    at += folder.size();
  }
  return text;
}

TEST_F(GenerateCommandTest, AWeekOfTheEngineersWork) {
  std::string v3 = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "actuator/Actuator-v2.bvg");
  v3.replace(v3.find("MAX=5\r\n"), 7, "MAX=6\r\n");
  const std::string limitChanged = Session("v3.bvg", v3);
  // A NUL would end all three file names at "Actuator.vbp".
  std::string cut = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "actuator/Actuator-v2.bvg");
  cut.replace(cut.find("examples\\actuator\\Actuator.vbp"), 30,
              Project("Actuator.vbp") + '\0' + ".x");
  const std::string nul = Session("nul.bvg", cut);
  fs::create_directories(Project());
  const std::string merge = " --project '" + Project("Actuator.vbp") + "'" + kRegistry +
                            " --answer merge";
  const std::vector<Step> steps = {
      {.what = "first generation",
       .arguments = "examples/actuator/Actuator.bvg" + merge,
       .out = {"Your ExploringObject project was succesfully created.\nFiles written:\n"}},
      {.what = "a dry run with diff after the engineer's edits and a changed session",
       .edits = {{"Actuator.cls", "        Max = 5\r\n", "        Max = 4.5  ' Gr\xF6\xDF" "e\r\n"},
                 {"Actuator.bas", "    ''' TODO: Modify Zentrix model (Mdl) here\r\n",
                  "    ''' TODO: Modify Zentrix model (Mdl) here\r\n    Mdl.Refresh\r\n"}},
       .arguments = kV2 + merge + " --dry-run --diff",
       .out = {"Answered merge (--answer merge).\n",
               "Dry run, nothing was written. The generation would leave:\n",
               "  @/Actuator_Files/Actuator_Basic.mod: copied\n",
               "  @/Actuator.cls: merged cleanly\n  @/Actuator.bas: merged cleanly\n"
               "  @/Actuator.vbp: overwritten\n",
               "--- @/Actuator.bas (on disk)\n+++ @/Actuator.bas (after the generation)\n",
               "+    pole = theParameters(\"Pole width\").Value\n"},
       .writesNothing = true},
      {.what = "the merge",
       .arguments = kV2 + merge,
       .out = {"Project file '@/Actuator.vbp' already exists. Overwrite ?\n"
               "Answered yes (--answer merge).\n",
               "  @/Actuator.cls (merged with your changes)\n"}},
      {.what = "the edited limit changed in the session too",
       .arguments = limitChanged + merge,
       .exitCode = 3,
       .out = {"  @/Actuator.cls (merged with your changes, 1 conflict (lines 224-230))\n"},
       .err = {"eowizard: your changes and the new code conflict; the conflicting lines are "
               "marked with <<<<<<< and >>>>>>> in:\n  @/Actuator.cls: lines 224-230\n"},
       .markers = 1},
      {.what = "no pristine copies: the old questions, answered as No",
       .removed = {".eowizard"},
       .arguments = kV2 + merge,
       .out = {"Module '@/Actuator.bas' already exists. Overwrite ?\n"
               "Answered no (--answer merge).\n",
               "  @/Actuator 2.cls\n"},
       .markers = 1},
      {.what = "--diff without --dry-run", .arguments = kV2 + merge + " --diff", .exitCode = 2,
       .err = {"--dry-run"}, .writesNothing = true, .markers = 1},
      {.what = "a project path holding a NUL", .arguments = nul + kRegistry + " --answer yes",
       .exitCode = 1,
       .err = {"eowizard: PROJECT: The path holds the control character NUL (code 0), which "
               "no file name can hold"},
       .writesNothing = true, .markers = 1},
  };
  for (const Step& step : steps) {
    SCOPED_TRACE(step.what);
    for (const Edit& edit : step.edits) Apply(edit);
    for (const std::string& name : step.removed) fs::remove_all(Project(name));
    const auto before = Snapshot(Project());
    EXPECT_EQ(Run("generate " + step.arguments, "cd .. &&"), step.exitCode) << err_;
    const std::string folder = Project().substr(0, Project().size() - 1);
    for (const std::string& text : step.out) {
      EXPECT_NE(out_.find(Expanded(text, folder)), std::string::npos) << text << "\n" << out_;
    }
    for (const std::string& text : step.err) {
      EXPECT_NE(err_.find(Expanded(text, folder)), std::string::npos) << text << "\n" << err_;
    }
    EXPECT_EQ(out_.find("\x1b["), std::string::npos);  // no colours into a file
    if (step.writesNothing) {
      EXPECT_EQ(Snapshot(Project()), before);
    }
    const std::string cls = ReadBytes(Project("Actuator.cls"));
    int markers = 0;
    for (auto at = cls.find("\r\n<<<<<<< "); at != std::string::npos; at = cls.find("\r\n<<<<<<< ", at + 1)) {
      ++markers;
    }
    EXPECT_EQ(markers, step.markers);
  }
}

}  // namespace
