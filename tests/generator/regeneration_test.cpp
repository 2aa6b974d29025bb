// Generating again over a project the engineer wrote code into, as the engineer meets it:
// the project is generated, the engineer edits it, the session changes, and the project is
// generated again, with merge, without pristine copies, as a dry run or failing on the way.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "generation_fixture.h"
#include "generator/merge_report.h"
#include "platform/dry_run_file_system.h"
#include "test_support.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgButtons;
using platform::SavedFile;

// One change of a generated file: `from` (which occurs once) becomes `to`.
struct Edit {
  std::string file;
  std::string from;
  std::string to;
};

// Code in the module's TODO block, from an editor that ends lines with a bare LF, with a
// Windows-1252 "µ".
const Edit kModuleEdit{"Act.bas", "    ''' TODO: Modify Zentrix model (Mdl) here\r\n",
                       "    ''' TODO: Modify Zentrix model (Mdl) here\r\n"
                       "    ' Armature at the air gap (\xB5m)\n"
                       "    Mdl.Shapes.Blocks(\"Armature\").Move gap, 0\n"};
// A limit line of the class, with Windows-1252 letters.
const Edit kLimitEdit{"Act.cls", "        Max = 5\r\n",
                      "        Max = 4.5  ' Gr\xF6\xDF" "e of the stop\r\n"};
const Edit kProjectEdit{"Act.vbp", "MajorVer=1\r\n", "MajorVer=2\r\n"};

// The limit edit against the session's new maximum 6.
const std::string kLimitConflict =
    "<<<<<<< Act.cls as you changed it\r\n"
    "        Max = 4.5  ' Gr\xF6\xDF" "e of the stop\r\n"
    "||||||| Act.cls as generated before\r\n"
    "        Max = 5\r\n"
    "=======\r\n"
    "        Max = 6\r\n"
    ">>>>>>> Act.cls as generated now\r\n";

const std::string kMergedReport =
    "Your ExploringObject project was succesfully created.\nYour changes were merged into:\n"
    "C:\\proj\\Act.cls\nC:\\proj\\Act.bas";
const std::string kConflictReport =
    "Your ExploringObject project was generated, but your changes and the new code conflict. "
    "The conflicting lines are marked with <<<<<<< and >>>>>>> in:\n"
    "C:\\proj\\Act.cls: lines 222-228";

struct Scenario {
  std::string name;
  std::vector<Edit> edits = {};  // the engineer's, after the first generation
  bool extend = false;           // then one more input and one more output in the session
  bool changeLimit = false;      // and the edited limit changed in the session too
  std::vector<std::string> removed = {};  // removed from the project folder before regenerating
  std::string blocked = "";  // a folder where this temporary file would go: its write fails
  bool dryRun = false;
  std::vector<MsgAnswer> answers = {};   // files folder (when it exists), project, class, module
  std::vector<MsgButtons> offered = {};  // by the project, class and module questions
  bool generated = true;
  std::string classConflict = "";  // the class's one conflict, "" when it has none
  std::string report = "";         // the window's message after a real run, "" when none
};

void PrintTo(const Scenario& s, std::ostream* out) { *out << s.name; }

const MsgButtons kAsBefore = MsgButtons::YesNoCancel;
const MsgButtons kMerge = MsgButtons::MergeYesNoCancel;

// Lines `first` to `last` of `text`, counted from 1, with their line ends.
std::string Lines(const std::string& text, int first, int last) {
  std::size_t begin = 0;
  for (int line = 1; line < first; ++line) begin = text.find('\n', begin) + 1;
  std::size_t end = begin;
  for (int line = first; line <= last; ++line) end = text.find('\n', end) + 1;
  return text.substr(begin, end - begin);
}

std::string WithCrLf(std::string text) {
  for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 2)) {
    if (at == 0 || text[at - 1] != '\r') text.insert(at++, "\r");
  }
  return text;
}

class RegenerationTest : public GenerationTest, public ::testing::WithParamInterface<Scenario> {
 protected:
  RegenerationTest() {
    scratch_.Write("basic/Act.mod", "model");
    scratch_.Write("basic/Act.dms", "data");
    form_.theLocation = "C:\\proj";
    form_.theName = "Act";
    form_.edLocation = "C:\\proj\\Act.vbp";
    form_.edModel = "C:\\basic\\Act.mod";
    form_.edData = "C:\\basic\\Act.dms";
    form_.cmbType.listIndex = 1;  // Magnetostatics
    form_.chkAsync.value = 1;
    form_.SelectModelCase(false);
    form_.SelectDataCase(false);
    AddInput(form_, "Air gap", "Geometrical", "gap", "mm", "0.1", "5", "1");
    AddInput(form_, "Coil current", "Physical", "current", "A", "0", "20", "5");
    AddOutput(form_, "Magnetic flux", "i3", 2, "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs");
  }

