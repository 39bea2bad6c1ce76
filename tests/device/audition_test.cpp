#include "device/Audition.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/EditClips.h"
#include "tests/support/FakeSoundPlayer.h"
#include "tests/support/FileSizeLimit.h"
#include "tests/support/OrdinaryUser.h"
#include "tests/support/ScratchFolder.h"

namespace tembrel::test {

namespace {

using testing::IsEmpty;

// Works in a current folder of its own, beside a Temp folder.
class Auditions : public testing::Test {
 protected:
  Auditions() {
    std::filesystem::create_directory(temp);
    std::filesystem::create_directory(current);
    std::filesystem::current_path(current);
  }
  ~Auditions() override { std::filesystem::current_path("/"); }

  AuditionResult Once(const AudioClip& clip) {
    return Audition(player, temp).AuditionOnce(clip, 0, clip.dataSize);
  }

  ScratchFolder folder;
  std::filesystem::path temp = folder / "Temp";
  std::filesystem::path current = folder / "sounds";
  PlayerLog log;
  FakeSoundPlayer player{log};
};

std::vector<std::string> NamesIn(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

TEST_F(Auditions, PlayTheBytesAsAWaveFileOfTheClipsFormat) {
  for (const WaveFormat& format : kLayouts) {
    const Bytes sound = CountingBytes(400);
    Audition audition(player, temp);
    const AuditionResult result = audition.AuditionOnce(ClipOf(format, sound), 40, 120);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.message, "");
    EXPECT_EQ(log.played.back().file, WaveFile(format.nSamplesPerSec, format.wBitsPerSample, format.nChannels,
                                               std::span(sound).subspan(40, 80)));
    EXPECT_FALSE(log.played.back().looping);
  }
}

TEST_F(Auditions, TellHowLongTheSoundLasts) {
  Audition audition(player, temp);
  const AudioClip mono8 = ClipOf(kLayouts[0], CountingBytes(22050));
  EXPECT_EQ(audition.AuditionOnce(mono8, 0, 22050).milliseconds, 1000);
  EXPECT_EQ(audition.AuditionOnce(mono8, 22000, 90000).milliseconds, 2);
  const AudioClip stereo16 = ClipOf(kLayouts[3], CountingBytes(176400 / 2));
  EXPECT_EQ(audition.AuditionOnce(stereo16, 0, 176400).milliseconds, 500);
}

TEST_F(Auditions, LoopWhenAskedTo) {
  const AudioClip clip = ClipOf(kLayouts[0], CountingBytes(40));
  EXPECT_TRUE(Audition(player, temp).AuditionLoop(clip, 0, 40).ok);
  EXPECT_TRUE(log.played.back().looping);
}

TEST_F(Auditions, GoThroughAFileInTheCurrentFolderThatIsGoneAtOnce) {
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], CountingBytes(40))).ok);
  EXPECT_EQ(log.played.back().path, current / "play.wav");
  EXPECT_THAT(NamesIn(current), IsEmpty());
  EXPECT_THAT(NamesIn(temp), IsEmpty());
}

TEST_F(Auditions, LeaveAUsersFileOfThatNameAlone) {
  WriteText(current / "play.wav", "mine");
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], CountingBytes(40))).ok);
  EXPECT_EQ(log.played.back().path, temp / "play.wav");
  EXPECT_EQ(ReadText(current / "play.wav"), "mine");
  EXPECT_THAT(NamesIn(temp), IsEmpty());
}

TEST_F(Auditions, DoNotFollowALinkOfThatName) {
  WriteText(current / "precious.wav", "mine");
  std::filesystem::create_symlink("precious.wav", current / "play.wav");
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], CountingBytes(40))).ok);
  EXPECT_EQ(log.played.back().path, temp / "play.wav");
  EXPECT_EQ(ReadText(current / "precious.wav"), "mine");
}

TEST_F(Auditions, ReplaceWhatARunThatDiedLeftInTheTempFolder) {
  WriteText(current / "play.wav", "mine");
  WriteText(temp / "play.wav", std::string(1000, 'x'));
  const Bytes sound = CountingBytes(40);
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], sound)).ok);
  EXPECT_EQ(log.played.back().file, WaveFile(22050, 8, 1, sound));
}

