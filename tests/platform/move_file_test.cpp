#include <cstdint>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <vector>

#include "platform/MoveFile.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel::test {
namespace {

namespace fs = std::filesystem;

constexpr char kNoOtherDisk[] = "there is no second file system to move to";

class MovingAFile : public testing::Test {
 protected:
  MovingAFile() {
    WriteText(From(), "sound");
    fs::permissions(From(), fs::perms::owner_read | fs::perms::owner_write);
  }
  fs::path From() const { return folder / "from"; }
  // A free name on another file system; empty when there is none.
  fs::path OnAnotherDisk() const {
    struct stat here {};
    struct stat there {};
    if (stat(folder.Path().c_str(), &here) != 0 || stat("/dev/shm", &there) != 0 ||
        here.st_dev == there.st_dev) {
      return {};
    }
    return "/dev/shm/tembrel-test-" + folder.Path().filename().string();
  }

  ScratchFolder folder;
};

TEST_F(MovingAFile, GivesItTheNameAndThePermissionsOfANewFile) {
  WriteText(folder / "new", "");
  const ReplaceResult moved = MoveFile(From(), folder / "to");
  EXPECT_TRUE(moved.ok) << moved.reason;
  EXPECT_EQ(ReadText(folder / "to"), "sound");
  EXPECT_FALSE(fs::exists(From()));
  EXPECT_EQ(fs::status(folder / "to").permissions(), fs::status(folder / "new").permissions());
}

TEST_F(MovingAFile, CopiesItToAnotherDisk) {
  const fs::path other = OnAnotherDisk();
  if (other.empty()) {
    GTEST_SKIP() << kNoOtherDisk;
  }
  const std::string content(20'000'001, 'x');
  WriteText(From(), content);
  std::vector<std::uint64_t> steps;
  const ReplaceResult moved = MoveFile(From(), other, [&](std::uint64_t done, std::uint64_t total) {
    EXPECT_EQ(total, content.size());
    steps.push_back(done);
  });
  EXPECT_TRUE(moved.ok) << moved.reason;
  EXPECT_EQ(steps, (std::vector<std::uint64_t>{8U << 20U, 16U << 20U}));
  EXPECT_TRUE(ReadText(other) == content);
  EXPECT_FALSE(fs::exists(From()));
  fs::remove(other);
}

TEST_F(MovingAFile, OneThatDoesNotFitOnAnotherDiskStaysAsPrivateAsItWas) {
  const fs::path other = OnAnotherDisk();
  if (other.empty()) {
    GTEST_SKIP() << kNoOtherDisk;
  }
  const fs::perms before = fs::status(From()).permissions();
  const std::string content(100'000, 'x');
  WriteText(From(), content);
  {
    const FileSizeLimit limit(4096);
    const ReplaceResult moved = MoveFile(From(), other);
    EXPECT_FALSE(moved.ok);
    EXPECT_EQ(moved.reason, "File too large");
  }
  EXPECT_FALSE(fs::exists(other));
  EXPECT_TRUE(ReadText(From()) == content);
  EXPECT_EQ(fs::status(From()).permissions(), before);
}

TEST_F(MovingAFile, LeavesAnExistingFileAlone) {
  WriteText(folder / "to", "old");
  const ReplaceResult moved = MoveFile(From(), folder / "to");
  EXPECT_FALSE(moved.ok);
  EXPECT_EQ(moved.reason, "File exists");
  EXPECT_EQ(ReadText(folder / "to"), "old");
  EXPECT_EQ(ReadText(From()), "sound");
}

TEST_F(MovingAFile, FollowsALinkThatLeadsNowhere) {
  fs::create_symlink(folder / "target", folder / "to");
  EXPECT_TRUE(MoveFile(From(), folder / "to").ok);
  EXPECT_TRUE(fs::is_symlink(folder / "to"));
  EXPECT_EQ(ReadText(folder / "target"), "sound");
}

TEST_F(MovingAFile, AMissingFolderIsAnError) {
  const ReplaceResult moved = MoveFile(From(), folder / "nowhere" / "to");
  EXPECT_FALSE(moved.ok);
  EXPECT_EQ(moved.reason, "No such file or directory");
  EXPECT_EQ(ReadText(From()), "sound");
}

TEST_F(MovingAFile, AMissingFileLeavesNothing) {
  EXPECT_FALSE(MoveFile(folder / "nothing", folder / "to").ok);
  EXPECT_FALSE(fs::exists(folder / "to"));
}

}  // namespace
}  // namespace tembrel::test
