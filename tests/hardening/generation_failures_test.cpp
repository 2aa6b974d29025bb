// Generating where the disk or the folders get in the way: each run ends with a message,
// leaves the user's earlier files as they were and no project in the environment.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "file_size_limit.h"
#include "generator/generation_fixture.h"
#include "hardening/generation_rig.h"

namespace hardening {
namespace {

namespace fs = std::filesystem;
using platform::MsgAnswer;
using platform::MsgIcon;
using testing::HasSubstr;

// The file system, but the file named by `cue` is deleted just before it is copied, as
// if another program removed it after the wizard had checked it.
class VanishingFileSystem : public platform::PosixFileSystem {
 public:
  explicit VanishingFileSystem(std::string cue)
      : PosixFileSystem(platform::DriveMap{}), cue_(std::move(cue)) {}
  void CopyFile(std::string_view from, std::string_view to) override {
    if (from == cue_) fs::remove(ToNative(from));
    PosixFileSystem::CopyFile(from, to);
  }

 private:
  std::string cue_;
};

// Names of the files in `folder` and below, relative to it.
std::vector<std::string> Listing(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    names.push_back(fs::relative(entry.path(), folder).string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

class GenerationFailures : public generator::test::GenerationTest {
 protected:
  GenerationFailures() {
    form_.theLocation = scratch_.Path().string();
    // Both basic files are taken from file, so both are copied.
    form_.SelectModelCase(false);
    form_.SelectDataCase(false);
    form_.edModel = scratch_.Write("big.mod", "model").string();
    form_.edData = scratch_.Write("big.dms", "data").string();
  }

  bool Generate(platform::FileSystem* files = nullptr) {
    return GenerationTest::Generate(form_, &application_, files);
  }
  const platform::Message& LastMessage() const { return prompter_.shown.back(); }

  FixedApplication application_{RingModel(8)};
  session::FormState form_ = LargeRecord(20, 4);
};

TEST_F(GenerationFailures, FilesFolderThatCannotBeMadeEndsTheRunAndTouchesNothing) {
  form_.theLocation = "/sys";  // refuses new folders
  EXPECT_FALSE(Generate());
  EXPECT_THAT(LastMessage().text, HasSubstr("/sys/Big_Files"));
  EXPECT_FALSE(fs::exists("/sys/Big_Files"));

  form_.theLocation = scratch_.Path().string();
  const fs::path user = scratch_.Write("Big_Files", "the user's own file");
  const auto before = Listing(scratch_.Path());
  EXPECT_FALSE(Generate());
  EXPECT_THAT(LastMessage().text, HasSubstr("File already exists"));
  EXPECT_EQ(Listing(scratch_.Path()), before);
  EXPECT_EQ(fs::file_size(user), 19u);
  ASSERT_EQ(prompter_.shown.size(), 2u);
  for (const platform::Message& message : prompter_.shown) {
    EXPECT_EQ(message.icon, MsgIcon::Critical);
  }
  EXPECT_EQ(environment_.GetVBProjects().Count(), 0);
  EXPECT_FALSE(progress_.shown);
}

TEST_F(GenerationFailures, BasicFileThatVanishesBeforeItsCopyIsLeftOut) {
  VanishingFileSystem vanishing(form_.edModel);
  EXPECT_TRUE(Generate(&vanishing));
  EXPECT_EQ(LastMessage().text, "Your ExploringObject project was succesfully created.");
  const fs::path folder = scratch_.Path() / "Big_Files";
  EXPECT_FALSE(fs::exists(folder / "Big_Basic.mod"));
  EXPECT_TRUE(fs::exists(folder / "Big_Basic.dms"));
  EXPECT_EQ(std::count(written_.begin(), written_.end(), form_.edModel), 0);
  EXPECT_TRUE(fs::exists(scratch_.Path() / "Big.cls"));
}

TEST_F(GenerationFailures, DiskFillingUpWhileTheProjectIsSavedKeepsTheEarlierProject) {
  // An earlier project of the same name, kept: the user answers No to every overwrite.
  for (const char* name : {"Big.vbp", "Big.cls", "Big.bas"}) scratch_.Write(name, "earlier");
  scratch_.Write("Big_Files/keep.txt", "kept");
  for (int i = 0; i < 4; ++i) prompter_.Answer(MsgAnswer::No);
  {
    // Room for the first, empty save of the project, not for the class's text.
    const FileSizeLimit limit(16 * 1024);
    EXPECT_FALSE(Generate());
  }
  EXPECT_EQ(LastMessage().icon, MsgIcon::Critical);
  EXPECT_THAT(LastMessage().text, HasSubstr("Saving the project failed"));
  EXPECT_EQ(environment_.GetVBProjects().Count(), 0);
  for (const char* name : {"Big.vbp", "Big.cls", "Big.bas"}) {
    EXPECT_EQ(fs::file_size(scratch_.Path() / name), 7u) << name;
  }
  EXPECT_EQ(fs::file_size(scratch_.Path() / "Big_Files" / "keep.txt"), 4u);
  // No file of the new project "Big 2" and no half-written temporary file.
  for (const std::string& name : Listing(scratch_.Path())) {
    EXPECT_EQ(name.find("Big 2"), std::string::npos) << name;
    EXPECT_EQ(name.find("tmp"), std::string::npos) << name;
  }
}

}  // namespace
}  // namespace hardening
