#include <gtest/gtest.h>

#include "device/LevelMeter.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {
namespace {

TEST(LevelMeter, TakesTheLargestMagnitudeOfEachChannel) {
  Levels levels;
  Measure(Samples16({100, -300, -200, 50}), {44100, 16, 2}, levels);
  EXPECT_EQ(levels.left, 200.0 / 32768);
  EXPECT_EQ(levels.right, 300.0 / 32768);
  EXPECT_FALSE(levels.clipped);
}

TEST(LevelMeter, GrowsAndStays) {
  Levels levels;
  Measure(Samples16({-32768, 1}), {44100, 16, 2}, levels);
  Measure(Samples16({5, 5}), {44100, 16, 2}, levels);
  EXPECT_EQ(levels.left, 1.0);
  EXPECT_EQ(levels.right, 5.0 / 32768);
  EXPECT_TRUE(levels.clipped);
}

TEST(LevelMeter, MonoIsBothSides) {
  Levels levels;
  Measure(BytesOf({128, 64, 160}), {11025, 8, 1}, levels);
  EXPECT_EQ(levels.left, 0.5);
  EXPECT_EQ(levels.right, 0.5);
  EXPECT_FALSE(levels.clipped);
}

TEST(LevelMeter, TheOutermostValuesClip) {
  for (const int value : {0, 255}) {
    Levels levels;
    Measure(BytesOf({value}), {11025, 8, 1}, levels);
    EXPECT_TRUE(levels.clipped) << value;
  }
  for (const int value : {1, 254}) {
    Levels levels;
    Measure(BytesOf({value}), {11025, 8, 1}, levels);
    EXPECT_FALSE(levels.clipped) << value;
  }
  for (const int value : {-32767, 32766}) {
    Levels levels;
    Measure(Samples16({value}), {11025, 16, 1}, levels);
    EXPECT_FALSE(levels.clipped) << value;
  }
}

}  // namespace
}  // namespace tembrel::test
