#include <csignal>
#include <string_view>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "gmock/gmock.h"
#include "gtest/gtest.h"
#include "platform/OutputFile.h"
#include "platform/ReplaceFile.h"
#include "tests/support/FailingOutput.h"
#include "tests/support/FileBytes.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

namespace fs = std::filesystem;
using test::FileSizeLimit;
using test::ScratchFolder;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

mode_t ModeOf(const fs::path& path) {
  struct stat status {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777U;
}

TEST(ReplaceFile, PutsNewContentInPlaceOfTheOldAndLeavesNothingBeside) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "song.wav", "the old and longer content");
  const ReplaceResult result = WriteWholeFile(scratch / "song.wav", "new");
  EXPECT_TRUE(result.ok) << result.reason;
  EXPECT_EQ(test::ReadText(scratch / "song.wav"), "new");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("song.wav"));
}

TEST(ReplaceFile, CreatesAMissingFileWithThePermissionsTheUsersMaskLeaves) {
  const ScratchFolder scratch;
  const mode_t before = umask(027);
  EXPECT_TRUE(WriteWholeFile(scratch / "new", "x").ok);
  umask(before);
  EXPECT_EQ(ModeOf(scratch / "new"), 0640U);
}

TEST(ReplaceFile, KeepsThePermissionsOfTheOldFile) {
  const ScratchFolder scratch;
  for (const mode_t mode : {0600U, 0664U, 0755U, 0604U}) {
    test::WriteText(scratch / "file", "old");
    ASSERT_EQ(chmod((scratch / "file").c_str(), mode), 0);
    EXPECT_TRUE(WriteWholeFile(scratch / "file", "new").ok);
    EXPECT_EQ(ModeOf(scratch / "file"), mode);
  }
}

TEST(ReplaceFile, KeepsOwnerAndGroupWhereTheUserMayGiveThem) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "only root may give files away";
  }
  const ScratchFolder scratch;
  test::WriteText(scratch / "file", "old");
  ASSERT_EQ(chown((scratch / "file").c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod((scratch / "file").c_str(), 0664), 0);
  EXPECT_TRUE(WriteWholeFile(scratch / "file", "new").ok);
  struct stat status {};
  ASSERT_EQ(stat((scratch / "file").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234U);
  EXPECT_EQ(status.st_gid, 4321U);
  EXPECT_EQ(status.st_mode & 07777U, 0664U);
}

TEST(ReplaceFile, DoesNotHandAForeignGroupsRightsToTheUsersOwn) {
  if (geteuid() != 0) {
    GTEST_SKIP() << "needs a file of somebody else";
  }
  const ScratchFolder scratch;
  fs::permissions(scratch.Path(), fs::perms::all);
  test::WriteText(scratch / "file", "old");
  ASSERT_EQ(chown((scratch / "file").c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod((scratch / "file").c_str(), 0676), 0);
  const test::OrdinaryUser user;
  ASSERT_TRUE(user.Effective());
  ASSERT_TRUE(WriteWholeFile(scratch / "file", "new").ok);
  struct stat status {};
  ASSERT_EQ(stat((scratch / "file").c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, geteuid());
  EXPECT_EQ(status.st_mode & 07777U, status.st_gid == 4321U ? 0676U : 0666U);
}

TEST(ReplaceFile, LeavesASymbolicLinkALink) {
  const ScratchFolder scratch;
  fs::create_directory(scratch / "deep");
  test::WriteText(scratch / "deep" / "real.wav", "old");
  fs::create_symlink("deep/real.wav", scratch / "relative");
  fs::create_symlink(scratch / "relative", scratch / "absolute");
  EXPECT_TRUE(WriteWholeFile(scratch / "absolute", "new").ok);
  EXPECT_TRUE(fs::is_symlink(scratch / "absolute"));
  EXPECT_TRUE(fs::is_symlink(scratch / "relative"));
  EXPECT_FALSE(fs::is_symlink(scratch / "deep" / "real.wav"));
  EXPECT_EQ(test::ReadText(scratch / "deep" / "real.wav"), "new");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("deep", "relative", "absolute"));
}

TEST(ReplaceFile, CreatesWhatADanglingLinkPointsTo) {
  const ScratchFolder scratch;
  fs::create_symlink("target", scratch / "link");
  EXPECT_TRUE(WriteWholeFile(scratch / "link", "new").ok);
  EXPECT_TRUE(fs::is_symlink(scratch / "link"));
  EXPECT_EQ(test::ReadText(scratch / "target"), "new");
}

TEST(ReplaceFile, RefusesLinksThatLeadRoundInACircle) {
  const ScratchFolder scratch;
  fs::create_symlink("b", scratch / "a");
  fs::create_symlink("a", scratch / "b");
  const ReplaceResult result = WriteWholeFile(scratch / "a", "new");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.reason, "Too many levels of symbolic links");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("a", "b"));
}

TEST(ReplaceFile, NamesTheSystemsReasonForAMissingFolder) {
  const ScratchFolder scratch;
  const ReplaceResult result = WriteWholeFile(scratch / "gone" / "file", "new");
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.reason, "No such file or directory");
}

TEST(ReplaceFile, RefusesFoldersPipesAndDevices) {
  const ScratchFolder scratch;
  fs::create_directory(scratch / "folder");
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  EXPECT_EQ(WriteWholeFile(scratch / "folder", "x").reason, "Is a directory");
  EXPECT_EQ(WriteWholeFile(scratch / "pipe", "x").reason, "Not a regular file");
  EXPECT_EQ(WriteWholeFile("/dev/null", "x").reason, "Not a regular file");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("folder", "pipe"));
}

