#include <string_view>
#include <sys/stat.h>

#include "gtest/gtest.h"
#include "platform/OutputFile.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

using test::ScratchFolder;

std::span<const std::byte> Text(std::string_view text) {
  return std::as_bytes(std::span(text));
}

TEST(OutputFile, AppendsAndOverwrites) {
  const ScratchFolder scratch;
  std::string reason;
  std::optional<OutputFile> file = OutputFile::Create(scratch / "out", reason);
  ASSERT_TRUE(file) << reason;
  EXPECT_TRUE(file->Write(Text("hello "), reason));
  EXPECT_TRUE(file->Overwrite(1, Text("EL"), reason));
  EXPECT_TRUE(file->Write(Text("world"), reason));
  EXPECT_TRUE(file->Flush(reason));
  EXPECT_TRUE(file->Close(reason));
  EXPECT_EQ(test::ReadText(scratch / "out"), "hELlo world");
}

TEST(OutputFile, CutsAnExistingFileToNothingAndKeepsItsIdentity) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "out", "a long old content");
  struct stat before {};
  struct stat after {};
  stat((scratch / "out").c_str(), &before);
  std::string reason;
  ASSERT_TRUE(OutputFile::Create(scratch / "out", reason)->Write(Text("new"), reason));
  stat((scratch / "out").c_str(), &after);
  EXPECT_EQ(test::ReadText(scratch / "out"), "new");
  EXPECT_EQ(before.st_ino, after.st_ino);
}

TEST(OutputFile, CreateNewRefusesANameThatIsTaken) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "taken", "old");
  std::filesystem::create_symlink(scratch / "nowhere", scratch / "dangling");
  std::string reason;
  EXPECT_FALSE(OutputFile::CreateNew(scratch / "taken", OutputFile::Access::kDefault, reason));
  EXPECT_EQ(reason, "File exists");
  EXPECT_FALSE(OutputFile::CreateNew(scratch / "dangling", OutputFile::Access::kDefault, reason));
  EXPECT_EQ(test::ReadText(scratch / "taken"), "old");
}

TEST(OutputFile, ReportsAFullDisk) {
  std::string reason;
  std::optional<OutputFile> file = OutputFile::Create("/dev/full", reason);
  ASSERT_TRUE(file) << reason;
  EXPECT_FALSE(file->Write(Text("x"), reason));
  EXPECT_EQ(reason, "No space left on device");
}

TEST(OutputFile, RefusesAFolderAMissingFolderAndAPipeNobodyReads) {
  const ScratchFolder scratch;
  std::string reason;
  EXPECT_FALSE(OutputFile::Create(scratch.Path(), reason));
  EXPECT_EQ(reason, "Is a directory");
  EXPECT_FALSE(OutputFile::Create(scratch / "missing" / "out", reason));
  EXPECT_EQ(reason, "No such file or directory");
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  EXPECT_FALSE(OutputFile::Create(scratch / "pipe", reason));
  EXPECT_EQ(reason, "No such device or address");
}

}  // namespace
}  // namespace tembrel
