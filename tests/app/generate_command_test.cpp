// `eowizard generate` over a week of the engineer's work on the shipped actuator, step by
// step in one project folder: previewed, generated, edited, previewed again with
// --dry-run --diff, merged with one more input and output, and merged against a changed
// limit (exit code 3). Each dry run prints what the window's preview of the same session
// shows. What a merge keeps is the regeneration tests' (tests/generator); here the wiring.
#include <filesystem>
#include <string>
#include <vector>

#include "../generator/golden_lines.h"
#include "app/dry_run.h"
#include "platform/merge/libgit2_merger.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "program_test.h"
#include "session/session_file.h"
#include "wizard/model/page_checks.h"

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
  std::vector<Edit> edits = {};  // made before the run
  std::string session = "";      // relative to the repository, or in the scratch folder
  std::string options = "";      // after the session, the project and the registry
  int exitCode = 0;
  std::string golden = "";  // the whole standard output, "$P" standing for the project folder
  std::string out = "";     // on standard output
  std::string err = "";     // on standard error
};

const char* const kRegistry = "examples/registry/demo-host.reg";

class GenerateCommandTest : public ProgramTest {
 protected:
  GenerateCommandTest() {
    registry_.AddFile(fs::path(EOW_EXAMPLES_DIR) / "registry/demo-host.reg");
  }

  std::string Project(const std::string& name = "") const { return Path("Act/" + name); }

  void Apply(const Edit& edit) {
    std::string text = ReadBytes(Project(edit.file));
    const std::size_t at = text.find(edit.from);
    ASSERT_NE(at, std::string::npos) << edit.from;
    scratch_.Write("Act/" + edit.file, text.replace(at, edit.from.size(), edit.to));
  }

  // What the window's preview of `session` would show, in the dry run's words.
  std::string Preview(const std::string& session, bool diff) {
    const fs::path kept = fs::current_path();
    fs::current_path(fs::path(EOW_EXAMPLES_DIR).parent_path());
    wizard::PageChecks checks(files_, registry_, prompter_);
    session::FormState form;
    form.SetFieldHandlers(&checks);
    vbrt::FileTable table;
    std::string message;
    EXPECT_TRUE(session::LoadSession(form, {table, files_}, session, message)) << message;
    form.SetText(session::TextField::Location, Project("Actuator.vbp"));
    const generator::DryRunReport report = app::PreviewGeneration(
        form, files_, registry_, nullptr, platform::merge::Libgit2Merger);
    fs::current_path(kept);
    std::string text = report.generated ? "" : report.failure;
    for (const auto& entry : report.entries) {
      text += "  " + entry.path + ": " + entry.outcome + "\n";
      EXPECT_EQ(entry.question.has_value(),
                entry.generated && entry.choice != platform::SaveChoice::Create)
          << entry.path;
    }
    for (const auto& entry : report.entries) {
      if (diff && entry.generated) {
        text += generator::DiffOf(platform::merge::Libgit2Merger(), entry, false);
      }
    }
    return text;
  }

  platform::PosixFileSystem files_{platform::DriveMap{}};
  platform::RegistryFiles registry_;
  platform::ScriptedPrompter prompter_;
};

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

