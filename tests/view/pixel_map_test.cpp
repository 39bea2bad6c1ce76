#include <gtest/gtest.h>
#include <limits>

#include "view/PixelMap.h"

namespace tembrel {
namespace {

TEST(PixelMap, FrameGoesToTheTruncatedPixel) {
  EXPECT_EQ(FrameToPixel(0, 0, 1000, 593), 0);
  EXPECT_EQ(FrameToPixel(1, 0, 1000, 593), 0);
  EXPECT_EQ(FrameToPixel(2, 0, 1000, 593), 1);
  EXPECT_EQ(FrameToPixel(999, 0, 1000, 593), 592);
  EXPECT_EQ(FrameToPixel(1000, 0, 1000, 593), 593);
  EXPECT_EQ(FrameToPixel(1500, 1000, 1000, 600), 300);
}

TEST(PixelMap, FramesLeftOfTheViewAreTruncatedTowardZero) {
  EXPECT_EQ(FrameToPixel(99, 100, 1000, 593), 0);
  EXPECT_EQ(FrameToPixel(0, 100, 1000, 593), -59);
}

TEST(PixelMap, PixelGoesToTheTruncatedFrame) {
  EXPECT_EQ(PixelToFrame(0, 7, 1000, 593), 7);
  EXPECT_EQ(PixelToFrame(1, 0, 1000, 593), 1);
  EXPECT_EQ(PixelToFrame(592, 0, 1000, 593), 998);
  EXPECT_EQ(PixelToFrame(10, 5, 2, 600), 5);
}

TEST(PixelMap, HalfPixelsOfDenseScreensCount) {
  EXPECT_EQ(PixelToFrame(10.0, 0, 1200, 600), 20);
  EXPECT_EQ(PixelToFrame(10.5, 0, 1200, 600), 21);
}

TEST(PixelMap, PositionsBeyondThirtyTwoBitsAreExact) {
  const std::int64_t first = 4'000'000'000;
  EXPECT_EQ(FrameToPixel(first + 500'000'000, first, 1'000'000'000, 1600), 800);
  EXPECT_EQ(PixelToFrame(800, first, 1'000'000'000, 1600), first + 500'000'000);
}

TEST(PixelMap, NothingIsDividedByZero) {
  EXPECT_EQ(FrameToPixel(10, 0, 0, 593), 0);
  EXPECT_EQ(FrameToPixel(10, 0, 100, 0), 0);
  EXPECT_EQ(PixelToFrame(10, 42, 100, 0), 42);
}

TEST(PixelMap, AbsurdValuesStayWithinSixtyFourBits) {
  EXPECT_GT(FrameToPixel(std::numeric_limits<std::int64_t>::max(), 0, 1, 2'000'000'000), 0);
  EXPECT_LT(FrameToPixel(std::numeric_limits<std::int64_t>::min(), 0, 1, 2'000'000'000), 0);
  EXPECT_EQ(PixelToFrame(std::numeric_limits<double>::quiet_NaN(), 3, 100, 100), 3);
}

}  // namespace
}  // namespace tembrel
