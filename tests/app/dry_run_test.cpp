// The window's preview of a generation against the command line's dry run of the same
// session, over the shipped actuator: a first generation, a regeneration over an edited
// class (merged cleanly) and one whose edit conflicts with a changed limit. The preview
// lists what `generate --dry-run --diff --answer merge` prints, answers its questions
// alike, and leaves the project folder as it was.
#include <filesystem>
#include <regex>
#include <string>
#include <vector>

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

const char* const kRegistry = "examples/registry/demo-host.reg";

struct PreviewCase {
  std::string what;
  std::string session;            // relative to the repository
  std::string edit = "";          // of Actuator.cls before the run: "from|to"
  std::vector<std::string> outcomes;  // "Actuator.cls: merged cleanly", ... by file name
};

class DryRunTest : public ProgramTest {
 protected:
  DryRunTest() { registry_.AddFile(fs::path(EOW_EXAMPLES_DIR) / "registry/demo-host.reg"); }

  std::string Project(const std::string& name = "") const { return Path("Act/" + name); }

  // The preview of `session` generated into the scratch project, as the window makes it.
  generator::DryRunReport Preview(const std::string& session) {
    const fs::path kept = fs::current_path();
    fs::current_path(fs::path(EOW_EXAMPLES_DIR).parent_path());
    wizard::PageChecks checks(files_, registry_, prompter_);
    session::FormState form;
    form.SetFieldHandlers(&checks);
    form.edFile = session;
    vbrt::FileTable table;
    std::string message;
    EXPECT_TRUE(session::LoadSession(form, {table, files_}, session, message)) << message;
    form.SetText(session::TextField::Location, Project("Actuator.vbp"));
    const session::FormState before = form;
    auto report = app::PreviewGeneration(form, files_, registry_, nullptr,
                                         platform::merge::Libgit2Merger);
    EXPECT_EQ(form.FilesFolder, before.FilesFolder);
    fs::current_path(kept);
    return report;
  }

  // What the dry run prints after its questions, told from the preview's report.
  static std::string Printed(const generator::DryRunReport& report) {
    std::string text = "Dry run, nothing was written. The generation would leave:\n";
    for (const auto& entry : report.entries) {
      text += "  " + entry.path + ": " + entry.outcome + "\n";
    }
    auto& merger = platform::merge::Libgit2Merger();
    for (const auto& entry : report.entries) {
      if (entry.generated) text += generator::DiffOf(merger, entry, false);
    }
    return text;
  }

  platform::PosixFileSystem files_{platform::DriveMap{}};
  platform::RegistryFiles registry_;
  platform::ScriptedPrompter prompter_;
};

TEST_F(DryRunTest, ThePreviewListsWhatTheDryRunPrintsAndWritesNothing) {
  std::string v3 = ReadBytes(fs::path(EOW_EXAMPLES_DIR) / "actuator/Actuator-v2.bvg");
  v3.replace(v3.find("MAX=5\r\n"), 7, "MAX=6\r\n");
  const std::string limitChanged = scratch_.Write("v3.bvg", v3).string();
  fs::create_directories(Project());
  const std::string project =
      " --project '" + Project("Actuator.vbp") + "' --registry " + kRegistry;
  const std::vector<PreviewCase> cases = {
      {.what = "a first generation",
       .session = "examples/actuator/Actuator.bvg",
       .outcomes = {"Actuator_Files: folder created", "Actuator_Basic.mod: copied",
                    "Actuator.cls: created", "Actuator.bas: created", "Actuator.vbp: created"}},
      {.what = "an edited class merged cleanly",
       .session = "examples/actuator/Actuator-v2.bvg",
       .edit = "        Max = 5\r\n|        Max = 4.5  ' Gr\xF6\xDF" "e\r\n",
       .outcomes = {"Actuator.cls: merged cleanly", "Actuator.bas: overwritten",
                    "Actuator.vbp: overwritten"}},
      {.what = "the edit conflicting with a changed limit",
       .session = limitChanged,
       .outcomes = {"Actuator.cls: merged with 1 conflict (lines "}},
  };
  for (const PreviewCase& c : cases) {
    SCOPED_TRACE(c.what);
    if (!c.edit.empty()) {
      const std::string first = "generate examples/actuator/Actuator.bvg" + project;
      ASSERT_EQ(Run(first + " --answer yes", "cd .. &&"), 0) << err_;
      const std::string from = c.edit.substr(0, c.edit.find('|'));
      std::string cls = ReadBytes(Project("Actuator.cls"));
      ASSERT_NE(cls.find(from), std::string::npos);
      scratch_.Write("Act/Actuator.cls", cls.replace(cls.find(from), from.size(),
                                                     c.edit.substr(c.edit.find('|') + 1)));
    }
    const auto before = Snapshot(Project());
    const generator::DryRunReport report = Preview(c.session);
    EXPECT_EQ(Snapshot(Project()), before);
    ASSERT_TRUE(report.generated) << report.failure;

    const std::string printed = Printed(report);
    for (const std::string& outcome : c.outcomes) {
      EXPECT_NE(printed.find("/" + outcome), std::string::npos) << outcome << "\n" << printed;
    }
    EXPECT_EQ(Run("generate '" + c.session + "'" + project + " --answer merge --dry-run --diff",
                  "cd .. &&"),
              report.HasConflicts() ? 3 : 0)
        << err_;
    EXPECT_EQ(Snapshot(Project()), before);
    ASSERT_GE(out_.size(), printed.size());
    EXPECT_EQ(out_.substr(out_.size() - printed.size()), printed);

    // The same questions with the same answers, each beside its file.
    std::string answers;
    const std::regex answered("Answered (\\w+) \\(--answer merge\\)");
    for (std::sregex_iterator it(out_.begin(), out_.end(), answered), end; it != end; ++it) {
      answers += (*it)[1].str() + " ";
    }
    std::string assumed;
    for (const auto& question : report.questions) {
      using platform::MsgAnswer;
      assumed += question.answer == MsgAnswer::Merge ? "merge "
                 : question.answer == MsgAnswer::Yes ? "yes "
                                                     : "no ";
    }
    EXPECT_EQ(assumed, answers);
    for (const auto& entry : report.entries) {
      const bool existed = entry.generated && entry.choice != platform::SaveChoice::Create;
      EXPECT_EQ(entry.question.has_value(), existed) << entry.path;
    }
  }
}

TEST_F(DryRunTest, AFailureIsTheReportsMessageAndWritesNothing) {
  struct Failure {
    std::string session;
    bool hostRegistered;
    std::string message;
  };
  const Failure failures[] = {
      {"examples/actuator/Actuator.bvg", false, "Error: ZXBV library not found."},
      {"examples/converter/Converter.bvg", true, "cannot be converted into code"},
  };
  fs::create_directories(Project());
  for (const Failure& failure : failures) {
    SCOPED_TRACE(failure.session);
    registry_ = platform::RegistryFiles();
    if (failure.hostRegistered) {
      registry_.AddFile(fs::path(EOW_EXAMPLES_DIR) / "registry/demo-host.reg");
    }
    const auto before = Snapshot(Project());
    const generator::DryRunReport report = Preview(failure.session);
    EXPECT_FALSE(report.generated);
    EXPECT_NE(report.failure.find(failure.message), std::string::npos) << report.failure;
    EXPECT_TRUE(report.entries.empty());
    EXPECT_EQ(Snapshot(Project()), before);
  }
}

}  // namespace
