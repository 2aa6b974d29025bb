#pragma once
// Shared helpers of the session tests: CR LF lines, golden bytes, the example record,
// and a fixture with its own scratch folder, file table and file system (no drive letters).
#include <filesystem>
#include <string>

#include <gtest/gtest.h>

#include "../generator/test_support.h"
#include "../platform/scratch_folder.h"
#include "platform/posix/posix_file_system.h"
#include "session/form_state.h"
#include "session/session_file.h"
#include "vbrt/file_table.h"

namespace session::test {

// Joins the lines, each ended by CR LF.
inline std::string CrLf(std::initializer_list<std::string_view> lines) {
  std::string bytes;
  for (const std::string_view line : lines) bytes.append(line).append("\r\n");
  return bytes;
}

inline std::string Golden(const std::string& name) {
  return ReadBytes(std::filesystem::path(EOW_TEST_DIR) / "golden" / "session" / name);
}

class SessionFileTest : public ::testing::Test {
 protected:
  std::string Path(const std::string& name) const { return (scratch_.Path() / name).string(); }
  bool Load(FormState& form, const std::string& path, std::string& message) {
    return LoadSession(form, {files_, fs_}, path, message);
  }
  bool Save(const FormState& form, const std::string& path, std::string& message) {
    return SaveSession(form, {files_, fs_}, path, message);
  }
  // Writes `bytes` to a file of the scratch folder and loads it into `form`.
  bool LoadBytes(FormState& form, const std::string& bytes, std::string& message) {
    return Load(form, scratch_.Write("in.bvg", bytes).string(), message);
  }

  ScratchFolder scratch_;
  vbrt::FileTable files_;
  platform::PosixFileSystem fs_{platform::DriveMap{}};
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
  generator::test::AddInput(form, "Coil radius", "Geometrical", "R", "mm", "1", "20", "5");
  generator::test::AddOutput(form, "Magnetic flux", "Flux", 2,
                             "Res.GetIntegral(zxFluxLinkage, Cnt).Abs");
}

}  // namespace session::test
