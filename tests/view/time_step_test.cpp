#include <cmath>
#include <gtest/gtest.h>
#include <limits>

#include "view/TimeStep.h"

namespace tembrel {
namespace {

std::vector<int> Columns(const TimeView& view) {
  std::vector<int> columns;
  for (const TimeMark& mark : MarksOf(view).marks) {
    columns.push_back(mark.x);
  }
  return columns;
}

TEST(TimeStep, AboveOneSecondItIsTheWholeSeconds) {
  EXPECT_EQ(TimeStep(1.9), 1.0);
  EXPECT_EQ(TimeStep(2.7), 2.0);
  EXPECT_EQ(TimeStep(3600.5), 3600.0);
}

TEST(TimeStep, ExactlyOneSecondGivesHalfASecond) {
  EXPECT_EQ(TimeStep(1.0), 0.5);
}

TEST(TimeStep, LadderValuesAreStrictlyBelowTheWish) {
  const std::vector<double> ladder = {0.5,   0.2,    0.1,    0.05,   0.02,    0.01,    0.005,  0.002,
                                      0.001, 0.0005, 0.0002, 0.0001, 0.00005, 0.00002, 0.00001};
  for (std::size_t i = 0; i < ladder.size(); ++i) {
    EXPECT_EQ(TimeStep(std::nextafter(ladder[i], 1.0)), ladder[i]);
    EXPECT_EQ(TimeStep(ladder[i]), ladder[std::min(i + 1, ladder.size() - 1)]);
  }
}

TEST(TimeStep, VerySmallWishesGiveTheSmallestStep) {
  EXPECT_EQ(TimeStep(0.00002), 0.00001);
  EXPECT_EQ(TimeStep(0.000001), 0.00001);
  EXPECT_EQ(TimeStep(0.0), 0.00001);
  EXPECT_EQ(TimeStep(-1.0), 0.00001);
  EXPECT_EQ(TimeStep(std::numeric_limits<double>::quiet_NaN()), 0.00001);
}

TEST(TimeMarks, TenSecondsOverSixHundredPixels) {
  const TimeView view{44100, 0, 441000, 600, 600};
  EXPECT_EQ(MarksOf(view).step, 1.0 * 10 / 5);
  EXPECT_EQ(Columns(view), (std::vector<int>{0, 120, 240, 360, 480}));
}

TEST(TimeMarks, WishOfExactlyOneSecondMarksHalfSeconds) {
  const TimeView view{1000, 0, 5000, 600, 600};
  const TimeMarks marks = MarksOf(view);
  EXPECT_EQ(marks.step, 0.5);
  EXPECT_EQ(Columns(view), (std::vector<int>{0, 60, 120, 180, 240, 300, 360, 420, 480, 540}));
  EXPECT_EQ(marks.marks[3].seconds, 1.5);
}

TEST(TimeMarks, WishesOfOnePointNineAndTwoPointSeven) {
  EXPECT_EQ(MarksOf({1000, 0, 9500, 600, 600}).step, 1.0);
  EXPECT_EQ(MarksOf({1000, 0, 13500, 600, 600}).step, 2.0);
}

TEST(TimeMarks, TenthsOfASecondFallOnTheirExactPixels) {
  EXPECT_EQ(Columns({44100, 0, 44100, 600, 600}),
            (std::vector<int>{0, 60, 120, 180, 240, 300, 360, 420, 480, 540}));
}

TEST(TimeMarks, MarksBeforeTheLeftEdgeAreLeftOut) {
  const TimeMarks marks = MarksOf({1000, 1500, 10000, 600, 600});
  EXPECT_EQ(marks.step, 2.0);
  ASSERT_EQ(marks.marks.size(), 5U);
  EXPECT_EQ(marks.marks.front(), (TimeMark{30, 2.0}));
  EXPECT_EQ(marks.marks.back(), (TimeMark{510, 10.0}));
}

TEST(TimeMarks, MarksKeepTheirDistanceWhileScrolling) {
  const std::int64_t framesAPixel = 441;
  for (std::int64_t pixels = 0; pixels < 50; ++pixels) {
    const std::vector<int> columns =
        Columns({44100, 1'000'000'000 + pixels * framesAPixel, framesAPixel * 600, 600, 600});
    ASSERT_GE(columns.size(), 4U);
    // A mark less than a pixel left of the edge is truncated onto it, so the first distance may be one less.
    for (std::size_t i = 2; i < columns.size(); ++i) {
      EXPECT_EQ(columns[i] - columns[i - 1], 100);
    }
  }
}

TEST(TimeMarks, DenseScreensKeepTheSpacingOfTheirLogicalWidth) {
  EXPECT_EQ(MarksOf({44100, 0, 441000, 1200, 600}).step, 2.0);
  EXPECT_EQ(Columns({44100, 0, 441000, 1200, 600}), (std::vector<int>{0, 240, 480, 720, 960}));
}

TEST(TimeMarks, NarrowViewsCountAsOneDivision) {
  EXPECT_EQ(MarksOf({1000, 0, 2700, 119, 119}).step, 2.0);
  EXPECT_EQ(MarksOf({1000, 0, 2700, 1, 1}).step, 2.0);
  EXPECT_EQ(Columns({1000, 0, 2700, 1, 1}), (std::vector<int>{0, 0}));
}

TEST(TimeMarks, WithoutAClipTheRateIsFortyFourThousandOneHundred) {
  EXPECT_EQ(Columns({0, 0, 441000, 600, 600}), Columns({44100, 0, 441000, 600, 600}));
}

TEST(TimeMarks, NothingToShowHasNoMarks) {
  EXPECT_TRUE(MarksOf({44100, 0, 0, 600, 600}).marks.empty());
  EXPECT_TRUE(MarksOf({44100, 0, 100, 0, 0}).marks.empty());
  EXPECT_TRUE(MarksOf({44100, 0, -5, 600, 600}).marks.empty());
}

TEST(TimeMarks, ExtremeViewsEndAndStayInside) {
  const std::int64_t huge = std::numeric_limits<std::int64_t>::max();
  for (const std::uint32_t rate : {1U, 44100U, 4294967295U}) {
    for (const std::int64_t first : {std::int64_t{0}, std::int64_t{1} << 40, huge}) {
      for (const std::int64_t frames : {std::int64_t{1}, std::int64_t{100}, std::int64_t{1} << 32, huge}) {
        for (const int width : {1, 119, 600, 100'000, 2'000'000'000}) {
          const int logical = std::min(width, 100'000);
          const std::vector<int> columns = Columns({rate, first, frames, width, logical});
          EXPECT_LE(columns.size(), static_cast<std::size_t>(logical / kTimeMarkSpacing) * 3 + 4);
          for (const int x : columns) {
            EXPECT_TRUE(x >= 0 && x < width);
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace tembrel