TEST(ReplaceFile, RefusesAFileThatMayNotBeWrittenEvenInAFolderThatMay) {
  const ScratchFolder scratch;
  fs::permissions(scratch.Path(), fs::perms::all);
  test::WriteText(scratch / "protected", "old");
  fs::permissions(scratch / "protected", fs::perms::owner_read | fs::perms::others_read);
  {
    const test::OrdinaryUser user;
    ASSERT_TRUE(user.Effective());
    const ReplaceResult result = WriteWholeFile(scratch / "protected", "new");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.reason, "Permission denied");
  }
  EXPECT_EQ(test::ReadText(scratch / "protected"), "old");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("protected"));
}

TEST(ReplaceFile, RefusesAFolderThatMayNotBeWritten) {
  const ScratchFolder scratch;
  fs::create_directory(scratch / "folder");
  fs::permissions(scratch.Path(), fs::perms::all);
  fs::permissions(scratch / "folder", fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
  const test::OrdinaryUser user;
  ASSERT_TRUE(user.Effective());
  EXPECT_EQ(WriteWholeFile(scratch / "folder" / "file", "x").reason, "Permission denied");
}

TEST(ReplaceFile, LeavesTheOldFileAndNoLitterWhenAnyWriteFails) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "file", "old");
  const auto fill = [](ByteOutput& output, std::string& reason, int failingCall) {
    test::FailingOutput failing(failingCall, &output);
    for (int i = 0; i < 4; ++i) {
      if (!failing.Write(std::as_bytes(std::span("part", 4)), reason)) {
        return false;
      }
    }
    return failing.Overwrite(0, std::as_bytes(std::span("P", 1)), reason);
  };
  for (int failingCall = 1; failingCall <= 5; ++failingCall) {
    const ReplaceResult result = ReplaceFile(scratch / "file", [&](ByteOutput& output, std::string& reason) {
      return fill(output, reason, failingCall);
    });
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.reason, test::kInjectedReason);
    EXPECT_EQ(test::ReadText(scratch / "file"), "old");
    EXPECT_THAT(scratch.Names(), UnorderedElementsAre("file"));
  }
  EXPECT_TRUE(ReplaceFile(scratch / "file", [&](ByteOutput& output, std::string& reason) {
                return fill(output, reason, 6);
              }).ok);
  EXPECT_EQ(test::ReadText(scratch / "file"), "Partpartpartpart");
}

TEST(ReplaceFile, LeavesTheOldFileAndNoLitterWhenTheDiskTakesNoMore) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "file", "old");
  const std::string big(100000, 'x');
  ReplaceResult replaced;
  ReplaceResult created;
  {
    const FileSizeLimit limit(65536);
    replaced = WriteWholeFile(scratch / "file", big);
    created = WriteWholeFile(scratch / "other", big);
  }
  EXPECT_FALSE(replaced.ok);
  EXPECT_EQ(replaced.reason, "File too large");
  EXPECT_FALSE(created.ok);
  EXPECT_EQ(test::ReadText(scratch / "file"), "old");
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("file"));
}

TEST(ReplaceFile, LeavesNothingWhenItIsGivenUp) {
  const ScratchFolder scratch;
  const ReplaceResult result = ReplaceFile(scratch / "file", [](ByteOutput& output, std::string& reason) {
    output.Write(std::as_bytes(std::span("half", 4)), reason);
    return false;
  });
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.reason, "");
  EXPECT_THAT(scratch.Names(), IsEmpty());
}

TEST(ReplaceFile, KilledOnTheWayLeavesTheOldFileAndNothingBeside) {
  const ScratchFolder scratch;
  if (!OutputFile::CreateNameless(scratch.Path(), OutputFile::Access::kDefault)) {
    GTEST_SKIP() << "this file system has no files without a name";
  }
  test::WriteText(scratch / "file", "old");
  for (const char* const name : {"file", "missing"}) {
    const pid_t child = fork();
    if (child == 0) {
      ReplaceFile(scratch / name, [](ByteOutput& output, std::string& reason) {
        output.Write(std::as_bytes(std::span("half", 4)), reason);
        return raise(SIGKILL) == 0;
      });
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(test::ReadText(scratch / "file"), "old");
    EXPECT_THAT(scratch.Names(), UnorderedElementsAre("file"));
  }
}

TEST(ReplaceFile, TakesNamesOfAnyBytes) {
  const ScratchFolder scratch;
  for (const std::string& name :
       {std::string("with blanks .wav"), std::string("quo\"te's.wav"), std::string("\xC3\xA9t\xC3\xA9.wav"),
        std::string("\xE9\x9F\xB3.wav"), std::string("-rf.wav"), std::string("line\nend.wav"),
        std::string("not\xFFtext.wav"), std::string(255, 'n')}) {
    EXPECT_TRUE(WriteWholeFile(scratch / name, name).ok) << name;
    EXPECT_EQ(test::ReadText(scratch / name), name);
  }
  EXPECT_EQ(scratch.Names().size(), 8U);
}

TEST(ReplaceFile, WorksOnAPathWithoutAFolder) {
  const ScratchFolder scratch;
  const fs::path before = fs::current_path();
  fs::current_path(scratch.Path());
  EXPECT_TRUE(WriteWholeFile("bare", "x").ok);
  fs::current_path(before);
  EXPECT_THAT(scratch.Names(), UnorderedElementsAre("bare"));
}

}  // namespace
}  // namespace tembrel
