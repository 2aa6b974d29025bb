#include "platform/posix/posix_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <stdexcept>

#include "platform/dry_run_file_system.h"
#include "platform/posix/program_folder.h"
#include "../vbrt/raises.h"
#include "scratch_folder.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

class PosixFileSystemTest : public testing::Test {
 protected:
  PosixFileSystem Mapped() {
    DriveMap drives;
    drives.Add("m=" + scratch_.Path().string());
    return PosixFileSystem(std::move(drives));
  }
  ScratchFolder scratch_;
};

TEST_F(PosixFileSystemTest, MapsDriveLettersInEitherCase) {
  scratch_.Write("Models/Coil.mod", "x");
  PosixFileSystem files = Mapped();
  EXPECT_EQ(files.ToNative("M:\\Models\\Coil.mod"), scratch_.Path() / "Models" / "Coil.mod");
  EXPECT_TRUE(files.FileExists("m:\\Models\\Coil.mod"));
  EXPECT_TRUE(files.FileExists("M:/Models/Coil.mod"));
  EXPECT_TRUE(files.FolderExists("M:\\Models"));
  EXPECT_FALSE(files.FileExists("M:\\Models"));
  EXPECT_FALSE(files.FolderExists("M:\\Models\\Coil.mod"));
}

TEST_F(PosixFileSystemTest, UnmappedDriveLeadsNowhere) {
  PosixFileSystem files{DriveMap{}};
  EXPECT_FALSE(files.FolderExists("Q:\\"));
  EXPECT_FALSE(files.FileExists("Q:\\Coil.mod"));
  EXPECT_TRUE(files.ToNative("Q:\\Coil.mod").is_absolute());
  EXPECT_THAT([&] { files.CreateFolder("Q:\\New"); }, RaisesError(vbrt::kPathNotFound));
}

TEST_F(PosixFileSystemTest, DriveSpecsAreCheckedAndExplicitMappingsWin) {
  fs::create_directories(scratch_.Path() / "wine" / "dosdevices" / "c:");
  fs::create_directories(scratch_.Path() / "mine");
  setenv("WINEPREFIX", (scratch_.Path() / "wine").c_str(), 1);
  DriveMap drives = DriveMap::FromEnvironment();
  unsetenv("WINEPREFIX");
  EXPECT_EQ(drives.Folder('C'), scratch_.Path() / "wine" / "dosdevices" / "c:");
  EXPECT_EQ(drives.Folder('d'), std::nullopt);
  drives.Add("C=" + (scratch_.Path() / "mine").string());
  EXPECT_EQ(drives.Folder('c'), scratch_.Path() / "mine");

  for (const char* bad : {"", "C", "C=", "C:/dir", "1=/dir", "CD=/dir"}) {
    SCOPED_TRACE(bad);
    EXPECT_THROW(drives.Add(bad), std::invalid_argument);
  }
}

TEST_F(PosixFileSystemTest, AbsolutePathKeepsTheFormGiven) {
  PosixFileSystem files = Mapped();
  EXPECT_EQ(files.AbsolutePath("m:/Models\\.\\Coil\\..\\Coil.vbp"), "M:\\Models\\Coil.vbp");
  EXPECT_EQ(files.AbsolutePath("C:"), "C:\\");
  EXPECT_EQ(files.AbsolutePath("/tmp//a/../b/"), "/tmp/b");
  const fs::path cwd = fs::current_path();
  EXPECT_EQ(files.AbsolutePath("sub\\Coil.bvg"), (cwd / "sub" / "Coil.bvg").string());
}

TEST_F(PosixFileSystemTest, RelativePathsAreRelativeToTheCurrentFolder) {
  scratch_.Write("Session.bvg", "");
  const fs::path cwd = fs::current_path();
  fs::current_path(scratch_.Path());
  PosixFileSystem files{DriveMap{}};
  const bool found = files.FileExists("Session.bvg");
  fs::current_path(cwd);
  EXPECT_TRUE(found);
}

// Folders made one level at a time, copies that replace, deletions of files only, and
// what later questions see; a dry run's file system answers and fails alike over the
// real one, and leaves the disk as it was.
TEST_F(PosixFileSystemTest, MakesCopiesAndDeletesOrADryRunPretendsTo) {
  scratch_.Write("a.mod", "new");
  scratch_.Write("b.mod", "old text");
  fs::create_directories(scratch_.Path() / "dir");
  PosixFileSystem real = Mapped();
  DryRunFileSystem dryRun(real);
  for (FileSystem* files : {static_cast<FileSystem*>(&dryRun), static_cast<FileSystem*>(&real)}) {
    SCOPED_TRACE(files == &real ? "real" : "dry run");
    const auto before = Snapshot(scratch_.Path());
    files->CreateFolder("M:\\Project");
    EXPECT_TRUE(files->FolderExists("M:\\Project"));
    EXPECT_THAT([&] { files->CreateFolder("M:\\Project"); }, RaisesError(58));
    EXPECT_THAT([&] { files->CreateFolder("M:\\Missing\\Project"); },
                RaisesError(vbrt::kPathNotFound));
    files->CopyFile("M:\\a.mod", "M:\\Project\\c.mod");
    files->CopyFile("M:\\a.mod", "M:\\b.mod");
    EXPECT_TRUE(files->FileExists("M:\\Project\\c.mod"));
    EXPECT_THAT([&] { files->CopyFile("M:\\none.mod", "M:\\c.mod"); },
                RaisesError(vbrt::kFileNotFound, testing::HasSubstr("M:\\none.mod")));
    EXPECT_THAT([&] { files->CopyFile("M:\\a.mod", "M:\\no\\c.mod"); },
                RaisesError(vbrt::kPathNotFound));
    files->DeleteFile("M:\\a.mod");
    EXPECT_FALSE(files->FileExists("M:\\a.mod"));
    EXPECT_THAT([&] { files->DeleteFile("M:\\a.mod"); }, RaisesError(vbrt::kFileNotFound));
    if (files == &dryRun) {
      EXPECT_EQ(Snapshot(scratch_.Path()), before);
    }
  }
  EXPECT_EQ(fs::file_size(scratch_.Path() / "b.mod"), 3u);
  EXPECT_THAT([&] { real.DeleteFile("M:\\dir"); }, RaisesError(vbrt::kPathFileAccessError));
}

TEST(ProgramFolder, HoldsTheRunningTest) {
  EXPECT_TRUE(fs::exists(ProgramFolder() / "eow_platform_tests"));
}

}  // namespace
}  // namespace platform
