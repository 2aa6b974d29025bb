// The session reader on arbitrary bytes, into a fresh form as the wizard starts it. Any
// file must end in true or false without a crash, with the file closed, and the "<new>"
// row must stay last.
// A file that loads and whose outputs all have an icon must survive a save and a second
// load unchanged: the second save gives the same bytes as the first.
#include <cstdlib>

#include "fuzz_input_file.h"
#include "platform/posix/posix_file_system.h"
#include "session/form_state.h"
#include "session/session_file.h"

namespace {

bool Load(session::FormState& form, const platform::FileSystem& fs,
          const std::filesystem::path& file) {
  vbrt::FileTable files;
  std::string message;
  const bool loaded = session::LoadSession(form, {files, fs}, file.string(), message);
  if (files.IsOpen(1)) std::abort();  // loaded or not, the file is closed
  return loaded;
}

std::string Save(const session::FormState& form, const platform::FileSystem& fs,
                 const std::filesystem::path& file) {
  vbrt::FileTable files;
  std::string message;
  if (!session::SaveSession(form, {files, fs}, file.string(), message)) std::abort();
  return fuzz::ReadBytes(file);
}

bool AllIconsSet(const session::FormState& form) {
  for (const session::ListItem& row : form.lvOutput.Items()) {
    if (!row.smallIcon) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const platform::PosixFileSystem fs{platform::DriveMap{}};
  const auto folder = fuzz::ProcessFolder();
  fuzz::WriteBytes(folder / "in.bvg", data, size);

  session::FormState form;
  const bool loaded = Load(form, fs, folder / "in.bvg");
  if (form.lvInput.Count() < 1 || form.lvInput.Item(form.lvInput.Count() - 1).text != "<new>") {
    std::abort();
  }
  if (!loaded || !AllIconsSet(form)) return 0;

  const std::string first = Save(form, fs, folder / "first.bvg");
  session::FormState again;
  if (!Load(again, fs, folder / "first.bvg")) std::abort();
  if (Save(again, fs, folder / "second.bvg") != first) std::abort();
  return 0;
}
