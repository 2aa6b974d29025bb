// Saving a session where it cannot be saved: every failure ends with the reader's and
// writer's own message and touches no other file.
//
// The tests run as root, for whom file permissions stop nothing. A folder that refuses
// new files even to root is taken from sysfs (/sys), which never lets anyone create a
// file; a path below a regular file is refused by every file system.
#include <gtest/gtest.h>

#include <filesystem>

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
  session::FormState form_ = LargeRecord(3, 2);
};

TEST_F(SessionSaveFailures, FullDeviceFailsWhileWritingAndKeepsFileNumberOneTaken) {
  EXPECT_EQ(Save(form_, "/dev/full"), kWriteError);
  // The failed file stays open under number 1, so the next save cannot open its file.
  const std::string next = (scratch_.Path() / "next.bvg").string();
  EXPECT_EQ(Save(form_, next), OpenError(next));
  EXPECT_FALSE(fs::exists(next));
}

TEST_F(SessionSaveFailures, PathsThatCannotBeOpenedLeaveEverythingAlone) {
  const fs::path notes = scratch_.Write("notes.txt", "the user's notes\r\n");
  const fs::path folder = scratch_.Write("Session.bvg/inside.txt", "kept").parent_path();
  // A folder that refuses new files, a path below a regular file, and a folder.
  for (const std::string& path :
       {std::string("/sys/eowizard-session.bvg"), (notes / "session.bvg").string(),
        folder.string()}) {
    SCOPED_TRACE(path);
    EXPECT_EQ(Save(form_, path), OpenError(path));
  }
  EXPECT_FALSE(fs::exists("/sys/eowizard-session.bvg"));
  EXPECT_EQ(fs::file_size(notes), 18u);
  EXPECT_EQ(fs::file_size(folder / "inside.txt"), 4u);
  // Nothing stayed open: a save elsewhere still works.
  EXPECT_EQ(Save(form_, (scratch_.Path() / "ok.bvg").string()), "");
}

TEST_F(SessionSaveFailures, DiskFillingUpDuringTheSaveKeepsTheOtherFiles) {
  const fs::path earlier = scratch_.Write("Earlier.bvg", std::string(10000, 'x'));
  const session::FormState large = LargeRecord(2000, 10);
  const std::string path = (scratch_.Path() / "Large.bvg").string();
  {
    const FileSizeLimit limit(64 * 1024);
    EXPECT_EQ(Save(large, path), kWriteError);
  }
  // The file stays as far as it was written; the earlier session beside it is whole.
  EXPECT_LE(fs::file_size(path), 64u * 1024u);
  EXPECT_EQ(fs::file_size(earlier), 10000u);
}

}  // namespace
}  // namespace hardening
