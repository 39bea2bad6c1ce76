#include "picture/Raster.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace tembrel {
namespace {

constexpr Rgb kEmpty = 0xFFFFFFFF;
constexpr Rgb kInk = 0xFF0000FF;

// A canvas with two spare pixels a row and a spare row above and below, which nothing may touch.
class Canvas {
 public:
  Canvas(int canvasWidth, int canvasHeight)
      : width(canvasWidth),
        height(canvasHeight),
        stride(canvasWidth + 2),
        pixels(static_cast<std::size_t>(stride) * static_cast<std::size_t>(canvasHeight + 2), kEmpty) {}

  Raster AsRaster() {
    const auto row = static_cast<std::size_t>(stride);
    return {std::span(pixels).subspan(row, row * static_cast<std::size_t>(height)), width, height, stride};
  }

  // '#' for ink, '.' for empty, a line a row.
  std::string Text() {
    std::string text;
    const Raster raster = AsRaster();
    for (std::size_t i = 0; i < raster.pixels.size(); ++i) {
      const int x = static_cast<int>(i) % stride;
      if (x < width) {
        text += raster.pixels[i] == kInk ? '#' : '.';
      } else if (x == width) {
        text += '\n';
      }
    }
    return text;
  }

  int Drawn() const { return static_cast<int>(std::count(pixels.begin(), pixels.end(), kInk)); }

  bool SpareUntouched() const {
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const int x = static_cast<int>(i) % stride;
      const int y = static_cast<int>(i) / stride - 1;
      if ((x >= width || y < 0 || y >= height) && pixels[i] != kEmpty) {
        return false;
      }
    }
    return true;
  }

 private:
  int width;
  int height;
  int stride;
  std::vector<Rgb> pixels;
};

TEST(Raster, FillPaintsEveryPixelAndNoOther) {
  Canvas canvas(3, 2);
  Fill(canvas.AsRaster(), kInk);
  EXPECT_EQ(canvas.Text(), "###\n###\n");
  EXPECT_TRUE(canvas.SpareUntouched());
}

TEST(Raster, RectanglesAreClipped) {
  Canvas canvas(4, 3);
  FillRect(canvas.AsRaster(), {-5, 1, 7, 100}, kInk);
  EXPECT_EQ(canvas.Text(), "....\n##..\n##..\n");
  FillRect(canvas.AsRaster(), {1, 0, 0, 5}, kInk);
  FillRect(canvas.AsRaster(), {std::numeric_limits<int>::max(), 0, std::numeric_limits<int>::max(), 5}, kInk);
  EXPECT_EQ(canvas.Drawn(), 4);
  EXPECT_TRUE(canvas.SpareUntouched());
}

TEST(Raster, LinesIncludeBothEnds) {
  Canvas canvas(5, 4);
  DrawLine(canvas.AsRaster(), {1, 0, 3, 0}, {kInk});
  DrawLine(canvas.AsRaster(), {0, 3, 0, 1}, {kInk});
  DrawLine(canvas.AsRaster(), {4, 3, 4, 3}, {kInk});
  EXPECT_EQ(canvas.Text(), ".###.\n#....\n#....\n#...#\n");
}

TEST(Raster, SlantedLinesAreWithoutGaps) {
  Canvas canvas(6, 3);
  DrawLine(canvas.AsRaster(), {0, 0, 5, 2}, {kInk});
  EXPECT_EQ(canvas.Text(), "##....\n..##..\n....##\n");
  Canvas steep(3, 5);
  DrawLine(steep.AsRaster(), {2, 0, 0, 4}, {kInk});
  EXPECT_EQ(steep.Text(), "..#\n.#.\n.#.\n#..\n#..\n");
}

TEST(Raster, DashIsEighteenOnAndSixOffFromTheLinesOwnStart) {
  Canvas canvas(50, 2);
  DrawLine(canvas.AsRaster(), {0, 0, 49, 0}, {kInk, 1, PenStyle::Dash});
  DrawLine(canvas.AsRaster(), {49, 1, 0, 1}, {kInk, 1, PenStyle::Dash});
  const std::string dashes = std::string(18, '#') + "......" + std::string(18, '#') + "......" + "##";
  EXPECT_EQ(canvas.Text(), dashes + "\n" + std::string(dashes.rbegin(), dashes.rend()) + "\n");
}

TEST(Raster, DotIsThreeOnAndThreeOff) {
  Canvas canvas(1, 11);
  DrawLine(canvas.AsRaster(), {0, 0, 0, 10}, {kInk, 1, PenStyle::Dot});
  EXPECT_EQ(canvas.Text(), "#\n#\n#\n.\n.\n.\n#\n#\n#\n.\n.\n");
}

TEST(Raster, DashesMayBeginInTheMiddleOfADash) {
  Canvas canvas(40, 1);
  Pen pen{kInk, 1, PenStyle::Dash};
  pen.patternStart = 12;
  DrawLine(canvas.AsRaster(), {0, 0, 39, 0}, pen);
  EXPECT_EQ(canvas.Text(), "######......##################......####\n");
}

TEST(Raster, LinesMayBeginInAGap) {
  Canvas canvas(26, 2);
  Pen pen{kInk, 1, PenStyle::Dash};
  pen.patternStart = 20;
  DrawLine(canvas.AsRaster(), {0, 0, 25, 0}, pen);
  pen.patternStart = 20 + 3 * kDashPeriod;
  DrawLine(canvas.AsRaster(), {0, 1, 25, 1}, pen);
  const std::string row = "...." + std::string(18, '#') + "....\n";
  EXPECT_EQ(canvas.Text(), row + row);
}

