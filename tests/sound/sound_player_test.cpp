// Auditions, as they come out of the sound server.
#include <algorithm>
#include <gtest/gtest.h>

#include "tests/sound/RealSound.h"

namespace tembrel::test {
namespace {

constexpr std::size_t kFrames = 12'000;
constexpr WaveFormat kStereo{kPcmTag, 2, 44100, 176400, 4, 16};

using ThePlayer = RealSound;

TEST_F(ThePlayer, PlaysOnceAFileThatIsDeletedAtOnce) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const SoundTap tap("out.monitor");
  const auto path = Write("play.wav", kStereo, data);
  ASSERT_TRUE(services.player->Play(path, false));
  std::filesystem::remove(path);
  EXPECT_TRUE(tap.WaitForAll(kFrames));
  EXPECT_TRUE(tap.Heard() == AsHeard(kStereo, data));
}

TEST_F(ThePlayer, PlaysOverAndOverWithoutAGap) {
  const Bytes data = NoiseBytes(kStereo, kFrames);
  const std::vector<StereoFrame> once = AsHeard(kStereo, data);
  EXPECT_TRUE(OnceInThree([&] {
    const SoundTap tap("out.monitor");
    const auto path = Write("play.wav", kStereo, data);
    EXPECT_TRUE(services.player->Play(path, true));
    std::filesystem::remove(path);
    EXPECT_TRUE(tap.WaitForFrames(3 * kFrames));
    const bool gapless = tap.WithoutGap();
    const std::vector<StereoFrame> heard = tap.Heard();
    EXPECT_GE(heard.size(), 3 * kFrames);
    for (std::size_t i = 0; i < std::min(heard.size(), 3 * kFrames); ++i) {
      EXPECT_EQ(heard[i], once[i % kFrames]) << i;
    }
    services.player->Stop();
    EXPECT_TRUE(tap.WaitForMore(30'000));
    return gapless;
  }));
}

TEST_F(ThePlayer, StopsWhatPlaysOverAndOver) {
  const SoundTap tap("out.monitor");
  ASSERT_TRUE(services.player->Play(Write("play.wav", kStereo, NoiseBytes(kStereo, kFrames)), true));
  ASSERT_TRUE(tap.WaitForFrames(kFrames));
  services.player->Stop();
  ASSERT_TRUE(tap.WaitForMore(30'000));
  const std::size_t stopped = tap.Heard().size();
  ASSERT_TRUE(tap.WaitForMore(2 * kFrames));
  EXPECT_EQ(tap.Heard().size(), stopped);
}

TEST_F(ThePlayer, ASoundReplacesTheOneBefore) {
  const Bytes first = NoiseBytes(kStereo, kFrames, 1);
  const Bytes second = NoiseBytes(kStereo, kFrames, 2);
  const SoundTap tap("out.monitor");
  ASSERT_TRUE(services.player->Play(Write("play.wav", kStereo, first), true));
  ASSERT_TRUE(tap.WaitForSound());
  ASSERT_TRUE(services.player->Play(Write("play.wav", kStereo, second), false));
  const StereoFrame last = AsHeard(kStereo, second).back();
  ASSERT_TRUE(Eventually([&] { return tap.Heard().back() == last; }));
  ASSERT_TRUE(tap.WaitForMore(kFrames));
  const std::vector<StereoFrame> heard = tap.Heard();
  ASSERT_GT(heard.size(), kFrames);
  EXPECT_TRUE(From(heard, heard.size() - kFrames) == AsHeard(kStereo, second));
}

TEST_F(ThePlayer, AFileThatCannotBeReadIsRefused) {
  EXPECT_FALSE(services.player->Play(folder / "nowhere.wav", false));
  WriteText(folder / "play.wav", "nonsense");
  EXPECT_FALSE(services.player->Play(folder / "play.wav", true));
}

}  // namespace
}  // namespace tembrel::test
