// Whole generations compared byte for byte with hand-written expected files. The project
// file is one golden file, tests/golden/generator/project/<case>/<Name>.vbp. The class and
// the module are composed from hand-written pieces in the order that <Name>.cls.parts and
// <Name>.bas.parts list them: the sections that do not depend on the record are the section
// goldens (sections/*.txt), the others are written per case. Pieces are stored with LF line
// ends; the expected file ends every line with CR LF.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "fake_basic_model.h"
#include "generator/generator.h"
#include "golden_lines.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "test_support.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;

const fs::path kGoldenRoot = fs::path(EOW_TEST_DIR) / "golden/generator";

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot open " + path.string());
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

// The pieces that a .parts list names, in order (paths under kGoldenRoot); blank lines and
// lines beginning with '#' are skipped.
std::vector<std::string> PartsList(const fs::path& list) {
  std::vector<std::string> pieces;
  for (const std::string& line : ReadLfLines(list.string())) {
    if (!line.empty() && line[0] != '#') pieces.push_back(line);
  }
  return pieces;
}

struct ExpectedLine {
  std::string text;
  std::string piece;  // where the line is written by hand, for the failure message
  std::size_t pieceLine;
};

std::vector<ExpectedLine> ExpectedLines(const std::vector<std::string>& pieces) {
  std::vector<ExpectedLine> expected;
  for (const std::string& piece : pieces) {
    const std::vector<std::string> lines = ReadLfLines((kGoldenRoot / piece).string());
    for (std::size_t i = 0; i < lines.size(); ++i) expected.push_back({lines[i], piece, i + 1});
  }
  return expected;
}

// `text` with CR, LF and other control or non-ASCII bytes shown as escapes.
std::string Visible(const std::string& text) {
  std::string shown;
  for (unsigned char c : text) {
    if (c == '\r') {
      shown += "\\r";
    } else if (c == '\n') {
      shown += "\\n";
    } else if (c < 0x20 || c >= 0x7f) {
      static const char* kHex = "0123456789ABCDEF";
      shown += "\\x";
      shown += kHex[c >> 4];
      shown += kHex[c & 15];
    } else {
      shown += static_cast<char>(c);
    }
  }
  return shown;
}

// The lines of `written`, each of which ends with CR LF; a rest after the last CR LF is
// kept as a last line of its own.
std::vector<std::string> CrLfLines(const std::string& written) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  std::size_t end = 0;
  while ((end = written.find("\r\n", start)) != std::string::npos) {
    lines.push_back(written.substr(start, end - start));
    start = end + 2;
  }
  if (start < written.size()) lines.push_back(written.substr(start));
  return lines;
}

// Passes when `written` is exactly the pieces' lines, each ended by CR LF; otherwise names
// the first differing line of the file and the piece that line comes from.
::testing::AssertionResult MatchesPieces(const std::string& file, const std::string& written,
                                         const std::vector<std::string>& pieces) {
  const std::vector<ExpectedLine> expected = ExpectedLines(pieces);
  std::string expectedText;
  for (const ExpectedLine& line : expected) expectedText += line.text + "\r\n";
  if (written == expectedText) return ::testing::AssertionSuccess();

  const std::vector<std::string> actual = CrLfLines(written);
  const std::size_t common = std::min(expected.size(), actual.size());
  for (std::size_t i = 0; i < common; ++i) {
    if (expected[i].text != actual[i]) {
      return ::testing::AssertionFailure()
             << file << " line " << i + 1 << " (" << expected[i].piece << " line "
             << expected[i].pieceLine << "):\n  expected [" << Visible(expected[i].text)
             << "]\n  actual   [" << Visible(actual[i]) << "]";
    }
  }
  if (expected.size() < actual.size()) {
    return ::testing::AssertionFailure()
           << file << ": " << expected.size() << " lines expected, " << actual.size()
           << " written; first extra line " << common + 1 << " [" << Visible(actual[common])
           << "]";
  }
  if (expected.size() > actual.size()) {
    return ::testing::AssertionFailure()
           << file << ": " << expected.size() << " lines expected, " << actual.size()
           << " written; first missing line " << common + 1 << " (" << expected[common].piece
           << " line " << expected[common].pieceLine << ") [" << Visible(expected[common].text)
           << "]";
  }
  return ::testing::AssertionFailure() << file << ": the last line does not end with CR LF";
}

class QuietProgress : public ProgressSink {
 public:
  void Load(std::string_view) override {}
  void Show() override {}
  void Unload() override {}
  void Repaint() override {}
  void SetState(std::string_view) override {}
  void SetBarVisible(bool) override {}
  void SetMin(float) override {}
  void SetMax(float) override {}
  float Value() const override { return value_; }
  void SetValue(float value) override { value_ = value; }

 private:
  float value_ = 0;
};

class OneModelApplication : public platform::AnalysisApplication {
 public:
  FakeBasicModel model;
  std::string ProductName() const override { return "Zentrix 5.2"; }
  std::unique_ptr<platform::BasicModel> OpenModel(std::string_view) override {
    return std::make_unique<FakeBasicModel>(model);
  }
};

class ProjectGoldenTest : public ::testing::Test {
 protected:
  ProjectGoldenTest()
      : root_(fs::temp_directory_path() / ("eow_project_golden_" + std::to_string(::getpid()))),
        files_(Drives(root_)),
        environment_(files_, registry_) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "proj");
    registry_.AddFile(fs::path(EOW_EXAMPLES_DIR) / "registry/demo-host.reg");
  }
  ~ProjectGoldenTest() override { fs::remove_all(root_); }

  static platform::DriveMap Drives(const fs::path& root) {
    platform::DriveMap drives;
    drives.Set('C', root);
    return drives;
  }

  session::FormState Record(const std::string& name) {
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
    Generator generator(environment_, application, files_, registry_, prompter_, progress_);
    ASSERT_TRUE(generator.Generate(form)) << prompter_.shown.back().text;
    const std::string& name = form.theName;
    const fs::path caseDir = kGoldenRoot / "project" / caseName;
    const std::string vbp = name + ".vbp";
    EXPECT_TRUE(MatchesPieces(vbp, ReadFile(root_ / "proj" / vbp),
                              {"project/" + caseName + "/" + vbp}));
    for (const std::string ext : {".cls", ".bas"}) {
      const std::string file = name + ext;
      EXPECT_TRUE(MatchesPieces(file, ReadFile(root_ / "proj" / file),
                                PartsList(caseDir / (file + ".parts"))));
    }
  }

  fs::path root_;
  platform::RegistryFiles registry_;
  platform::PosixFileSystem files_;
  platform::VbFilesEnvironment environment_;
  platform::ScriptedPrompter prompter_;
  QuietProgress progress_;
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
  fs::create_directories(root_ / "proj/Coil_Files");
  prompter_.Answer(platform::MsgAnswer::No);
  session::FormState form = Record("Coil");
  form.SelectModelCase(true);
  form.SelectDataCase(true);
  form.chkAsync.value = 1;
  OneModelApplication application;
  application.model.AddEdge({0, 0}, {1, 0});
  application.model.AddVertex({0, 0});
  ExpectProject(form, "coil_generate_suffix", &application);
}

}  // namespace
}  // namespace generator::test
