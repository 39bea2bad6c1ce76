#include <gtest/gtest.h>

#include "picture/AxisLabel.h"
#include "view/RulerMarks.h"
#include "view/TimeStep.h"

namespace tembrel {
namespace {

std::vector<int> Columns(const AxisMarks& ruler) {
  std::vector<int> columns;
  for (const AxisTick& tick : ruler.ticks) {
    EXPECT_EQ(tick.line.x1, tick.line.x2);
    columns.push_back(tick.line.x1);
  }
  return columns;
}

std::vector<std::string> Labels(const AxisMarks& ruler) {
  std::vector<std::string> labels;
  for (const AxisTick& tick : ruler.ticks) {
    labels.push_back(tick.label);
  }
  return labels;
}

using Texts = std::vector<std::string>;

TEST(TimeLabel, DecimalsFollowTheStep) {
  EXPECT_EQ(TimeLabel(3.0, 1.0), "3");
  EXPECT_EQ(TimeLabel(120.0, 60.0), "120");
  for (const double step : {0.5, 0.2, 0.1}) {
    EXPECT_EQ(TimeLabel(1.5, step), "1.5");
  }
  for (const double step : {0.05, 0.02, 0.01}) {
    EXPECT_EQ(TimeLabel(1.25, step), "1.25");
  }
  for (const double step : {0.005, 0.002, 0.001, 0.0005}) {
    EXPECT_EQ(TimeLabel(1.125, step), "1.125");
  }
  for (const double step : {0.0002, 0.0001, 0.00005, 0.00002, 0.00001}) {
    EXPECT_EQ(TimeLabel(1.0625, step), "1.0625");
  }
}

TEST(TimeRuler, OneSecondOverSixHundredPixelsIsMarkedInTenths) {
  const AxisMarks ruler = TimeRuler({600, 17, 1.0}, 44100, 0, 44100);
  EXPECT_EQ(Columns(ruler), (std::vector<int>{60, 120, 180, 240, 300, 360, 420, 480, 540}));
  EXPECT_EQ(Labels(ruler), (Texts{"0.1", "0.2", "0.3", "0.4", "0.5", "0.6", "0.7", "0.8", "0.9"}));
}

TEST(TimeRuler, WholeSecondsHaveNoDecimals) {
  EXPECT_EQ(Labels(TimeRuler({600, 17, 1.0}, 1000, 0, 13'500)), (Texts{"2", "4", "6", "8", "10", "12"}));
}

TEST(TimeRuler, ExactlyOneSecondAMarkGivesHalves) {
  EXPECT_EQ(Labels(TimeRuler({600, 17, 1.0}, 1000, 0, 5000)),
            (Texts{"0.5", "1.0", "1.5", "2.0", "2.5", "3.0", "3.5", "4.0", "4.5"}));
}

TEST(TimeRuler, TheUnitStandsInTheLeftmostThirtyPixels) {
  const AxisMarks ruler = TimeRuler({600, 17, 1.0}, 44100, 0, 44100);
  EXPECT_EQ(ruler.unit, "sec");
  EXPECT_EQ(ruler.unitBox, (PixelRect{0, 0, 30, 13}));
}

TEST(TimeRuler, OnlyTicksRightOfTheFiftiethPixelAreDrawn) {
  // A mark every 60 pixels; the view begins so that one falls on pixel 50, then on 51.
  EXPECT_EQ(Columns(TimeRuler({600, 17, 1.0}, 6000, 100, 6000)).front(), 110);
  EXPECT_EQ(Columns(TimeRuler({600, 17, 1.0}, 6000, 90, 6000)).front(), 51);
}

TEST(TimeRuler, LabelsAreCentredOnTheirTicks) {
  const AxisTick tick = TimeRuler({600, 17, 1.0}, 44100, 0, 44100).ticks.front();
  EXPECT_EQ(tick.box.x, 40);
  EXPECT_EQ(tick.box.width, 40);
  EXPECT_GE(tick.box.y, 0);
  EXPECT_LE(tick.box.y + tick.box.height, tick.line.y1);
  EXPECT_EQ(tick.line.y2, 16);
}

TEST(TimeRuler, ABoxStickingOutOnTheRightLosesAThird) {
  const AxisTick last = TimeRuler({600, 17, 1.0}, 6000, 200, 6000).ticks.back();
  EXPECT_EQ(last.line.x1, 580);
  EXPECT_EQ(last.box, (PixelRect{560, 0, 40, 13}));
  const AxisTick beyond = TimeRuler({600, 17, 1.0}, 6000, 190, 6000).ticks.back();
  EXPECT_EQ(beyond.line.x1, 581);
  EXPECT_EQ(beyond.box, (PixelRect{561, 0, 27, 13}));
}

TEST(TimeRuler, TicksStandOverTheGridsTimeLines) {
  for (std::int64_t first = 0; first < 3000; first += 7) {
    const AxisMarks ruler = TimeRuler({593, 17, 1.0}, 44100, first, 20'000);
    std::vector<int> expected;
    for (const TimeMark& mark : MarksOf({44100, first, 20'000, 593, 593}).marks) {
      if (mark.x > 50) {
        expected.push_back(mark.x);
      }
    }
    EXPECT_EQ(Columns(ruler), expected);
  }
}

TEST(TimeRuler, WithoutAClipTimeRunsAtFortyFourOne) {
  EXPECT_EQ(Labels(TimeRuler({600, 17, 1.0}, 0, 0, 44100)),
            Labels(TimeRuler({600, 17, 1.0}, 44100, 0, 44100)));
}

TEST(TimeRuler, EverythingGrowsWithTheScale) {
  const AxisMarks ruler = TimeRuler({1200, 34, 2.0}, 44100, 0, 44100);
  EXPECT_EQ(ruler.unitBox, (PixelRect{0, 0, 60, 26}));
  EXPECT_EQ(Columns(ruler), (std::vector<int>{120, 240, 360, 480, 600, 720, 840, 960, 1080}));
  EXPECT_EQ(ruler.ticks.front().box, (PixelRect{80, 0, 80, 26}));
  EXPECT_EQ(TickPen({1200, 34, 2.0}).thickness, 2);
}

TEST(TimeRuler, TheUnitStandsOnOneLineWithTheLabels) {
  for (const PaintArea area : {PaintArea{600, 17, 1.0}, PaintArea{900, 26, 1.5}}) {
    for (const AxisMarks& ruler : {TimeRuler(area, 44100, 0, 44100), SampleRuler(area, 0, 44100)}) {
      EXPECT_EQ(ruler.unitBox.y, ruler.ticks.front().box.y);
      EXPECT_EQ(ruler.unitBox.height, ruler.ticks.front().box.height);
    }
  }
}

TEST(TimeRuler, WithoutSizeOrFramesItHasNoTicks) {
  EXPECT_TRUE(TimeRuler({0, 17, 1.0}, 44100, 0, 44100).ticks.empty());
  EXPECT_TRUE(TimeRuler({600, 0, 1.0}, 44100, 0, 44100).ticks.empty());
  EXPECT_TRUE(TimeRuler({600, 17, 1.0}, 44100, 0, 0).ticks.empty());
  EXPECT_TRUE(SampleRuler({0, 17, 1.0}, 0, 44100).ticks.empty());
  EXPECT_TRUE(SampleRuler({600, 0, 1.0}, 0, 44100).ticks.empty());
  EXPECT_TRUE(SampleRuler({600, 17, 1.0}, 0, 0).ticks.empty());
}

TEST(SampleStep, IsTheLargestStrictlyBelowTheWish) {
  EXPECT_EQ(SampleStep(0), 1);
  EXPECT_EQ(SampleStep(1), 1);
  EXPECT_EQ(SampleStep(2), 1);
  EXPECT_EQ(SampleStep(3), 2);
  EXPECT_EQ(SampleStep(5), 2);
  EXPECT_EQ(SampleStep(6), 5);
  EXPECT_EQ(SampleStep(10), 5);
  EXPECT_EQ(SampleStep(11), 10);
  EXPECT_EQ(SampleStep(20), 10);
  EXPECT_EQ(SampleStep(21), 20);
  EXPECT_EQ(SampleStep(1'000'000), 500'000);
  EXPECT_EQ(SampleStep(5'000'000), 2'000'000);
  EXPECT_EQ(SampleStep(5'000'001), 5'000'000);
  EXPECT_EQ(SampleStep(1'000'000'000'000), 5'000'000);
}

TEST(SampleRuler, MarksFramesFromAMultipleOfTheStepOn) {
  // 600 pixels make five divisions: a wish of 11 frames.
  const AxisMarks ruler = SampleRuler({600, 17, 1.0}, 103, 55);
  EXPECT_EQ(Labels(ruler), (Texts{"110", "120", "130", "140", "150"}));
  EXPECT_EQ(Columns(ruler), (std::vector<int>{76, 185, 294, 403, 512}));
  EXPECT_EQ(ruler.unit, "sample");
  EXPECT_EQ(ruler.unitBox, (PixelRect{0, 0, 40, 13}));
}

TEST(SampleRuler, WishIsAWholeNumberOfFrames) {
  // 54 frames over five divisions: 10, so a step of 5.
  EXPECT_EQ(Labels(SampleRuler({600, 17, 1.0}, 0, 54)).front(), "5");
  EXPECT_EQ(Labels(SampleRuler({600, 17, 1.0}, 0, 55)).front(), "10");
}

TEST(SampleRuler, ANarrowRulerHasOneDivision) {
  EXPECT_EQ(Labels(SampleRuler({119, 17, 1.0}, 0, 11)), (Texts{"10"}));
}

TEST(SampleRuler, TicksDoNotDriftOverALongView) {
  const AxisMarks ruler = SampleRuler({599, 17, 1.0}, 0, 158'760'000);
  ASSERT_FALSE(ruler.ticks.empty());
  for (const AxisTick& tick : ruler.ticks) {
    EXPECT_EQ(tick.line.x1, std::stoll(tick.label) * 599 / 158'760'000);
  }
}

TEST(SampleRuler, NoTwoTicksShareAPixel) {
  const std::vector<int> columns = Columns(SampleRuler({600, 17, 1.0}, 0, std::int64_t{1} << 40));
  ASSERT_FALSE(columns.empty());
  for (std::size_t i = 1; i < columns.size(); ++i) {
    EXPECT_LT(columns[i - 1], columns[i]);
  }
}

// An hour in the first document window: a tick every 17 pixels, whose labels are 56 and 63 wide.
TEST(SampleRuler, TheLabelsOfAnHourStandApart) {
  const PaintArea area{564, 17, 1.0};
  const auto widthOf = [](std::string_view text) { return static_cast<int>(text.size()) * 7; };
  AxisMarks ruler = SampleRuler(area, 0, 158'760'000);
  const std::vector<int> columns = Columns(ruler);
  LeaveOutUnreadableLabels(ruler, area, widthOf);
  EXPECT_EQ(Columns(ruler), columns);
  Texts left;
  for (const std::string& label : Labels(ruler)) {
    if (!label.empty()) {
      left.push_back(label);
    }
  }
  EXPECT_EQ(left,
            (Texts{"25000000", "45000000", "65000000", "85000000", "105000000", "125000000", "145000000"}));
}

}  // namespace
}  // namespace tembrel