TEST_F(GenerateCommandTest, AWeekOfTheEngineersWork) {
  // The second version of the session, with another maximum current, and then with the
  // limit the engineer edited changed too.
  std::string v2 = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "actuator/Actuator-v2.bvg");
  v2.replace(v2.find("MAX=20\r\n"), 8, "MAX=25\r\n");
  const std::string changed = scratch_.Write("v2.bvg", v2).string();
  std::string v3 = v2;
  v3.replace(v3.find("MAX=5\r\n"), 7, "MAX=6\r\n");
  const std::string limitChanged = scratch_.Write("v3.bvg", v3).string();
  // A NUL would end all three file names at "Actuator.vbp".
  std::string cut = v3;
  cut.replace(cut.find("examples\\actuator\\Actuator.vbp"), 30,
              Project("Actuator.vbp") + '\0' + ".x");
  const std::string nul = scratch_.Write("nul.bvg", cut).string();
  fs::create_directories(Project());
  const std::vector<Step> steps = {
      {.what = "a preview of the first generation",
       .session = "examples/actuator/Actuator.bvg",
       .options = " --answer merge --dry-run",
       .golden = "generate_dry_run_first.txt"},
      {.what = "the first generation",
       .session = "examples/actuator/Actuator.bvg",
       .options = " --answer merge",
       .out = "Your ExploringObject project was succesfully created.\nFiles written:\n"},
      {.what = "a dry run with diff after the engineer's edits and a changed session",
       .edits = {{"Actuator.cls", "        Max = 5\r\n", "        Max = 4.5  ' Gr\xF6\xDF" "e\r\n"},
                 {"Actuator.bas", "    ''' TODO: Modify Zentrix model (Mdl) here\r\n",
                  "    ''' TODO: Modify Zentrix model (Mdl) here\r\n    Mdl.Refresh\r\n"}},
       .session = changed,
       .options = " --answer merge --dry-run --diff",
       .golden = "generate_dry_run_diff.txt"},
      {.what = "the merge",
       .session = changed,
       .options = " --answer merge",
       .out = "  $P/Actuator.cls (merged with your changes)\n"},
      {.what = "the edited limit changed in the session too, as a dry run",
       .session = limitChanged,
       .options = " --answer merge --dry-run",
       .exitCode = 3,
       .out = "  $P/Actuator.cls: merged with 1 conflict (lines 224-230)\n"},
      {.what = "the edited limit changed in the session too",
       .session = limitChanged,
       .options = " --answer merge",
       .exitCode = 3,
       .out = "  $P/Actuator.cls (merged with your changes, 1 conflict (lines 224-230))\n",
       .err = "eowizard: your changes and the new code conflict; the conflicting lines are "
              "marked with <<<<<<< and >>>>>>> in:\n  $P/Actuator.cls: lines 224-230\n"},
      {.what = "--diff without --dry-run", .session = changed, .options = " --answer merge --diff",
       .exitCode = 2, .err = "--dry-run"},
      {.what = "a project path holding a NUL", .session = nul, .options = " --answer yes",
       .exitCode = 1,
       .err = "eowizard: PROJECT: The path holds the control character NUL (code 0), which "
              "no file name can hold"},
  };
  const std::string folder = Project().substr(0, Project().size() - 1);
  for (const Step& step : steps) {
    SCOPED_TRACE(step.what);
    for (const Edit& edit : step.edits) Apply(edit);
    const auto before = Snapshot(Project());
    const bool dry = step.options.find("--dry-run") != std::string::npos;
    const std::string project =
        step.session == nul ? "" : " --project '" + Project("Actuator.vbp") + "'";
    EXPECT_EQ(Run("generate '" + step.session + "'" + project + " --registry " + kRegistry +
                      step.options,
                  "cd .. &&"),
              step.exitCode)
        << err_;
    const std::string out = Replaced(out_, folder, "$P");
    if (!step.golden.empty()) {
      EXPECT_TRUE(generator::test::MatchesGoldenText(out, step.golden, "app"));
    }
    EXPECT_NE(out.find(step.out), std::string::npos) << step.out << "\n" << out;
    EXPECT_NE(Replaced(err_, folder, "$P").find(step.err), std::string::npos) << err_;
    EXPECT_EQ(out_.find("\x1b["), std::string::npos);  // no colours into a file
    if (dry || step.exitCode == 1 || step.exitCode == 2) {
      EXPECT_EQ(Snapshot(Project()), before);
    }
    if (dry) {
      const std::string preview =
          Preview(step.session, step.options.find("--diff") != std::string::npos);
      EXPECT_EQ(Snapshot(Project()), before);
      EXPECT_TRUE(out_.ends_with(preview)) << preview;
    }
    if (step.exitCode == 3 && !dry) {  // the conflict is marked in the file
      EXPECT_NE(ReadBytes(Project("Actuator.cls")).find("\r\n<<<<<<< "), std::string::npos);
    }
  }
}

// A preview that fails tells the failure the run would tell, and writes nothing.
TEST_F(GenerateCommandTest, AFailedPreviewIsTheRunsMessage) {
  const struct {
    std::string session;
    bool hostRegistered;
    std::string message;
  } failures[] = {
      {"examples/actuator/Actuator.bvg", false, "Error: ZXBV library not found."},
      {"examples/converter/Converter.bvg", true, "cannot be converted into code"},
  };
  fs::create_directories(Project());
  for (const auto& failure : failures) {
    SCOPED_TRACE(failure.session);
    registry_ = platform::RegistryFiles();
    if (failure.hostRegistered) {
      registry_.AddFile(fs::path(EOW_EXAMPLES_DIR) / "registry/demo-host.reg");
    }
    const std::string preview = Preview(failure.session, false);
    EXPECT_NE(preview.find(failure.message), std::string::npos) << preview;
    EXPECT_TRUE(fs::is_empty(Project()));
  }
}

}  // namespace
