#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "device/RecordingMeter.h"

namespace tembrel {
namespace {

using testing::IsEmpty;

RecordingState State(double left, double right, bool clipped = false) {
  return {1000, left, right, clipped, kDeviceSuccess};
}

int LitPixels(const std::vector<MeterBar>& bars, int y) {
  int pixels = 0;
  for (const MeterBar& bar : bars) {
    pixels += bar.lit && bar.y == y ? bar.width : 0;
  }
  return pixels;
}

TEST(RecordingMeter, TellsTheTimeInTenths) {
  EXPECT_EQ(RecordingTimeText(0), "0:00.0");
  EXPECT_EQ(RecordingTimeText(99), "0:00.0");
  EXPECT_EQ(RecordingTimeText(100), "0:00.1");
  EXPECT_EQ(RecordingTimeText(59'999), "0:59.9");
  EXPECT_EQ(RecordingTimeText(60'000), "1:00.0");
  EXPECT_EQ(RecordingTimeText(3'599'999), "59:59.9");
  EXPECT_EQ(RecordingTimeText(3'723'400), "1:02:03.4");
  EXPECT_EQ(RecordingTimeText(360'000'000), "100:00:00.0");
  EXPECT_EQ(RecordingTimeText(-5), "0:00.0");
}

TEST(RecordingMeter, ItsScaleRunsFromSixtyDecibelsBelowFullScale) {
  EXPECT_DOUBLE_EQ(MeterShare(0.0), 0.0);
  EXPECT_NEAR(MeterShare(0.001), 0.0, 1e-9);
  EXPECT_NEAR(MeterShare(0.1), 2.0 / 3, 1e-9);
  EXPECT_DOUBLE_EQ(MeterShare(1.0), 1.0);
  EXPECT_DOUBLE_EQ(MeterShare(2.0), 1.0);
  EXPECT_DOUBLE_EQ(MeterShare(-1.0), 0.0);
}

TEST(RecordingMeter, HasABarAChannel) {
  RecordingMeter meter;
  meter.Start();
  meter.Take(State(1.0, 0.1));
  const std::vector<MeterBar> bars = meter.Bars(120, 11);
  EXPECT_EQ(LitPixels(bars, 0), 120);
  EXPECT_EQ(LitPixels(bars, 6), 80);
}

TEST(RecordingMeter, ItsBarsCoverTheMeterInOrder) {
  RecordingMeter meter;
  for (const double level : {0.0, 0.01, 0.3, 0.6, 0.9, 1.0}) {
    meter.Start();
    meter.Take(State(level, level));
    for (const int width : {1, 7, 100, 333}) {
      int x = 0;
      bool lit = true;
      for (const MeterBar& bar : meter.Bars(width, 9)) {
        if (bar.y != 0) {
          continue;
        }
        ASSERT_EQ(bar.x, x);
        ASSERT_GT(bar.width, 0);
        ASSERT_FALSE(bar.lit && !lit);
        lit = bar.lit;
        x += bar.width;
      }
      ASSERT_EQ(x, width) << level;
    }
  }
}

TEST(RecordingMeter, FullScaleIsInTheLastZone) {
  RecordingMeter meter;
  meter.Take(State(1.0, 0.0));
  const std::vector<MeterBar> bars = meter.Bars(120, 11);
  // -12 dB is at 96, -3 dB at 114.
  ASSERT_GE(bars.size(), 3U);
  EXPECT_EQ(bars[0], (MeterBar{0, 0, 96, 5, MeterZone::Normal, true}));
  EXPECT_EQ(bars[1], (MeterBar{96, 0, 18, 5, MeterZone::High, true}));
  EXPECT_EQ(bars[2], (MeterBar{114, 0, 6, 5, MeterZone::Full, true}));
}

TEST(RecordingMeter, ANarrowOneShowsNothing) {
  const RecordingMeter meter;
  EXPECT_THAT(meter.Bars(0, 10), IsEmpty());
  EXPECT_THAT(meter.Bars(100, 0), IsEmpty());
  EXPECT_THAT(meter.Bars(100, 2), IsEmpty());
}

TEST(RecordingMeter, RisesAtOnceAndFallsByTwoDecibels) {
  RecordingMeter meter;
  meter.Take(State(1.0, 1.0));
  meter.Take(State(0.0, 0.0));
  EXPECT_EQ(LitPixels(meter.Bars(300, 11), 0), 290);
  meter.Take(State(0.0, 1.0));
  EXPECT_EQ(LitPixels(meter.Bars(300, 11), 0), 280);
  EXPECT_EQ(LitPixels(meter.Bars(300, 11), 6), 300);
  EXPECT_EQ(meter.LevelText(), "Left -4 dB, right 0 dB");
}

TEST(RecordingMeter, SaysThatNoSoundArrivesAfterTwoSeconds) {
  RecordingMeter meter;
  meter.Start();
  RecordingState state = State(0.5, 0.5);
  meter.Take(state);
  for (int tenth = 1; tenth < 20; ++tenth) {
    meter.Take(state);
    ASSERT_FALSE(meter.NoSound()) << tenth;
  }
  meter.Take(state);
  EXPECT_TRUE(meter.NoSound());
  EXPECT_EQ(meter.LevelText(), "No sound arrives");
  EXPECT_EQ(meter.TimeText(), "0:01.0");
  meter.Take(state);
  EXPECT_TRUE(meter.NoSound());
  state.milliseconds += 1;
  meter.Take(state);
  EXPECT_FALSE(meter.NoSound());
}

TEST(RecordingMeter, SaysThatNoSoundArrivesWhenNoneHasEverArrived) {
  RecordingMeter meter;
  meter.Start();
  for (int tenth = 0; tenth < 20; ++tenth) {
    EXPECT_FALSE(meter.NoSound());
    meter.Take({});
  }
  EXPECT_TRUE(meter.NoSound());
  meter.Start();
  EXPECT_FALSE(meter.NoSound());
}

TEST(RecordingMeter, SaysAtOnceThatNoSoundArrivesAfterAFailure) {
  RecordingMeter meter;
  meter.Start();
  meter.Take({1000, 0.5, 0.5, false, 7});
  EXPECT_TRUE(meter.NoSound());
}

TEST(RecordingMeter, TheClipLightStaysUntilItIsCleared) {
  RecordingMeter meter;
  EXPECT_FALSE(meter.Clipped());
  meter.Take(State(1.0, 1.0, true));
  meter.Take(State(0.0, 0.0));
  EXPECT_TRUE(meter.Clipped());
  meter.ClearClip();
  EXPECT_FALSE(meter.Clipped());
  meter.Take(State(1.0, 1.0, true));
  meter.Start();
  EXPECT_FALSE(meter.Clipped());
  EXPECT_EQ(meter.TimeText(), "0:00.0");
  EXPECT_EQ(meter.LevelText(), "Left silent, right silent");
}

}  // namespace
}  // namespace tembrel
