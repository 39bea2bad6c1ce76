#include <csignal>
#include <optional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

#include "gtest/gtest.h"
#include "platform/FileLock.h"
#include "platform/OutputFile.h"
#include "tests/support/FileBytes.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel {
namespace {

using test::ScratchFolder;

TEST(FileLock, IsHeldByOneAtATime) {
  const ScratchFolder scratch;
  std::optional<FileLock> first = FileLock::TryLock(scratch / "temp1.wav");
  ASSERT_TRUE(first);
  EXPECT_TRUE(std::filesystem::exists(scratch / "temp1.wav"));
  EXPECT_FALSE(FileLock::TryLock(scratch / "temp1.wav"));
  first.reset();
  EXPECT_TRUE(FileLock::TryLock(scratch / "temp1.wav"));
}

TEST(FileLock, GoesWithTheObjectItIsMovedTo) {
  const ScratchFolder scratch;
  std::optional<FileLock> first = FileLock::TryLock(scratch / "a");
  std::optional<FileLock> other = FileLock::TryLock(scratch / "b");
  ASSERT_TRUE(first && other);
  *other = std::move(*first);
  first.reset();
  EXPECT_FALSE(FileLock::TryLock(scratch / "a"));
  EXPECT_TRUE(FileLock::TryLock(scratch / "b"));
}

TEST(FileLock, StaysWhileTheFileIsCutShortAndWrittenAgain) {
  const ScratchFolder scratch;
  test::WriteText(scratch / "temp1.wav", "a long old content");
  const std::optional<FileLock> lock = FileLock::TryLock(scratch / "temp1.wav");
  ASSERT_TRUE(lock);
  EXPECT_EQ(test::ReadText(scratch / "temp1.wav"), "a long old content");
  std::string reason;
  std::optional<OutputFile> file = OutputFile::Create(scratch / "temp1.wav", reason);
  ASSERT_TRUE(file && file->Close(reason));
  EXPECT_FALSE(FileLock::TryLock(scratch / "temp1.wav"));
}

TEST(FileLock, DoesNotStandInTheWayOfANewFileOfTheSameName) {
  const ScratchFolder scratch;
  const std::optional<FileLock> lock = FileLock::TryLock(scratch / "temp1.wav");
  std::filesystem::remove(scratch / "temp1.wav");
  EXPECT_TRUE(FileLock::TryLock(scratch / "temp1.wav"));
}

TEST(FileLock, RefusesWhatIsNoRegularFileOrCannotBeCreated) {
  const ScratchFolder scratch;
  ASSERT_EQ(mkfifo((scratch / "pipe").c_str(), 0600), 0);
  std::filesystem::create_symlink("elsewhere", scratch / "link");
  EXPECT_FALSE(FileLock::TryLock(scratch.Path()));
  EXPECT_FALSE(FileLock::TryLock(scratch / "pipe"));
  EXPECT_FALSE(FileLock::TryLock(scratch / "link"));
  EXPECT_FALSE(FileLock::TryLock(scratch / "missing" / "file"));
  EXPECT_FALSE(std::filesystem::exists(scratch / "elsewhere"));
}

TEST(FileLock, EndsWithAProgramThatIsKilled) {
  const ScratchFolder scratch;
  int ready[2] = {};
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const std::optional<FileLock> lock = FileLock::TryLock(scratch / "temp1.wav");
    const char answer = lock ? 'y' : 'n';
    if (write(ready[1], &answer, 1) != 1) {
      _exit(1);
    }
    pause();
    _exit(0);
  }
  char answer = 0;
  ASSERT_EQ(read(ready[0], &answer, 1), 1);
  EXPECT_EQ(answer, 'y');
  EXPECT_FALSE(FileLock::TryLock(scratch / "temp1.wav"));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_TRUE(FileLock::TryLock(scratch / "temp1.wav"));
  close(ready[0]);
  close(ready[1]);
}

}  // namespace
}  // namespace tembrel
