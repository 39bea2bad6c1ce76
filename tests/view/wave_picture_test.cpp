#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <span>

#include "tests/view/TestClips.h"
#include "view/WaveLines.h"
#include "view/WavePicture.h"

namespace tembrel {
namespace {

struct Painted {
  PaintArea area;
  std::vector<Rgb> pixels;

  explicit Painted(const PaintArea& paintArea, Rgb before = 0xFF123456)
      : area(paintArea),
        pixels(static_cast<std::size_t>(paintArea.width) * static_cast<std::size_t>(paintArea.height),
               before) {}

  Raster AsRaster() { return {pixels, area.width, area.height, area.width}; }
  Rgb At(int x, int y) const {
    return std::span(pixels).subspan(static_cast<std::size_t>(y) *
                                     static_cast<std::size_t>(area.width))[static_cast<std::size_t>(x)];
  }
};

TEST(WavePicture, WithoutAClipOnlyTheMonoGridIsPainted) {
  Painted picture({600, 175});
  PaintPicture(picture.AsRaster(), nullptr, picture.area, 0, 441000);
  EXPECT_EQ(picture.At(1, 0), kPaperColor);
  EXPECT_EQ(picture.At(1, 7), kGridColor);
  EXPECT_EQ(picture.At(1, 86), kCentreColor);
  EXPECT_EQ(picture.At(599, 166), kGridColor);
  EXPECT_EQ(picture.At(120, 0), kTimeColor);
  EXPECT_EQ(picture.At(120, 2), kTimeColor);
  EXPECT_EQ(picture.At(120, 3), kPaperColor);
  EXPECT_EQ(picture.At(120, 6), kTimeColor);
  EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kWaveColor), 0);
}

TEST(WavePicture, StereoBandIsFilled) {
  Painted picture({600, 175});
  const AudioClip clip = ClipOfSamples(2, {0, 0});
  PaintPicture(picture.AsRaster(), &clip, picture.area, 0, 441000);
  for (int y = 79; y <= 93; ++y) {
    EXPECT_EQ(picture.At(1, y), kGridColor);
  }
  EXPECT_EQ(picture.At(1, 78), kPaperColor);
  EXPECT_EQ(picture.At(1, 94), kPaperColor);
}

TEST(WavePicture, WaveformLiesOverTheGridInDashes) {
  Painted picture({100, 220});
  const AudioClip clip = ClipOfSamples(1, std::vector<int>{0, 32767, 32767, 32767});
  PaintPicture(picture.AsRaster(), &clip, picture.area, 0, 4);
  // From (25, 10) to (50, 10): eighteen pixels, then a gap of six.
  EXPECT_EQ(picture.At(25, 10), kWaveColor);
  EXPECT_EQ(picture.At(42, 10), kWaveColor);
  EXPECT_NE(picture.At(43, 10), kWaveColor);
  EXPECT_EQ(picture.At(0, 110), kWaveColor);
}

constexpr int kColumns = 400;
constexpr int kFrames = kColumns * 30;  // dense

// Noise whose loudness swells and fades: the columns' ends lie at all heights.
AudioClip SwellingNoise(int swells) {
  std::minstd_rand random(3);
  std::vector<int> samples(kFrames);
  for (int i = 0; i < kFrames; ++i) {
    const int phase = static_cast<int>(std::int64_t{i} * swells * 64 / kFrames) % 64;
    const int peak = 500 * (1 + std::min(phase, 63 - phase) * 2);
    samples[static_cast<std::size_t>(i)] = random() % 2 == 0 ? peak : -peak;
  }
  return ClipOfSamples(1, samples);
}

// The gaps neither follow the outline nor leave rows out: any four neighbouring columns share one in each row
// that lies inside all of them.
TEST(WavePicture, TheGapsOfADenseWaveformMakeAnEvenWeave) {
  for (const PaintArea area : {PaintArea{kColumns, 300, 1.0}, PaintArea{kColumns, 300, 2.0}}) {
    for (const int swells : {0, 1, 5}) {
      const AudioClip clip = SwellingNoise(swells);
      const std::vector<Line> columns = WaveLines(clip, area, 0, kFrames);
      ASSERT_EQ(columns.size(), std::size_t{kColumns});
      Painted picture(area);
      PaintPicture(picture.AsRaster(), &clip, area, 0, kFrames);
      int judged = 0;
      for (std::size_t x = 0; x + 4 <= columns.size(); ++x) {
        const std::span four = std::span(columns).subspan(x, 4);
        const int top = std::ranges::max_element(four, {}, &Line::y1)->y1;
        const int bottom = std::ranges::min_element(four, {}, &Line::y2)->y2;
        for (int y = top + 1; y < bottom; ++y, ++judged) {
          const auto gaps = std::ranges::count_if(
              four, [&](const Line& column) { return picture.At(column.x1, y) != kWaveColor; });
          ASSERT_EQ(gaps, 1) << "column " << x << ", row " << y << ", " << swells << " swells";
        }
      }
      EXPECT_GT(judged, swells == 0 ? 1000 : 10000);
    }
  }
}

TEST(WavePicture, TheEndsOfEveryDenseColumnArePainted) {
  const PaintArea area{kColumns, 300, 1.0};
  const AudioClip clip = SwellingNoise(7);
  Painted picture(area);
  PaintPicture(picture.AsRaster(), &clip, area, 0, kFrames);
  for (const Line& column : WaveLines(clip, area, 0, kFrames)) {
    EXPECT_EQ(picture.At(column.x1, column.y1), kWaveColor);
    EXPECT_EQ(picture.At(column.x2, column.y2), kWaveColor);
  }
}

