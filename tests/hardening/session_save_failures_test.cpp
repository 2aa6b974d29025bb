// Saving a session where it cannot be saved: every failure ends with the writer's own
// message, leaves every file as it was (the previous session included) with no temporary
// file beside it, and frees the file number, so that the next save to a good path works.
//
// The tests run as root, for whom file permissions stop nothing. A folder that refuses
// new files even to root is taken from sysfs (/sys), which never lets anyone create a
// file; a path below a regular file is refused by every file system.
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

#include "../platform/scratch_folder.h"
#include "file_size_limit.h"
#include "hardening/generation_rig.h"
#include "platform/posix/posix_file_system.h"
#include "session/session_file.h"

namespace hardening {
namespace {

namespace fs = std::filesystem;

const char* const kWriteError = "Error writing generation file";

std::string OpenError(const std::string& path) {
  return "Error: Cann't open generation file '" + path + "' for writing";
}

class SessionSaveFailures : public testing::Test {
 protected:
  // Saves `form` to `path` with the run's file table; the message, "" on success.
  std::string Save(const session::FormState& form, const std::string& path) {
    std::string message;
    const bool saved = session::SaveSession(form, {files_, fs_}, path, message);
    EXPECT_EQ(saved, message.empty()) << message;
    return message;
  }

  ScratchFolder scratch_;
  platform::PosixFileSystem fs_{platform::DriveMap{}};
  vbrt::FileTable files_;
};

TEST_F(SessionSaveFailures, LeaveEveryFileAsItWasAndTheNextSaveWorks) {
  const session::FormState large = LargeRecord(2000, 10);
  const fs::path old = scratch_.Write("Old.bvg", "the previous session\r\n[END]\r\n");
  const fs::path notes = scratch_.Write("notes.txt", "the user's notes\r\n");
  const fs::path folder = scratch_.Write("Session.bvg/inside.txt", "kept").parent_path();
  scratch_.Write("Blocked.bvg", "blocked");
  fs::create_directories(scratch_.Path() / "Blocked.bvg.eow-tmp");
  const struct {
    const char* what;
    fs::path path;
    std::optional<rlim_t> limit;  // a disk that fills up after this many bytes
    bool opens;                   // the failure comes while writing, not on opening
  } cases[] = {
      {"the disk fills up while the previous session is replaced", old, 64 * 1024, true},
      {"a device that is full", "/dev/full", std::nullopt, true},
      {"a folder that refuses new files", "/sys/eowizard-session.bvg", std::nullopt, false},
      {"a path below a regular file", notes / "session.bvg", std::nullopt, false},
      {"a path that is a folder", folder, std::nullopt, false},
      {"the temporary file's place taken by a folder", scratch_.Path() / "Blocked.bvg",
       std::nullopt, false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    if (!fs::exists(c.path == "/dev/full" ? c.path : c.path.parent_path())) continue;
    const auto before = Snapshot(scratch_.Path());
    {
      std::optional<FileSizeLimit> limit;
      if (c.limit) limit.emplace(*c.limit);
      EXPECT_EQ(Save(large, c.path.string()), c.opens ? kWriteError : OpenError(c.path.string()));
    }
    EXPECT_EQ(Snapshot(scratch_.Path()), before);
    EXPECT_FALSE(fs::exists("/sys/eowizard-session.bvg"));
    const fs::path next = scratch_.Path() / "next.bvg";
    EXPECT_EQ(Save(large, next.string()), "");
    EXPECT_NE(ReadBytes(next).find("\r\n[END]\r\n"), std::string::npos);
    fs::remove(next);
  }
}

}  // namespace
}  // namespace hardening
