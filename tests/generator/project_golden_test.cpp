// Whole generations compared with hand-written project files under
// tests/golden/generator/project/<case>/. The golden files are stored with LF line ends and
// compared after turning each LF into CR LF. The project file is compared whole; the class
// and module golden files hold the files' beginning (the header and the first sections,
// whose text the section tests check in full) and are compared as the files' prefix.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "fake_basic_model.h"
#include "generator/generator.h"
#include "platform/posix/posix_file_system.h"
#include "platform/prompt/scripted_prompter.h"
#include "platform/regfile/registry_files.h"
#include "platform/vbfiles/vb_files_environment.h"
#include "test_support.h"

namespace generator::test {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("cannot open " + path.string());
  std::stringstream text;
  text << in.rdbuf();
  return text.str();
}

std::string Golden(const std::string& caseName, const std::string& file) {
  const std::string lf =
      ReadFile(fs::path(EOW_TEST_DIR) / "golden/generator/project" / caseName / file);
  std::string crlf;
  for (char c : lf) {
    if (c == '\n') crlf += '\r';
    crlf += c;
  }
  return crlf;
}

// Every line of `text` ends with CR LF.
bool AllCrLf(const std::string& text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && (i == 0 || text[i - 1] != '\r')) return false;
  }
  return !text.empty() && text.back() == '\n';
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
    EXPECT_EQ(ReadFile(root_ / "proj" / (name + ".vbp")), Golden(caseName, name + ".vbp"));
    for (const std::string ext : {".cls", ".bas"}) {
      const std::string written = ReadFile(root_ / "proj" / (name + ext));
      const std::string golden = Golden(caseName, name + ext);
      EXPECT_EQ(written.substr(0, golden.size()), golden) << name << ext;
      EXPECT_TRUE(AllCrLf(written)) << name << ext;
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
