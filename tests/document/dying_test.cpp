// The program is killed while it edits: what is recovered then.
#include <chrono>
#include <csignal>
#include <gmock/gmock.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "document/Document.h"
#include "document/Recovery.h"
#include "document/TempCopy.h"
#include "edit/ClipEdits.h"
#include "tests/document/DocumentFixture.h"
#include "tests/support/Eventually.h"
#include "tests/support/FileSizeLimit.h"

namespace tembrel {
namespace {

using ::testing::ElementsAre;

constexpr std::size_t kFrames = 6'000'000;
constexpr std::size_t kEditAt = 1'000'000;
constexpr std::size_t kEditLength = 2'500'000;

class Dying : public test::DocumentTest {
 protected:
  // Inserts and cuts for ever in a program of its own.
  pid_t StartEditing(const std::filesystem::path& path) const {
    const pid_t child = fork();
    if (child == 0) {
      prctl(PR_SET_PDEATHSIG, SIGKILL);
      Document document(paths, 1);
      document.LoadFile(path, path.string(), kDefaultPlayback);
      Clipboard clipboard;
      const ByteRange range{kEditAt, kEditAt + kEditLength};
      for (;;) {
        document.Edit(InsertSilenceEdit(range));
        document.Edit(CutEdit(range, clipboard));
      }
    }
    return child;
  }

  // The moment of the kill, which has to be another one each time.
  static void LetItGoOn(std::chrono::microseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    EXPECT_TRUE(test::Eventually([end] { return std::chrono::steady_clock::now() >= end; }));
  }

  static void Kill(pid_t child) {
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  }
};

TEST_F(Dying, AtAnyMomentOfAnEditLosesNoSoundBeforeOrBehindIt) {
  const auto path = MakeWave("song.wav", kFrames, 8, 1);
  const std::string sound = Content(path).substr(44);
  for (int round = 0; round < 8; ++round) {
    const pid_t child = StartEditing(path);
    ASSERT_GT(child, 0);
    EXPECT_TRUE(test::Eventually([this] { return std::filesystem::exists(paths.tempFolder / "temp1.txt"); }));
    LetItGoOn(std::chrono::microseconds(round * 3'700));
    Kill(child);
    std::vector<AbandonedCopy> copies = FindAbandonedCopies(paths.tempFolder);
    ASSERT_EQ(copies.size(), 1U);
    Document document(paths, 2);
    ASSERT_TRUE(RecoverCopy(std::move(copies[0]), document).recovered);
    ASSERT_GE(document.FrameCount(), kFrames);
    ASSERT_LE(document.FrameCount(), kFrames + kEditLength);
    const auto bytes = document.Clip()->Bytes();
    const std::string found(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    EXPECT_EQ(found.compare(0, kEditAt, sound, 0, kEditAt), 0);
    EXPECT_TRUE(found.ends_with(sound.substr(sound.size() - kEditAt)));
  }
}

class Rewriting : public test::DocumentTest {
 protected:
  Rewriting() {
    Fill(PcmFormat(22050, 8, 1), std::byte{1});
    copy->Write(clip);
    copy->NoteChanged("/music/song.wav");
    before = Content(copy->Path());
    Fill(PcmFormat(44100, 16, 2), std::byte{2});
    changes.AddAll();
  }
  void Fill(const WaveFormat& format, std::byte value) {
    clip.format = format;
    clip.data = std::move(MemoryBlock::Allocate(1000).value());
    clip.dataSize = 1000;
    std::ranges::fill(clip.Bytes(), value);
  }
  std::filesystem::path Fresh() const {
    auto path = scratch.Path() / "fresh.wav";
    const WaveFormat& format = clip.format;
    WriteWaveFile(clip.Bytes(), format.nSamplesPerSec, format.wBitsPerSample, format.nChannels, path);
    return path;
  }
  static ino_t InodeOf(const std::filesystem::path& path) {
    struct stat info {};
    stat(path.c_str(), &info);
    return info.st_ino;
  }

  std::optional<TempCopy> copy = TempCopy::Create(paths, 1);
  AudioClip clip;
  ClipChanges changes;
  std::string before;
};

TEST_F(Rewriting, OfTheWholeHappensBesideACopyWorthKeeping) {
  const ino_t inode = InodeOf(copy->Path());
  EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Written);
  EXPECT_TRUE(copy->Complete());
  EXPECT_NE(InodeOf(copy->Path()), inode);
  EXPECT_EQ(Content(copy->Path()), Content(Fresh()));
  EXPECT_THAT(TempFiles(), ElementsAre("temp1.txt", "temp1.wav"));
  EXPECT_FALSE(FileLock::TryLock(copy->Path()));
}

TEST_F(Rewriting, InVainKeepsTheSoundOfBeforeAndTriesAgain) {
  {
    const test::FileSizeLimit limit(200);
    EXPECT_EQ(copy->Update(clip, changes), TempCopy::Result::Failed);
  }
  EXPECT_FALSE(copy->Complete());
  EXPECT_EQ(Content(copy->Path()), before);
  EXPECT_THAT(TempFiles(), ElementsAre("temp1.txt", "temp1.wav"));
  EXPECT_EQ(copy->Update(clip, {}), TempCopy::Result::Written);
  EXPECT_EQ(Content(copy->Path()), Content(Fresh()));
}

TEST_F(Rewriting, InPlaceGoesOnBehindARewriting) {
  copy->Update(clip, changes);
  clip.Bytes()[500] = std::byte{77};
  ClipChanges small;
  small.AddOverwrite({500, 501});
  EXPECT_EQ(copy->Update(clip, small), TempCopy::Result::Written);
  EXPECT_EQ(Content(copy->Path()), Content(Fresh()));
}

}  // namespace
}  // namespace tembrel