TEST(WavePicture, ASilentStretchIsOneUnbrokenLine) {
  const PaintArea area{kColumns, 300, 1.0};
  const AudioClip clip = ClipOfSamples(1, std::vector<int>(kFrames, 0));
  Painted picture(area);
  PaintPicture(picture.AsRaster(), &clip, area, 0, kFrames);
  for (int x = 0; x < kColumns; ++x) {
    EXPECT_EQ(picture.At(x, 150), kWaveColor);
  }
}

TEST(WavePicture, NothingOutsideTheAreaIsPainted) {
  Painted picture({50, 40}, 0xFF123456);
  const AudioClip clip = NoiseClip(16, 2, 1000, 255, 1);
  PaintPicture(picture.AsRaster(), &clip, {30, 20}, 0, 1000);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 50; ++x) {
      EXPECT_EQ(picture.At(x, y) == 0xFF123456, x >= 30 || y >= 20);
    }
  }
}

TEST(WavePicture, PensAreAsStated) {
  const PaintArea area{600, 200};
  EXPECT_EQ(PenOf(Layer::Grid, area, false), (Pen{0xFF969696, 1, PenStyle::Solid, 1}));
  EXPECT_EQ(PenOf(Layer::Centre, area, false), (Pen{0xFF800040, 1, PenStyle::Solid, 1}));
  EXPECT_EQ(PenOf(Layer::Time, area, false), (Pen{0xFF464646, 1, PenStyle::Dot, 1}));
  EXPECT_EQ(PenOf(Layer::Wave, area, false), (Pen{0xFF0000FF, 1, PenStyle::Dash, 1}));
}

TEST(WavePicture, PensGrowWithTheScaleButForDenseColumns) {
  EXPECT_EQ(PenOf(Layer::Grid, {600, 200, 1.5}, false).thickness, 1);
  EXPECT_EQ(PenOf(Layer::Grid, {600, 200, 2.0}, false).thickness, 2);
  EXPECT_EQ(PenOf(Layer::Wave, {600, 200, 2.0}, false).thickness, 2);
  EXPECT_EQ(PenOf(Layer::Wave, {600, 200, 2.0}, true), (Pen{kWaveColor, 1, PenStyle::Dash, 2}));
}

TEST(Cursor, StripIsThreePixelsAroundTheCursor) {
  const PaintArea area{600, 175};
  EXPECT_EQ(CursorStrip(area, 100), (PixelRect{99, 0, 3, 175}));
  EXPECT_EQ(CursorStrip(area, 0), (PixelRect{0, 0, 2, 175}));
  EXPECT_EQ(CursorStrip(area, 599), (PixelRect{598, 0, 2, 175}));
  EXPECT_EQ(CursorStrip(area, 600), (PixelRect{599, 0, 1, 175}));
  EXPECT_TRUE(CursorStrip(area, 601).Empty());
  EXPECT_TRUE(CursorStrip(area, -2).Empty());
  EXPECT_TRUE(CursorStrip(area, std::int64_t{1} << 40).Empty());
  EXPECT_TRUE(CursorStrip({0, 0}, 0).Empty());
}

TEST(Cursor, StripGrowsWithTheScale) {
  EXPECT_EQ(CursorStrip({1200, 350, 2.0}, 100), (PixelRect{97, 0, 6, 350}));
  EXPECT_EQ(CursorStrip({900, 260, 1.5}, 100), (PixelRect{98, 0, 5, 260}));
}

TEST(Cursor, IsMagentaOnWhiteAndGreenOnBlack) {
  Painted picture({3, 1}, 0xFFFFFFFF);
  picture.pixels[1] = 0xFF000000;
  LayCursor(picture.AsRaster(), {0, 0, 3, 1});
  EXPECT_EQ(picture.pixels, (std::vector<Rgb>{0xFFFF00FF, 0xFF00FF00, 0xFFFF00FF}));
}

TEST(Cursor, LaidTwiceRestoresThePicture) {
  Painted picture({64, 64});
  std::minstd_rand random(5);
  for (Rgb& pixel : picture.pixels) {
    pixel = static_cast<Rgb>(random());
  }
  const std::vector<Rgb> before = picture.pixels;
  const PixelRect strip = CursorStrip(picture.area, 20);
  LayCursor(picture.AsRaster(), strip);
  EXPECT_NE(picture.pixels, before);
  EXPECT_EQ(picture.At(18, 5), before[5 * 64 + 18]);
  LayCursor(picture.AsRaster(), strip);
  EXPECT_EQ(picture.pixels, before);
}

TEST(Cursor, StripsOutsideTheRasterAreCutOff) {
  Painted picture({4, 4}, 0xFFFFFFFF);
  LayCursor(picture.AsRaster(), {3, -5, 10, 100});
  EXPECT_EQ(std::count(picture.pixels.begin(), picture.pixels.end(), kCursorColor), 4);
  LayCursor({picture.pixels, 4, 100, 4}, {0, 0, 4, 100});
  EXPECT_EQ(picture.At(3, 3), 0xFFFFFFFF);
}

}  // namespace
}  // namespace tembrel