  void Apply(const Edit& edit) {
    std::string text = Read("proj/" + edit.file);
    ASSERT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
    const std::size_t at = text.find(edit.from);
    ASSERT_NE(at, std::string::npos) << edit.from;
    ASSERT_EQ(text.find(edit.from, at + 1), std::string::npos) << edit.from;
    scratch_.Write("proj/" + edit.file, text.replace(at, edit.from.size(), edit.to));
  }

  // Regenerates as the scenario says; returns whether it succeeded and the saved files.
  bool Regenerate(const Scenario& s, std::vector<SavedFile>& saved) {
    for (const MsgAnswer answer : s.answers) prompter_.Answer(answer);
    if (!s.dryRun) {
      const bool done = Generate(form_, nullptr);
      saved = environment_.GetRegeneration()->Saved();
      return done;
    }
    platform::DryRunFileSystem dry(files_);
    platform::VbFilesEnvironment environment(dry, registry_, platform::merge::Libgit2Merger,
                                             platform::vbfiles::Saving::DryRun);
    Generator generator(environment, nullptr, dry, registry_, prompter_, progress_);
    const bool done = generator.Generate(form_);
    saved = environment.GetRegeneration()->Saved();
    return done;
  }

  session::FormState form_;
};

TEST_P(RegenerationTest, KeepsTheEngineersWork) {
  const Scenario& s = GetParam();
  ASSERT_TRUE(Generate(form_, nullptr)) << prompter_.shown.back().text;
  prompter_.shown.clear();
  for (const Edit& edit : s.edits) Apply(edit);
  if (s.extend) {
    AddInput(form_, "Pole width", "Geometrical", "pole", "mm", "2", "10", "4");
    AddOutput(form_, "Stored energy", "", 3, "Res.GetIntegral(zxEnergy, Cnt).Abs");
  }
  if (s.changeLimit) form_.lvInput.SetSubItem(0, 5, "6");
  const fs::path project = scratch_.Path() / "proj";
  for (const std::string& name : s.removed) fs::remove_all(project / name);
  if (!s.blocked.empty()) fs::create_directories(project / s.blocked);
  const auto before = Snapshot(project);

  std::vector<SavedFile> saved;
  EXPECT_EQ(Regenerate(s, saved), s.generated) << prompter_.shown.back().text;
  EXPECT_EQ(prompter_.Pending(), 0u);

  // The three file questions: as they always were, or with the line that offers Merge.
  std::vector<platform::Message> questions;
  std::copy_if(prompter_.shown.begin(), prompter_.shown.end(), std::back_inserter(questions),
               [](const platform::Message& m) { return m.buttons != MsgButtons::OK; });
  ASSERT_GE(questions.size(), 3u);
  questions.erase(questions.begin(), questions.end() - 3);
  const char* kinds[] = {"Project file 'C:\\proj\\Act.vbp'", "Class module 'C:\\proj\\Act.cls'",
                         "Module 'C:\\proj\\Act.bas'"};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(questions[i].buttons, s.offered[i]) << kinds[i];
    EXPECT_EQ(questions[i].text,
              std::string(kinds[i]) + " already exists. Overwrite ?" +
                  (s.offered[i] == kMerge
                       ? "\nThe file was changed since it was generated: Merge keeps those changes."
                       : ""));
  }

  // What the files hold afterwards (a dry run: what they would hold).
  const auto content = [&](const std::string& file) {
    if (!s.dryRun) return Read("proj/" + file);
    const auto it = std::find_if(saved.begin(), saved.end(), [&](const SavedFile& f) {
      return f.path == "C:\\proj\\" + file;
    });
    return it == saved.end() ? std::string() : it->after;
  };
  if (!s.generated || s.dryRun) {
    EXPECT_EQ(Snapshot(project), before);
  }
  if (!s.generated) {
    // The failure named is the one made to happen.
    EXPECT_NE(prompter_.shown.back().text.find("Saving the project failed: Cannot write '" +
                                                (project / s.blocked).replace_extension().string()),
              std::string::npos)
        << prompter_.shown.back().text;
  }
  if (s.generated) {
    for (const Edit& edit : s.edits) {
      EXPECT_NE(content(edit.file).find(WithCrLf(edit.to)), std::string::npos) << edit.to;
    }
    if (s.extend) {
      EXPECT_NE(content("Act.cls").find("\"Pole width\", \"pole\", \"mm\", 4"), std::string::npos);
      EXPECT_NE(content("Act.cls").find("Prms.AddResult \"Stored energy\""), std::string::npos);
      EXPECT_NE(content("Act.bas").find("pole = theParameters(\"Pole width\").Value"),
                std::string::npos);
    }
    EXPECT_EQ(content("Act.bas").find("<<<<<<<"), std::string::npos);
    const std::string cls = content("Act.cls");
    EXPECT_EQ(cls.find("<<<<<<<") != std::string::npos, !s.classConflict.empty());
    for (const SavedFile& file : saved) {
      if (file.path != "C:\\proj\\Act.cls" || s.classConflict.empty()) {
        EXPECT_TRUE(file.conflicts.empty()) << file.path;
        continue;
      }
      ASSERT_EQ(file.conflicts.size(), 1u);
      EXPECT_EQ(Lines(cls, file.conflicts[0].first, file.conflicts[0].last), s.classConflict);
    }
  }
  if (s.generated && !s.dryRun) {
    // The pristine copies hold the new generated text, never the engineer's.
    for (const char* file : {"Act.vbp", "Act.cls", "Act.bas"}) {
      const std::string pristine = Read("proj/.eowizard/" + std::string(file));
      EXPECT_EQ(pristine.find("<<<<<<<"), std::string::npos) << file;
      for (const Edit& edit : s.edits) {
        EXPECT_EQ(pristine.find(edit.to), std::string::npos) << file;
      }
      if (s.extend && file != std::string("Act.vbp")) {
        EXPECT_NE(pristine.find("Pole width"), std::string::npos) << file;
      }
    }
    const auto outcome = MergeOutcome(saved);
    EXPECT_EQ(outcome ? outcome->text : "", s.report);
    const bool succeeded = prompter_.shown.back().text ==
                           "Your ExploringObject project was succesfully created.";
    EXPECT_EQ(succeeded, s.report.empty());  // a merge is reported instead
  }
}

