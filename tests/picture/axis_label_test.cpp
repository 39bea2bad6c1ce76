// Which of an axis' labels can be read.
#include <gtest/gtest.h>

#include "picture/AxisLabel.h"

namespace tembrel {
namespace {

using Texts = std::vector<std::string>;

constexpr int kDigit = 7;

int Width(std::string_view text) {
  return static_cast<int>(text.size()) * kDigit;
}

// A tick with its box 20 pixels to both sides.
AxisTick TickAt(int x, std::string label, int areaWidth = 1000) {
  return {{x, 13, x, 16}, LabelBox({x - 20, 0, 40, 13}, areaWidth), std::move(label)};
}

Texts Left(std::vector<AxisTick> ticks, const PaintArea& area, std::string_view unit = "Hz") {
  AxisMarks axis{unit, {0, 0, area.Scaled(40), 13}, std::move(ticks)};
  LeaveOutUnreadableLabels(axis, area, Width);
  Texts labels;
  for (const AxisTick& tick : axis.ticks) {
    labels.push_back(tick.label);
  }
  return labels;
}

TEST(ReadableLabels, LabelsWithRoomBetweenThemStay) {
  EXPECT_EQ(Left({TickAt(100, "1000"), TickAt(150, "2000")}, {600, 17}), (Texts{"1000", "2000"}));
  EXPECT_EQ(Left({}, {600, 17}), Texts{});
}

TEST(ReadableLabels, OneThatTouchesTheLabelBeforeItIsLeftOut) {
  // 28 pixels of text and six between: 34 from tick to tick.
  EXPECT_EQ(Left({TickAt(100, "1000"), TickAt(134, "2000")}, {600, 17}), (Texts{"1000", "2000"}));
  EXPECT_EQ(Left({TickAt(100, "1000"), TickAt(133, "2000")}, {600, 17}), (Texts{"1000", ""}));
}

TEST(ReadableLabels, OneLeftOutTakesNoRoom) {
  EXPECT_EQ(Left({TickAt(100, "1000"), TickAt(117, "1500"), TickAt(134, "2000")}, {600, 17}),
            (Texts{"1000", "", "2000"}));
}

TEST(ReadableLabels, OneThatTouchesTheUnitIsLeftOut) {
  // The unit's text ends at 41: 42 pixels centred in 40.
  EXPECT_EQ(Left({TickAt(61, "1000")}, {600, 17}, "sample"), (Texts{"1000"}));
  EXPECT_EQ(Left({TickAt(60, "1000")}, {600, 17}, "sample"), (Texts{""}));
  EXPECT_EQ(Left({TickAt(60, "1000")}, {600, 17}, "s"), (Texts{"1000"}));
}

TEST(ReadableLabels, OneThatTheEdgeWouldCutIsLeftOut) {
  // The box ends with the area, and is cut by a third a pixel further on, which moves the text by 7.
  EXPECT_EQ(Left({TickAt(280, "123456789", 300)}, {300, 17}), (Texts{""}));
  EXPECT_EQ(Left({TickAt(280, "12345", 300)}, {300, 17}), (Texts{"12345"}));
  EXPECT_EQ(Left({TickAt(292, "1234", 300)}, {300, 17}), (Texts{"1234"}));
  EXPECT_EQ(Left({TickAt(293, "1234", 300)}, {300, 17}), (Texts{""}));
}

TEST(ReadableLabels, TheTicksStay) {
  AxisMarks axis{"Hz", {0, 0, 40, 13}, {TickAt(100, "1000"), TickAt(101, "1001")}};
  const AxisMarks before = axis;
  LeaveOutUnreadableLabels(axis, {600, 17}, Width);
  ASSERT_EQ(axis.ticks.size(), 2U);
  EXPECT_EQ(axis.ticks[1].line, before.ticks[1].line);
  EXPECT_EQ(axis.ticks[1].box, before.ticks[1].box);
  EXPECT_EQ(axis.ticks[1].label, "");
}

TEST(ReadableLabels, TheRoomBetweenThemGrowsWithTheScale) {
  EXPECT_EQ(Left({TickAt(200, "1000"), TickAt(240, "2000")}, {600, 34, 2.0}), (Texts{"1000", "2000"}));
  EXPECT_EQ(Left({TickAt(200, "1000"), TickAt(239, "2000")}, {600, 34, 2.0}), (Texts{"1000", ""}));
}

}  // namespace
}  // namespace tembrel
