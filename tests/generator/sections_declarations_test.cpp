#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "generator/sections.h"
#include "golden_lines.h"
#include "sections_records.h"
#include "vbrt/error.h"

namespace generator::test {
namespace {

TEST(WriteDeclarations, AsynchronousHeaderThenOneStepThenModuleDeclarations) {
  StepWatchingEmitter out;
  WriteDeclarations(MotorRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "declarations_class_async.txt"));
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "declarations_module.txt"));
  ASSERT_EQ(out.steps.size(), 1u);
  EXPECT_EQ(out.steps[0].first, out.classLines.size());
  EXPECT_EQ(out.steps[0].second, 0u);
  EXPECT_EQ(out.progress, 1);
}

TEST(WriteDeclarations, SynchronousHeaderHasOneImplementsLine) {
  RecordingEmitter out;
  WriteDeclarations(CoilRecord(), out);
  std::vector<std::string> expected = ReadGoldenLines("declarations_class_async.txt");
  expected.erase(expected.begin() + 1);
  EXPECT_EQ(out.classLines, expected);
  EXPECT_TRUE(MatchesGolden(out.moduleLines, "declarations_module.txt"));
}

TEST(WriteInitialisation, LinkedWithDataResumesAndInitialisesLabels) {
  StepWatchingEmitter out;
  WriteInitialisation(MotorRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "init_linked_with_data.txt"));
  EXPECT_TRUE(out.moduleLines.empty());
  EXPECT_EQ(out.progress, 0);
}

TEST(WriteInitialisation, ByCodeWithoutDataCreatesTheFolderAndKeepsTheSuffix) {
  RecordingEmitter out;
  WriteInitialisation(CoilRecord(), out);
  EXPECT_TRUE(MatchesGolden(out.classLines, "init_by_code_without_data.txt"));
}

TEST(WriteInitialisation, EitherLinkedFileMakesTheObjectExpectItsFolder) {
  session::FormState form = CoilRecord();
  form.SelectDataCase(false);
  RecordingEmitter out;
  WriteInitialisation(form, out);
  const std::vector<std::string> golden = ReadGoldenLines("init_linked_with_data.txt");
  EXPECT_EQ(out.classLines[31], "ResumeWorkFolder:");
  // The linked ending of the procedure, from its error label on.
  const std::vector<std::string> ending(golden.end() - 14, golden.end());
  EXPECT_EQ(std::vector<std::string>(out.classLines.end() - 14, out.classLines.end()), ending);
  EXPECT_EQ(out.classLines.size(), golden.size() - 4);  // without the data lines
}

TEST(WriteInitialisation, CrossedDataExtensionsOfStressAnalysisAndCurrentFlow) {
  const std::string prefix =
      R"(    Prb.ReferencedFile(zxDataFile) = ExploringObject_Path & "\" & theName & "_Files\" & theName & ".)";
  for (const auto& [position, extension] :
       std::vector<std::pair<int16_t, std::string>>{{4, "dcf"}, {5, "dsa"}}) {
    session::FormState form = CoilRecord();
    form.cmbType.listIndex = position;
    RecordingEmitter out;
    WriteInitialisation(form, out);
    EXPECT_EQ(out.classLines[72], prefix + extension + "\"");
  }
}

TEST(WriteInitialisation, NoProblemTypeSelectedFailsWithTheTableMiss) {
  session::FormState form = CoilRecord();
  form.cmbType.listIndex = -1;
  RecordingEmitter out;
  try {
    WriteInitialisation(form, out);
    FAIL() << "no error";
  } catch (const vbrt::VbError& error) {
    EXPECT_EQ(error.Number(), vbrt::kResourceNotFound);
  }
}

}  // namespace
}  // namespace generator::test