TEST(Raster, EndsMayBeDrawnEvenInAGap) {
  Canvas canvas(26, 3);
  Pen pen{kInk, 1, PenStyle::Dash};
  pen.drawsEnds = true;
  pen.patternStart = 20;
  DrawLine(canvas.AsRaster(), {0, 0, 25, 0}, pen);
  DrawLine(canvas.AsRaster(), {3, 2, 1, 2}, pen);
  EXPECT_EQ(canvas.Text(), "#..." + std::string(18, '#') + "...#\n" + std::string(26, '.') + "\n" + ".#.#" +
                               std::string(22, '.') + "\n");
  Canvas slanted(5, 3);
  DrawLine(slanted.AsRaster(), {0, 0, 4, 2}, pen);
  EXPECT_EQ(slanted.Text(), "#....\n.....\n....#\n");
  Canvas window(3, 1);
  DrawLine(window.AsRaster(), {-1, 0, 3, 0}, pen);  // both ends outside
  EXPECT_EQ(window.Text(), "...\n");
  EXPECT_TRUE(window.SpareUntouched());
}

TEST(Raster, TheStartIsCountedInPixelsOfTheRaster) {
  Canvas canvas(20, 1);
  Pen pen{kInk, 1, PenStyle::Dash, 2};
  pen.patternStart = 33;
  DrawLine(canvas.AsRaster(), {0, 0, 19, 0}, pen);
  EXPECT_EQ(canvas.Text(), "###" + std::string(12, '.') + "#####\n");
}

TEST(Raster, ClippingKeepsTheDashesWhereTheyAre) {
  Canvas canvas(30, 1);
  DrawLine(canvas.AsRaster(), {-10, 0, 100, 0}, {kInk, 1, PenStyle::Dash});
  EXPECT_EQ(canvas.Text(), "########......" + std::string(16, '#') + "\n");
  Canvas backward(30, 1);
  DrawLine(backward.AsRaster(), {40, 0, -100, 0}, {kInk, 1, PenStyle::Dash});
  EXPECT_EQ(backward.Text(), std::string(17, '#') + "......" + std::string(7, '#') + "\n");
}

TEST(Raster, SlantedDashesCountAlongTheLongerSide) {
  Canvas canvas(26, 26);
  DrawLine(canvas.AsRaster(), {0, 0, 25, 25}, {kInk, 1, PenStyle::Dash});
  EXPECT_EQ(canvas.Drawn(), 20);
}

TEST(Raster, PatternAndThicknessGrowWithTheirFactors) {
  Canvas canvas(13, 4);
  DrawLine(canvas.AsRaster(), {0, 1, 12, 1}, {kInk, 2, PenStyle::Dot, 2});
  EXPECT_EQ(canvas.Text(), ".............\n######......#\n######......#\n.............\n");
}

TEST(Raster, ThickLinesAreCentred) {
  Canvas canvas(5, 5);
  DrawLine(canvas.AsRaster(), {2, 0, 2, 4}, {kInk, 3});
  EXPECT_EQ(canvas.Text(), ".###.\n.###.\n.###.\n.###.\n.###.\n");
}

TEST(Raster, ClippedSlantedLinesKeepTheirPixels) {
  Canvas whole(200, 200);
  DrawLine(whole.AsRaster(), {10, 20, 187, 133}, {kInk, 1, PenStyle::Dash});
  Canvas window(60, 60);
  DrawLine(window.AsRaster(), {10 - 70, 20 - 50, 187 - 70, 133 - 50}, {kInk, 1, PenStyle::Dash});
  std::string cut;
  const std::string text = whole.Text();
  for (std::size_t y = 50; y < 110; ++y) {
    cut += text.substr(y * 201 + 70, 60) + "\n";
  }
  EXPECT_EQ(window.Text(), cut);
  EXPECT_GT(window.Drawn(), 20);
}

TEST(Raster, LinesFarOutsideEndQuicklyAndTouchNothing) {
  const int high = std::numeric_limits<int>::max();
  const int low = std::numeric_limits<int>::min();
  Canvas canvas(10, 10);
  for (const PenStyle style : {PenStyle::Solid, PenStyle::Dash, PenStyle::Dot}) {
    DrawLine(canvas.AsRaster(), {low, 20, high, 20}, {kInk, 1, style});
    DrawLine(canvas.AsRaster(), {-3, low, -3, high}, {kInk, 1, style});
    DrawLine(canvas.AsRaster(), {50, 50, high, high - 7}, {kInk, 1, style});
  }
  EXPECT_EQ(canvas.Drawn(), 0);
  DrawLine(canvas.AsRaster(), {low, low, high, high}, {kInk});
  EXPECT_EQ(canvas.Drawn(), 10);
  EXPECT_TRUE(canvas.SpareUntouched());
}

TEST(Raster, SizesThePixelsDoNotHoldAreCutDown) {
  std::vector<Rgb> pixels(10, kEmpty);
  Fill({pixels, 4, 100, 4}, kInk);
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kInk), 8);
  Fill({pixels, 100, 1, 4}, 0xFF123456);
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), 0xFF123456), 4);
  Fill({pixels, -1, -1, -1}, kInk);
  Fill({{}, 10, 10, 10}, kInk);
  DrawLine({{}, 10, 10, 10}, {0, 0, 9, 9}, {kInk});
  EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kInk), 4);
}

}  // namespace
}  // namespace tembrel
