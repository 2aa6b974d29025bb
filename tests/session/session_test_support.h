#pragma once
// Shared helpers of the session tests: a scratch folder, whole-file bytes, the session
// reader and writer bound to one file table, and handlers that record what ran.
#include <unistd.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/posix_file_system.h"
#include "session/form_state.h"
#include "session/session_file.h"
#include "vbrt/file_table.h"

namespace session::test {

inline std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// Joins the lines, each ended by CR LF.
inline std::string CrLf(std::initializer_list<std::string_view> lines) {
  std::string bytes;
  for (const std::string_view line : lines) {
    bytes += line;
    bytes += "\r\n";
  }
  return bytes;
}

inline std::string Golden(const std::string& name) {
  return ReadBytes(std::filesystem::path(EOW_TEST_DIR) / "golden" / "session" / name);
}

// Records every change handler that SetText ran, with the text it saw.
class RecordingHandlers : public FieldHandlers {
 public:
  std::vector<std::pair<TextField, std::string>> calls;
  void TextSet(FormState& form, TextField field) override {
    const std::string* text = field == TextField::Location ? &form.edLocation
                              : field == TextField::Model  ? &form.edModel
                              : field == TextField::Data   ? &form.edData
                                                           : &form.edSketch;
    calls.emplace_back(field, *text);
  }
};

// A test with its own scratch folder, file table and file system (no drive letters).
class SessionFileTest : public ::testing::Test {
 protected:
  SessionFileTest()
      : dir_(std::filesystem::temp_directory_path() /
             ("eow_session_" + std::to_string(::getpid()) + "_" +
              ::testing::UnitTest::GetInstance()->current_test_info()->name())),
        fs_(platform::DriveMap{}) {
    std::filesystem::remove_all(dir_);
    std::filesystem::create_directories(dir_);
  }
  ~SessionFileTest() override { std::filesystem::remove_all(dir_); }

  std::string Path(const std::string& name) const { return (dir_ / name).string(); }
  SessionIo Io() { return {files_, fs_}; }

  bool Load(FormState& form, const std::string& path, std::string& message) {
    return LoadSession(form, Io(), path, message);
  }
  bool Save(const FormState& form, const std::string& path, std::string& message) {
    return SaveSession(form, Io(), path, message);
  }
  // Writes `bytes` to a file of the scratch folder and loads it into `form`.
  bool LoadBytes(FormState& form, std::string_view bytes, std::string& message) {
    const std::string path = Path("in.bvg");
    WriteBytes(path, bytes);
    return Load(form, path, message);
  }

  std::filesystem::path dir_;
  vbrt::FileTable files_;
  platform::PosixFileSystem fs_;
};

// Fills the form with the example session of the file format's description.
inline void FillCoil(FormState& form) {
  form.SetText(TextField::Location, "C:\\Models\\Coil\\Coil.vbp");
  form.edAuthor = "Design group";
  form.chkAsync.SetValue(1);
  form.cmbType.SetListIndex(1);
  form.cmbClass.SetListIndex(1);
  form.cmbCoord.SetListIndex(0);
  form.cmbUnit.SetListIndex(1);
  form.SetText(TextField::Model, "C:\\Models\\Coil\\coil.mod");
  form.SelectModelCase(true);
  form.SetText(TextField::Data, "C:\\Models\\Coil\\coil.dms");
  form.SelectDataCase(false);
  const int row = form.lvInput.Add("Coil radius", "", std::nullopt, form.lvInput.Count() - 1);
  const char* values[] = {"Geometrical", "R", "mm", "1", "20", "5"};
  for (int i = 0; i < 6; ++i) form.lvInput.SetSubItem(row, i + 1, values[i]);
  const int out = form.lvOutput.Add("Magnetic flux", "Flux", int16_t{2});
  form.lvOutput.SetSubItem(out, 1, "Res.GetIntegral(zxFluxLinkage, Cnt).Abs");
}

}  // namespace session::test
