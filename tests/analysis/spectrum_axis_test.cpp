// The frequency axis: where its ticks stand and what their labels say.
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

#include "analysis/BinMarks.h"
#include "analysis/SpectrumAxis.h"
#include "analysis/SpectrumLines.h"
#include "picture/AxisLabel.h"

namespace tembrel {
namespace {

using Labels = std::vector<std::pair<int, std::string>>;

Labels LabelsOf(const PaintArea& area, std::uint32_t rate, const SpectrumView& view) {
  Labels labels;
  for (const AxisTick& tick : AxisOf(area, rate, view).ticks) {
    labels.emplace_back(tick.line.x1, tick.label);
  }
  return labels;
}

SpectrumView At(int zoomInSteps, std::uint32_t percent) {
  SpectrumView view;
  for (int i = 0; i < zoomInSteps; ++i) {
    view.RunCommand(kSpectrumZoomIn);
  }
  view.Scroll(SpectrumScroll::ThumbPosition, percent);
  return view;
}

TEST(SpectrumAxis, LabelsATickForEvery120Pixels) {
  // Every 64 bins: 1378.125 Hz.
  EXPECT_EQ(LabelsOf({480, 17}, 44100, SpectrumView()),
            (Labels{{120, "1378"}, {240, "2756"}, {360, "4134"}}));
  // Every 51.2 bins: 1102.5 Hz, a little more in single precision, so never rounded down.
  EXPECT_EQ(LabelsOf({600, 17}, 44100, SpectrumView()),
            (Labels{{120, "1103"}, {240, "2205"}, {360, "3308"}, {480, "4410"}}));
  // Every 256 / 3 bins of 3.90625 Hz.
  EXPECT_EQ(LabelsOf({400, 17}, 8000, SpectrumView()), (Labels{{133, "333"}, {266, "667"}}));
}

TEST(SpectrumAxis, TicksStandAtMultiplesOfTheStepWhenScrolled) {
  // 256 bins from 284 on, every 64.
  EXPECT_EQ(LabelsOf({480, 17}, 44100, At(0, 37)),
            (Labels{{67, "6891"}, {187, "8269"}, {307, "9647"}, {427, "11025"}}));
  // 4 bins from 1020 on, every one.
  EXPECT_EQ(LabelsOf({480, 17}, 48000, At(6, 100)), (Labels{{120, "23930"}, {240, "23953"}, {360, "23977"}}));
}

TEST(SpectrumAxis, NoTickStandsInTheFirst60Pixels) {
  // 128 bins from 448 on, every 32: ticks at 448, 480, ... and the first at 0.
  EXPECT_EQ(LabelsOf({480, 17}, 44100, At(1, 50)).front().first, 120);
  // Step 64; from 288 on the first multiple inside is 320, at 32 × 480 / 256 = 60: not right of 60.
  SpectrumView view;
  view.MoveMarker(MarkerMove::PageRight);
  for (int i = 0; i < 287; ++i) {
    view.MoveMarker(MarkerMove::Right);
  }
  ASSERT_EQ(view.FirstBin(), 288);
  EXPECT_EQ(LabelsOf({480, 17}, 44100, view).front().first, 180);
  view.MoveMarker(MarkerMove::PageLeft);
  view.MoveMarker(MarkerMove::First);
  // One bin less, and the tick is at 61.
  view.MoveMarker(MarkerMove::PageRight);
  for (int i = 0; i < 286; ++i) {
    view.MoveMarker(MarkerMove::Right);
  }
  ASSERT_EQ(view.FirstBin(), 287);
  EXPECT_EQ(LabelsOf({480, 17}, 44100, view).front().first, 61);
}

TEST(SpectrumAxis, ABoxIsTwentyPixelsToBothSidesAndMovesInAtTheRightEnd) {
  // Every 128 / 4 bins over 513 pixels: the last tick at 384.
  const AxisMarks inside = AxisOf({513, 17}, 44100, At(1, 0));
  EXPECT_EQ(inside.ticks.at(0).box, (PixelRect{108, 4, 40, 13}));
  EXPECT_EQ(inside.ticks.at(0).line, (Line{128, 0, 128, 3}));
  // 128 bins from 898 on are not to be had by the thumb; by the marker they are. Step 32: 896, 928, ... 1024.
  SpectrumView view = At(1, 0);
  while (view.FirstBin() < 894) {
    view.MoveMarker(MarkerMove::Right);
  }
  const AxisTick last = AxisOf({480, 17}, 44100, view).ticks.back();
  EXPECT_EQ(last.line.x1, 367);  // bin 992
  EXPECT_EQ(last.box, (PixelRect{347, 4, 40, 13}));
  view.MoveMarker(MarkerMove::First);
  while (view.FirstBin() < 868) {
    view.MoveMarker(MarkerMove::Right);
  }
  const AxisTick out = AxisOf({480, 17}, 44100, view).ticks.back();
  EXPECT_EQ(out.line.x1, 465);                      // 124 × 480 / 128
  EXPECT_EQ(out.box, (PixelRect{445, 4, 27, 13}));  // 40 - 40 / 3
}

TEST(SpectrumAxis, TheUnitStandsInTheFirst40Pixels) {
  EXPECT_EQ(AxisOf({480, 17}, 44100, SpectrumView()).unitBox, (PixelRect{0, 4, 40, 13}));
  EXPECT_EQ(AxisOf({480, 17}, 44100, SpectrumView()).unit, "Hz");
}

TEST(SpectrumAxis, AllDistancesGrowWithTheScreensPixels) {
  const AxisMarks axis = AxisOf({960, 34, 2.0}, 44100, SpectrumView());
  EXPECT_EQ(axis.unitBox, (PixelRect{0, 8, 80, 26}));
  EXPECT_EQ(LabelsOf({960, 34, 2.0}, 44100, SpectrumView()),
            (Labels{{240, "1378"}, {480, "2756"}, {720, "4134"}}));
  EXPECT_EQ(axis.ticks.at(0).box, (PixelRect{200, 8, 80, 26}));
  EXPECT_EQ(axis.ticks.at(0).line, (Line{240, 0, 240, 6}));
  EXPECT_EQ(TickPen({960, 34, 2.0}).thickness, 2);
}

TEST(SpectrumAxis, ANarrowOneHasNoTicksAndOneOfNoWidthDoesNoHarm) {
  EXPECT_TRUE(AxisOf({100, 17}, 44100, SpectrumView()).ticks.empty());
  EXPECT_TRUE(AxisOf({0, 0}, 44100, SpectrumView()).ticks.empty());
}

TEST(SpectrumAxis, TicksOfTheFastestRateAreWholeNumbers) {
  EXPECT_EQ(LabelsOf({480, 17}, 4294967295U, SpectrumView()).at(0).second, "134217728");
}

TEST(SpectrumAxis, StandsUnderTheGridOfTheSameWidth) {
  for (int zoom = 0; zoom < 7; ++zoom) {
    for (const int width : {240, 333, 600, 1111, 1920}) {
      for (const std::uint32_t percent : {0U, 13U, 50U, 99U, 100U}) {
        const SpectrumView view = At(zoom, percent);
        std::vector<int> lines;
        for (const SpectrumLine& line : SpectrumGrid({width, 100}, view)) {
          if (line.layer == SpectrumLayer::Bin && line.line.x1 > 60) {
            lines.push_back(line.line.x1);
          }
        }
        std::vector<int> ticks;
        for (const auto& [x, label] : LabelsOf({width, 17}, 44100, view)) {
          ticks.push_back(x);
        }
        ASSERT_EQ(ticks, lines) << zoom << " " << width << " " << percent;
        ASSERT_FALSE(ticks.empty());
      }
    }
  }
}

TEST(BinMarks, StartAtTheMultipleBeforeTheFirstBin) {
  EXPECT_EQ(BinMarks({100, 256, 480, 480}),
            (std::vector<BinMark>{{64, -67}, {128, 52}, {192, 172}, {256, 292}, {320, 412}}));
  EXPECT_TRUE(BinMarks({0, 256, 0, 0}).empty());
}

}  // namespace
}  // namespace tembrel
