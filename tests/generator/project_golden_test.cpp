// Whole generations compared byte for byte with hand-written expected files. The project
// file is one golden file, tests/golden/generator/project/<case>/<Name>.vbp. The class and
// the module are composed from hand-written pieces in the order that <Name>.cls.parts and
// <Name>.bas.parts list them: the sections that do not depend on the record are the section
// goldens (sections/*.txt), the others are written per case. Pieces are stored with LF line
// ends; the expected file ends every line with CR LF.
#include <gtest/gtest.h>

#include <filesystem>

#include "generation_fixture.h"
#include "golden_lines.h"
#include "test_support.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;

// Passes when `written` is exactly the lines of the pieces (paths under golden/generator/,
// read from a .parts list that skips blank lines and '#' comments), each ended by CR LF.
::testing::AssertionResult MatchesPieces(const std::string& file, const std::string& written,
                                         const std::vector<std::string>& pieces) {
  std::vector<std::string> expected;
  std::string expectedText;
  for (const std::string& piece : pieces) {
    for (const std::string& line : ReadGoldenLines(piece, "generator")) {
      expected.push_back(line);
      expectedText += line + "\r\n";
    }
  }
  if (written == expectedText) return ::testing::AssertionSuccess();
  const ::testing::AssertionResult lines = SameLines(file, expected, SplitLines(written, "\r\n"));
  if (!lines) return lines;
  return ::testing::AssertionFailure() << file << ": the last line does not end with CR LF";
}

std::vector<std::string> PartsList(const std::string& list) {
  std::vector<std::string> pieces = ReadGoldenLines(list, "generator/project");
  std::erase_if(pieces, [](const std::string& line) { return line.empty() || line[0] == '#'; });
  return pieces;
}

class ProjectGoldenTest : public GenerationTest {
 protected:
  static session::FormState Record(const std::string& name) {
    session::FormState form;
    form.theLocation = "C:\\proj";
    form.theName = name;
    form.edLocation = "C:\\proj\\" + name + ".vbp";
    form.SelectModelCase(false);
    form.SelectDataCase(false);
    return form;
  }

  void ExpectProject(session::FormState& form, const std::string& caseName,
                     platform::AnalysisApplication* application = nullptr) {
    ASSERT_TRUE(Generate(form, application)) << prompter_.shown.back().text;
    const std::string vbp = form.theName + ".vbp";
    EXPECT_TRUE(MatchesPieces(vbp, Read("proj/" + vbp), {"project/" + caseName + "/" + vbp}));
    for (const std::string ext : {".cls", ".bas"}) {
      const std::string file = form.theName + ext;
      EXPECT_TRUE(MatchesPieces(file, Read("proj/" + file),
                                PartsList(caseName + "/" + file + ".parts")));
    }
  }
};

TEST_F(ProjectGoldenTest, LoadedModelAsynchronousWithData) {
  session::FormState form = Record("Motor");
  form.edData = "C:\\basic\\Motor.dms";
  form.chkAsync.value = 1;
  form.cmbType.listIndex = 1;
  AddInput(form, "Gap", "Geometrical", "gap", "mm", "0.1", "5", "1");
  AddOutput(form, "Magnetic flux", "i3", 2, "Res.GetIntegral(zxGrad_n_ds, Cnt).Abs");
  ExpectProject(form, "motor_load_async");
}

TEST_F(ProjectGoldenTest, SynchronousWithoutDataInputsOrOutputs) {
  session::FormState form = Record("Plate");
  form.chkAsync.value = 0;
  ExpectProject(form, "plate_empty_sync");
}

TEST_F(ProjectGoldenTest, ModelConvertedIntoCodeInANumberedFilesFolder) {
  fs::create_directories(scratch_.Path() / "proj/Coil_Files");
  prompter_.Answer(platform::MsgAnswer::No);
  session::FormState form = Record("Coil");
  form.SelectModelCase(true);
  form.SelectDataCase(true);
  form.chkAsync.value = 1;
  FixedApplication application;
  application.model.AddEdge({0, 0}, {1, 0});
  application.model.AddVertex({0, 0});
  ExpectProject(form, "coil_generate_suffix", &application);
}

}  // namespace
}  // namespace generator::test
