// The plot's grid, traces and colours.
#include <algorithm>
#include <array>
#include <gmock/gmock.h>
#include <vector>

#include "analysis/FourierTransform.h"
#include "analysis/SpectrumLines.h"
#include "analysis/SpectrumPicture.h"

namespace tembrel {
namespace {

SpectrumView Zoomed(int zoom, std::uint32_t percent = 0) {
  SpectrumView view;
  while (view.Zoom() < zoom) {
    view.RunCommand(kSpectrumZoomIn);
  }
  while (view.Zoom() > zoom) {
    view.RunCommand(kSpectrumZoomOut);
  }
  view.Scroll(SpectrumScroll::ThumbPosition, percent);
  return view;
}

std::vector<int> RowsOf(const PaintArea& area) {
  std::vector<int> rows;
  for (const SpectrumLine& line : SpectrumGrid(area, SpectrumView())) {
    if (line.layer != SpectrumLayer::Bin) {
      EXPECT_EQ(line.line, (Line{0, line.line.y1, area.width - 1, line.line.y1}));
      rows.push_back(line.line.y1);
    }
  }
  return rows;
}

std::vector<int> ColumnsOf(const PaintArea& area, const SpectrumView& view) {
  std::vector<int> columns;
  for (const SpectrumLine& line : SpectrumGrid(area, view)) {
    if (line.layer == SpectrumLayer::Bin) {
      EXPECT_EQ(line.line, (Line{line.line.x1, 0, line.line.x1, area.height - 1}));
      columns.push_back(line.line.x1);
    }
  }
  return columns;
}

// Bins without power but those given.
SpectrumBins Bins(const std::vector<std::pair<std::size_t, std::complex<double>>>& given,
                  std::complex<double> others = 0) {
  SpectrumBins bins(kSpectrumPoints, others);
  for (const auto& [bin, value] : given) {
    bins[bin] = value;
  }
  return bins;
}

TEST(SpectrumGrid, HasElevenLevelsOfWhichTheSixthIsTheCentre) {
  EXPECT_EQ(RowsOf({600, 110}), (std::vector{5, 15, 25, 35, 45, 55, 65, 75, 85, 95, 105}));
  // 333 / 11 / 2 = 15
  EXPECT_EQ(RowsOf({600, 333}), (std::vector{15, 45, 75, 105, 136, 166, 196, 226, 257, 287, 317}));
  EXPECT_EQ(RowsOf({600, 11}), (std::vector{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
  const auto lines = SpectrumGrid({600, 110}, SpectrumView());
  for (std::size_t i = 0; i < 11; ++i) {
    EXPECT_EQ(lines[i].layer, i == 5 ? SpectrumLayer::CentreLevel : SpectrumLayer::Level) << i;
  }
}

TEST(SpectrumGrid, HasALineForEvery120Pixels) {
  EXPECT_EQ(ColumnsOf({600, 100}, Zoomed(8)), (std::vector{0, 120, 240, 360, 480}));  // every 51.2 bins
  EXPECT_EQ(ColumnsOf({700, 100}, Zoomed(2)), (std::vector{0, 140, 280, 420, 560}));
  EXPECT_EQ(ColumnsOf({359, 100}, Zoomed(512)), (std::vector{0, 179}));
  EXPECT_EQ(ColumnsOf({119, 100}, Zoomed(8)), (std::vector{0}));
  EXPECT_EQ(ColumnsOf({480, 100}, Zoomed(64)), (std::vector{0, 120, 240, 360}));
}

TEST(SpectrumGrid, StandsAtMultiplesOfTheStep) {
  // 256 bins from 284 on (37 %), every 64: 256, 320, 384, 448, 512.
  EXPECT_EQ(ColumnsOf({480, 100}, Zoomed(8, 37)), (std::vector{67, 187, 307, 427}));
  // 64 bins from 480 on (50 %), every 12.8: 473.6, 486.4, 499.2, 512, 524.8, 537.6.
  EXPECT_EQ(ColumnsOf({640, 100}, Zoomed(32, 50)), (std::vector{64, 192, 320, 448, 576}));
}

TEST(SpectrumGrid, HasTheSameSpacingOnFinerScreens) {
  EXPECT_EQ(ColumnsOf({1200, 200, 2.0}, Zoomed(8)), (std::vector{0, 240, 480, 720, 960}));
}

TEST(SpectrumGrid, OfNoAreaIsEmpty) {
  EXPECT_TRUE(SpectrumGrid({0, 100}, SpectrumView()).empty());
  EXPECT_TRUE(SpectrumGrid({100, 0}, SpectrumView()).empty());
}

TEST(SpectrumTrace, PutsTheHighestPowerAtTheEdgeAndNoPowerAtTheMiddle) {
  const SpectrumBins bins = Bins({{1, {3, 4}}, {2, {0, 2.5}}, {3, 5}});  // powers 25, 6.25 and 25
  const auto up = TracePoints(bins, {512, 200}, Zoomed(8), TraceSide::Up);
  ASSERT_EQ(up.size(), 2048U);
  EXPECT_EQ(up[0], (PlotPoint{0, 100}));
  EXPECT_EQ(up[1], (PlotPoint{2, 0}));
  EXPECT_EQ(up[2], (PlotPoint{4, 75}));
  EXPECT_EQ(up[3], (PlotPoint{6, 0}));
  EXPECT_EQ(up[256], (PlotPoint{512, 100}));
  EXPECT_EQ(up[2047], (PlotPoint{4094, 100}));
  const auto down = TracePoints(bins, {512, 200}, Zoomed(8), TraceSide::Down);
  EXPECT_EQ(down[1], (PlotPoint{2, 200}));
  EXPECT_EQ(down[2], (PlotPoint{4, 125}));
}

TEST(SpectrumTrace, TruncatesTowardsZero) {
  // Half of 101 is 50; 0.3 of it is 15: 50 - 15.0 and 50 + 15.0, with 0.31: 34.5 and 65.5.
  const SpectrumBins bins = Bins({{0, 10}, {1, {0, std::sqrt(31.0)}}});
  EXPECT_EQ(TracePoints(bins, {512, 101}, Zoomed(8), TraceSide::Up)[1].y, 34);
  EXPECT_EQ(TracePoints(bins, {512, 101}, Zoomed(8), TraceSide::Down)[1].y, 65);
}

TEST(SpectrumTrace, BeginsAtTheFirstBinShownAndEndsAtTheLastOfAll) {
  const SpectrumBins bins = Bins({{284, 1}});
  const auto points = TracePoints(bins, {1000, 200}, Zoomed(8, 37), TraceSide::Up);
  ASSERT_EQ(points.size(), 2048U - 284U);
  EXPECT_EQ(points[0], (PlotPoint{0, 0}));
  EXPECT_EQ(points[1], (PlotPoint{3, 100}));  // 1000 × 1 × 8 / 2048 = 3.9
  EXPECT_EQ(points[128], (PlotPoint{500, 100}));
}

TEST(SpectrumTrace, SpreadsTheVisibleBinsOverTheWidthAtEveryZoom) {
  const SpectrumBins bins = Bins({{1023, 1}});
  for (int zoom = 2; zoom <= 512; zoom *= 2) {
    const SpectrumView view = Zoomed(zoom, 100);
    const auto visible = static_cast<std::size_t>(view.VisibleBins());
    const auto points = TracePoints(bins, {333, 50}, view, TraceSide::Up);
    EXPECT_EQ(points[visible].x, 333) << zoom;
    EXPECT_EQ(points[visible - 1].x, 333 * (view.VisibleBins() - 1) / view.VisibleBins()) << zoom;
    EXPECT_EQ(points[visible - 1].y, 0) << zoom;
  }
}

TEST(SpectrumTrace, AllBinsCountForTheRangeAndNotOnlyThoseShown) {
  const SpectrumBins bins = Bins({{2000, 10}, {1, 5}});
  EXPECT_EQ(TracePoints(bins, {512, 200}, Zoomed(8), TraceSide::Up)[1].y, 75);
}

// Only the height is divided by the range; the smallest power is not taken off.
TEST(SpectrumTrace, LiesHigherWhenNoBinIsWithoutPower) {
  const SpectrumBins bins = Bins({{1, std::sqrt(5.0)}}, 1);  // powers 5 and 1
  const auto points = TracePoints(bins, {512, 200}, Zoomed(8), TraceSide::Up);
  EXPECT_EQ(points[0].y, 75);
  EXPECT_EQ(points[1].y, -25);
}

TEST(SpectrumTrace, OfEqualBinsIsAFlatLineAtMidHeight) {
  for (const double value : {0.0, 1.0, 1000.0}) {
    for (const PlotPoint& point : TracePoints(Bins({}, value), {512, 201}, Zoomed(8), TraceSide::Up)) {
      ASSERT_EQ(point.y, 100) << value;
    }
  }
}

// All its bins are as strong; what the transform rounds is not drawn.
TEST(SpectrumTrace, OfASingleClickIsAFlatLineAtMidHeight) {
  for (const std::size_t at : {0U, 1U, 5U, 512U, 1000U, 2047U}) {
    SpectrumBins bins(kSpectrumPoints);
    bins[at] = 20000.0;
    const std::array dims{kSpectrumPoints};
    FourierTransform(bins, dims, +1);
    for (const PlotPoint& point : TracePoints(bins, {512, 201}, Zoomed(8), TraceSide::Up)) {
      ASSERT_EQ(point.y, 100) << at;
    }
  }
}

TEST(SpectrumTrace, PointsFarOutsideAreHeldInWhatANumberHolds) {
  SpectrumBins bins = Bins({}, 1e9);
  bins[0] = {1e9, 1e5};  // hardly more power than all others
  const auto points = TracePoints(bins, {512, 200}, Zoomed(8), TraceSide::Up);
  EXPECT_LT(points[1].y, -1000000);
  const auto wide = TracePoints(bins, {100000, 200}, Zoomed(512), TraceSide::Down);
  EXPECT_EQ(wide[2047].x, 51175000);  // 100000 × 2047 × 512 / 2048
}

TEST(SpectrumColors, AreGivenWithBlueFirst) {
  EXPECT_EQ(FromBlueGreenRed(0x00123456), 0xFF563412U);
  EXPECT_EQ(kSpectrumPaperColor, 0xFF969696U);
  EXPECT_EQ(kSpectrumLevelColor, 0xFF969696U);
  EXPECT_EQ(kSpectrumCentreColor, 0xFF800040U);
  EXPECT_EQ(kSpectrumBinColor, 0xFF8C8C8CU);
  EXPECT_EQ(kSpectrumLeftColor, 0xFF0000FFU);
  EXPECT_EQ(kSpectrumRightColor, 0xFFFF0000U);
}

class SpectrumPlot : public testing::Test {
 protected:
  static constexpr int kWidth = 480;
  static constexpr int kHeight = 220;

  Rgb At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)];
  }
  void Paint(const Spectrum* spectrum, const SpectrumView& view = SpectrumView(), double scale = 1.0) {
    PaintSpectrum(raster, spectrum, {kWidth, kHeight, scale}, view);
  }
  std::ptrdiff_t Count(Rgb color, int fromRow = 0, int toRow = kHeight) const {
    const std::ptrdiff_t row = kWidth;
    return std::count(pixels.begin() + fromRow * row, pixels.begin() + toRow * row, color);
  }

  std::vector<Rgb> pixels = std::vector<Rgb>(std::size_t{kWidth} * kHeight);
  Raster raster{pixels, kWidth, kHeight, kWidth};
};

TEST_F(SpectrumPlot, WithoutASpectrumIsPaperAndGrid) {
  Paint(nullptr);
  EXPECT_EQ(Count(kSpectrumCentreColor), kWidth - 4);  // the four vertical lines are drawn over it
  EXPECT_EQ(Count(kSpectrumBinColor), 4 * kHeight);
  EXPECT_EQ(Count(kSpectrumPaperColor), kWidth * kHeight - kWidth + 4 - 4 * kHeight);
  EXPECT_EQ(At(1, 110), kSpectrumCentreColor);  // 5 × 220 / 11 + 220 / 11 / 2
  EXPECT_EQ(At(120, 0), kSpectrumBinColor);
  EXPECT_EQ(At(120, 110), kSpectrumBinColor);
}

TEST_F(SpectrumPlot, DrawsOneTraceUpwardsAndNothingBelow) {
  const Spectrum spectrum{44100, Bins({{64, 1}}), {}};
  Paint(&spectrum);
  EXPECT_EQ(At(120, 0), kSpectrumLeftColor);
  EXPECT_EQ(At(300, 110), kSpectrumLeftColor);
  EXPECT_EQ(Count(kSpectrumLeftColor, 111), 0);
  EXPECT_EQ(Count(kSpectrumRightColor), 0);
}

TEST_F(SpectrumPlot, DrawsBothChannelsEachWithItsOwnRange) {
  const Spectrum spectrum{44100, Bins({{64, 1}}), Bins({{128, 1000}})};
  Paint(&spectrum);
  EXPECT_EQ(At(120, 0), kSpectrumLeftColor);
  EXPECT_EQ(At(240, kHeight - 1), kSpectrumRightColor);
  EXPECT_EQ(Count(kSpectrumLeftColor, 111), 0);
  EXPECT_EQ(Count(kSpectrumRightColor, 0, 110), 0);
  EXPECT_EQ(At(300, 110), kSpectrumRightColor);  // drawn second
}

TEST_F(SpectrumPlot, HasTwiceAsThickLinesOnAScreenOfTwiceThePixels) {
  const Spectrum spectrum{44100, Bins({}), {}};
  Paint(&spectrum, SpectrumView(), 2.0);
  EXPECT_EQ(Count(kSpectrumLeftColor), 2 * kWidth);
}

TEST_F(SpectrumPlot, ShowsTheMarkerAtItsBin) {
  SpectrumView view;
  for (int i = 0; i < 32; ++i) {
    view.MoveMarker(MarkerMove::Right);
  }
  Paint(nullptr, view);
  EXPECT_EQ(Count(kSpectrumMarkerColor), 0);
  PaintMarker(raster, {kWidth, kHeight}, view);
  EXPECT_EQ(At(60, 0), kSpectrumMarkerColor);
  EXPECT_EQ(At(59, 0), kSpectrumPaperColor);
  EXPECT_GE(Count(kSpectrumMarkerColor), kHeight / 2);
}

}  // namespace
}  // namespace tembrel