INSTANTIATE_TEST_SUITE_P(
    Engineer, RegenerationTest,
    ::testing::Values(
        Scenario{.name = "EditsStayBesideTheNewParametersCode",
                 .edits = {kModuleEdit, kLimitEdit},
                 .extend = true,
                 .answers = {MsgAnswer::Yes, MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Merge},
                 .offered = {kAsBefore, kMerge, kMerge},
                 .report = kMergedReport},
        Scenario{.name = "TheSameLimitChangedInTheSessionConflictsThere",
                 .edits = {kModuleEdit, kLimitEdit},
                 .extend = true,
                 .changeLimit = true,
                 .answers = {MsgAnswer::Yes, MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Merge},
                 .offered = {kAsBefore, kMerge, kMerge},
                 .classConflict = kLimitConflict,
                 .report = kConflictReport},
        Scenario{.name = "WithoutPristineCopiesTheQuestionsAreAsBefore",
                 .edits = {kLimitEdit},
                 .removed = {".eowizard"},
                 .answers = {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::No, MsgAnswer::No},
                 .offered = {kAsBefore, kAsBefore, kAsBefore}},
        Scenario{.name = "ADryRunWritesNothing",
                 .edits = {kModuleEdit, kLimitEdit},
                 .extend = true,
                 .changeLimit = true,
                 .removed = {"Act_Files"},
                 .dryRun = true,
                 .answers = {MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Merge},
                 .offered = {kAsBefore, kMerge, kMerge},
                 .classConflict = kLimitConflict},
        Scenario{.name = "AFailedRunLeavesTheEngineersFilesAndCopies",
                 .edits = {kModuleEdit, kLimitEdit, kProjectEdit},
                 .extend = true,
                 .blocked = ".eowizard/Act.bas.eow-tmp",
                 .answers = {MsgAnswer::Yes, MsgAnswer::Merge, MsgAnswer::Merge, MsgAnswer::Merge},
                 .offered = {kMerge, kMerge, kMerge},
                 .generated = false},
        Scenario{.name = "AFailedRunRemovesThePristineCopiesItWrote",
                 .edits = {kLimitEdit},
                 .blocked = ".eowizard/Act 2.bas.eow-tmp",
                 .answers = {MsgAnswer::Yes, MsgAnswer::No, MsgAnswer::No, MsgAnswer::No},
                 .offered = {kAsBefore, kMerge, kAsBefore},
                 .generated = false}),
    [](const ::testing::TestParamInfo<Scenario>& info) { return info.param.name; });

}  // namespace
}  // namespace generator::test
