#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include "device/PlayClock.h"

namespace tembrel {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();

TEST(PlayClock, AFrameLiesAtItsTruncatedMillisecond) {
  EXPECT_EQ(MillisecondsOfFrame(0, 44100), 0);
  EXPECT_EQ(MillisecondsOfFrame(11025, 11025), 1000);
  EXPECT_EQ(MillisecondsOfFrame(11024, 11025), 999);
  EXPECT_EQ(MillisecondsOfFrame(1, 44100), 0);
  EXPECT_EQ(MillisecondsOfFrame(44, 44100), 0);
  EXPECT_EQ(MillisecondsOfFrame(45, 44100), 1);
  EXPECT_EQ(MillisecondsOfFrame(44100LL * 3600, 44100), 3'600'000);
  EXPECT_EQ(MillisecondsOfFrame(-45, 44100), -1);
}

TEST(PlayClock, ARateIsUnsigned) {
  EXPECT_EQ(MillisecondsOfFrame(4'000'000'000, 4'000'000'000), 1000);
}

TEST(PlayClock, WithoutARateEverythingIsAtTheStart) {
  EXPECT_EQ(MillisecondsOfFrame(1000, 0), 0);
  EXPECT_EQ(PlayedFrame(5000, 1000, 0), 0);
}

TEST(PlayClock, WeeksOfSoundEndAtTheLargestMillisecond) {
  EXPECT_EQ(MillisecondsOfFrame(4'294'967'295, 1), kLargest);
  EXPECT_EQ(MillisecondsOfFrame(4'294'967'295, 2000), kLargest);
  EXPECT_EQ(MillisecondsOfFrame(2'147'483'647, 1000), kLargest);
}

TEST(PlayClock, APositionIsTheElapsedTimeBehindTheStart) {
  EXPECT_EQ(PlayedFrame(0, 0, 44100), 0);
  EXPECT_EQ(PlayedFrame(100, 0, 44100), 4410);
  EXPECT_EQ(PlayedFrame(100, 1000, 11025), 12127);  // 12127.5
  EXPECT_EQ(PlayedFrame(1, 0, 11025), 11);          // 11.025
  EXPECT_EQ(PlayedFrame(1, 0, 999), 0);
}

TEST(PlayClock, WholeSecondsGiveWholeFrames) {
  for (const std::uint32_t rate : {8000U, 11025U, 22050U, 44100U, 48000U, 96000U, 192000U, 1U, 4294967295U}) {
    for (const std::uint32_t second : {0U, 1U, 2U, 7U, 59U, 3600U, 7200U, 86400U, 1'000'000U}) {
      ASSERT_EQ(PlayedFrame(second * 1000, 0, rate), std::int64_t{second} * rate) << rate << " " << second;
    }
  }
}

// The frame by integers alone; a thousandth that is not exact may only ever raise an exact quotient, not pass
// it.
TEST(PlayClock, APositionIsTheExactQuotient) {
  std::mt19937 random(7);  // NOLINT(cert-msc32-c,cert-msc51-cpp): repeatable on purpose
  for (int round = 0; round < 100'000; ++round) {
    const std::uint32_t elapsed = static_cast<std::uint32_t>(random()) % 86'400'000;
    const auto start = static_cast<std::int32_t>(random() % 86'400'000);
    const std::uint32_t rate = 1 + static_cast<std::uint32_t>(random()) % 192'000;
    const std::int64_t exact = (std::int64_t{elapsed} + start) * rate / 1000;
    ASSERT_EQ(PlayedFrame(elapsed, start, rate), exact) << elapsed << " " << start << " " << rate;
  }
}

// Where a playback starts and where it is after no time differ by less than a millisecond's frames.
TEST(PlayClock, TheWayToMillisecondsAndBackLosesLessThanOne) {
  for (std::int64_t frame = 0; frame < 200'000; frame += 13) {
    const std::int64_t back = PlayedFrame(0, MillisecondsOfFrame(frame, 44100), 44100);
    ASSERT_LE(back, frame);
    ASSERT_LT(frame - back, 46);
  }
}

TEST(PlayClock, APlaybackIsOverWhenItsLengthHasPassed) {
  EXPECT_FALSE(PlaybackIsOver(999, 1000, 2000));
  EXPECT_TRUE(PlaybackIsOver(1000, 1000, 2000));
  EXPECT_TRUE(PlaybackIsOver(0, 5, 5));
  EXPECT_TRUE(PlaybackIsOver(0, 6, 5));
  EXPECT_FALSE(PlaybackIsOver(0, 0, kLargest));
  EXPECT_FALSE(PlaybackIsOver(kLargest - 1U, 0, kLargest));
}

}  // namespace
}  // namespace tembrel