TEST_F(Auditions, UseTheTempFolderWhereTheCurrentOneMayNotBeWritten) {
  std::filesystem::permissions(current,
                               std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec |
                                   std::filesystem::perms::others_read | std::filesystem::perms::others_exec);
  std::filesystem::permissions(folder.Path(), std::filesystem::perms::all);
  std::filesystem::permissions(temp, std::filesystem::perms::all);
  const OrdinaryUser user;
  if (!user.Effective()) {
    GTEST_SKIP() << "this test needs a user whom permissions stop";
  }
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], CountingBytes(40))).ok);
  EXPECT_EQ(log.played.back().path, temp / "play.wav");
}

TEST_F(Auditions, UseTheTempFolderWhenTheCurrentOneIsGone) {
  std::filesystem::remove(current);
  EXPECT_TRUE(Once(ClipOf(kLayouts[0], CountingBytes(40))).ok);
  EXPECT_EQ(log.played.back().path, temp / "play.wav");
}

TEST_F(Auditions, CutTheRangeDownToTheSound) {
  const Bytes sound = CountingBytes(40);
  const AudioClip clip = ClipOf(kLayouts[0], sound);
  Audition audition(player, temp);
  EXPECT_TRUE(audition.AuditionOnce(clip, -5, 1000).ok);
  EXPECT_EQ(log.played.back().file, WaveFile(22050, 8, 1, sound));
  for (const auto& [from, to] : {std::pair{50, 60}, std::pair{20, 10}, std::pair{7, 7}}) {
    EXPECT_TRUE(audition.AuditionOnce(clip, from, to).ok);
    EXPECT_EQ(log.played.back().file, WaveFile(22050, 8, 1, {}));
  }
}

TEST_F(Auditions, OnAFullDiskSayWhyAndLeaveNothing) {
  const AudioClip clip = ClipOf(kLayouts[0], CountingBytes(40000));
  const FileSizeLimit fullDisk(1000);
  const AuditionResult result = Once(clip);
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.message, "The sound cannot be played: File too large.");
  EXPECT_THAT(log.played, IsEmpty());
  EXPECT_THAT(NamesIn(current), IsEmpty());
  EXPECT_THAT(NamesIn(temp), IsEmpty());
}

TEST_F(Auditions, WithoutAnyFolderSayWhy) {
  std::filesystem::remove(current);
  std::filesystem::remove(temp);
  const AuditionResult result = Once(ClipOf(kLayouts[0], CountingBytes(40)));
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.message, "The sound cannot be played: No such file or directory.");
}

TEST_F(Auditions, OfSoundThatThePlayerCannotReadSaySo) {
  log.canRead = false;
  const AuditionResult result = Once(ClipOf(kLayouts[0], CountingBytes(40)));
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.message, "This sound cannot be played.");
  EXPECT_THAT(NamesIn(current), IsEmpty());
}

TEST_F(Auditions, OfFramesWithGapsAreRefused) {
  WaveFormat gaps = PcmFormat(22050, 16, 2);
  gaps.nBlockAlign = 6;
  EXPECT_EQ(Once(ClipOf(gaps, CountingBytes(60))).message, "This sound cannot be played.");
  EXPECT_THAT(log.played, IsEmpty());
}

TEST_F(Auditions, CanBeCancelledWhileTheFileIsWritten) {
  const AudioClip clip = ClipOf(kLayouts[0], CountingBytes(40));
  std::uint64_t told = 0;
  const AuditionResult result =
      Audition(player, temp).AuditionOnce(clip, 0, 40, [&told](std::uint64_t, std::uint64_t total) {
        told = total;
        return false;
      });
  EXPECT_FALSE(result.ok);
  EXPECT_TRUE(result.cancelled);
  EXPECT_EQ(result.message, "");
  EXPECT_EQ(told, 40U);
  EXPECT_THAT(log.played, IsEmpty());
  EXPECT_THAT(NamesIn(current), IsEmpty());
}

TEST_F(Auditions, StopWhenAskedTo) {
  Audition(player, temp).Stop();
  EXPECT_EQ(log.stops, 1);
}

}  // namespace

}  // namespace tembrel::test
