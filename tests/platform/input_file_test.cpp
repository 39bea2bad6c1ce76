#include <array>
#include <sys/stat.h>

#include "gtest/gtest.h"
#include "platform/InputFile.h"
#include "tests/support/FileBytes.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

using test::ScratchFolder;

std::string ReasonFor(const std::filesystem::path& path) {
  std::string reason;
  EXPECT_FALSE(InputFile::Open(path, reason)) << path;
  return reason;
}

TEST(InputFile, ReadsAtAnyPosition) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "abc", "abcdefgh");
  std::string reason;
  const std::optional<InputFile> file = InputFile::Open(scratch / "abc", reason);
  ASSERT_TRUE(file) << reason;
  EXPECT_EQ(file->Size(), 8U);
  std::array<std::byte, 3> part{};
  EXPECT_EQ(file->ReadAt(5, part, reason), 3U);
  EXPECT_EQ(part[0], std::byte{'f'});
  EXPECT_EQ(part[2], std::byte{'h'});
  EXPECT_EQ(file->ReadAt(0, part, reason), 3U);
  EXPECT_EQ(part[0], std::byte{'a'});
  EXPECT_EQ(reason, "");
}

TEST(InputFile, ReadsFewerBytesWhereTheFileEnds) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "abc", "abc");
  std::string reason;
  const std::optional<InputFile> file = InputFile::Open(scratch / "abc", reason);
  ASSERT_TRUE(file);
  std::array<std::byte, 8> part{};
  EXPECT_EQ(file->ReadAt(1, part, reason), 2U);
  EXPECT_EQ(file->ReadAt(3, part, reason), 0U);
  EXPECT_EQ(file->ReadAt(std::uint64_t{1} << 40U, part, reason), 0U);
  EXPECT_EQ(reason, "");
}

TEST(InputFile, RefusesWhatIsNoRegularFileWithoutWaiting) {
  const ScratchFolder scratch;
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(ReasonFor(scratch / "pipe"), "Not a regular file");
  EXPECT_EQ(ReasonFor("/dev/zero"), "Not a regular file");
  EXPECT_EQ(ReasonFor(scratch.Path()), "Is a directory");
}

TEST(InputFile, GivesTheSystemsReason) {
  const ScratchFolder scratch;
  EXPECT_EQ(ReasonFor(scratch / "missing"), "No such file or directory");
  EXPECT_EQ(ReasonFor(""), "No such file or directory");
  test::WriteText(scratch / "file", "x");
  EXPECT_EQ(ReasonFor(scratch / "file" / "below"), "Not a directory");
  EXPECT_EQ(ReasonFor(scratch / std::string(300, 'n')), "File name too long");
}

TEST(InputFile, RefusesAFileThatMayNotBeRead) {
  const ScratchFolder scratch;
  std::filesystem::permissions(scratch.Path(), std::filesystem::perms::all);
  test::WriteText(scratch / "secret", "x");
  std::filesystem::permissions(scratch / "secret", std::filesystem::perms::none);
  const test::OrdinaryUser user;
  ASSERT_TRUE(user.Effective());
  EXPECT_EQ(ReasonFor(scratch / "secret"), "Permission denied");
}

TEST(ReadWholeFile, GivesTheContentUpToItsLimit) {
  const ScratchFolder scratch;
  const std::string content("a\0b\n", 4);
  test::WriteText(scratch / "file", content);
  std::string reason;
  EXPECT_EQ(ReadWholeFile(scratch / "file", 4, reason), content);
  EXPECT_EQ(reason, "");
  EXPECT_EQ(ReadWholeFile(scratch / "file", 3, reason), std::nullopt);
  EXPECT_EQ(reason, "File too large");
  test::WriteText(scratch / "empty", "");
  EXPECT_EQ(ReadWholeFile(scratch / "empty", 3, reason), "");
  EXPECT_EQ(ReadWholeFile(scratch / "missing", 3, reason), std::nullopt);
  EXPECT_EQ(reason, "No such file or directory");
}

}  // namespace
}  // namespace tembrel
