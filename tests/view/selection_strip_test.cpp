#include <array>
#include <gtest/gtest.h>

#include "view/SelectionStrip.h"
#include "view/WavePicture.h"

namespace tembrel {
namespace {

using Pixels = std::array<Rgb, 12>;

Raster RasterOf(Pixels& pixels) {
  return {pixels, 4, 3, 4};
}

TEST(SelectionStrip, IsFullHeightInDevicePixels) {
  EXPECT_EQ(StripOf({500, 175, 1.0}, {100, 200}), (PixelRect{100, 0, 100, 175}));
  EXPECT_EQ(StripOf({1000, 350, 2.0}, {100, 200}), (PixelRect{200, 0, 200, 350}));
  EXPECT_EQ(StripOf({750, 262, 1.5}, {101, 102}), (PixelRect{152, 0, 1, 262}));
}

TEST(SelectionStrip, NeighbouringStripsNeitherOverlapNorLeaveAGap) {
  const PaintArea area{750, 262, 1.5};
  for (int x = 0; x < 499; ++x) {
    const PixelRect left = StripOf(area, {x, x + 1});
    EXPECT_EQ(left.x + left.width, StripOf(area, {x + 1, x + 2}).x);
  }
}

TEST(SelectionStrip, NoColumnsGiveNoPixels) {
  EXPECT_TRUE(StripOf({500, 175, 1.0}, {}).Empty());
  EXPECT_TRUE(StripOf({500, 175, 1.0}, {600, 700}).Empty());
}

TEST(SelectionStrip, InvertsItsPixelsOnly) {
  Pixels pixels;
  pixels.fill(0xFF0000FF);
  InvertStrip(RasterOf(pixels), {1, 0, 2, 3});
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    EXPECT_EQ(pixels.at(i), i % 4 == 1 || i % 4 == 2 ? 0xFFFFFF00 : 0xFF0000FF) << i;
  }
}

TEST(SelectionStrip, InvertedTwiceThePictureIsAsItWas) {
  Pixels pixels;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    pixels.at(i) = 0xFF000000 | static_cast<Rgb>(i * 1'398'101);
  }
  const Pixels before = pixels;
  InvertStrip(RasterOf(pixels), {-5, -5, 100, 100});
  EXPECT_NE(pixels, before);
  InvertStrip(RasterOf(pixels), {-5, -5, 100, 100});
  EXPECT_EQ(pixels, before);
}

TEST(SelectionStrip, TheCursorLaidOverItVanishesWithoutATraceToo) {
  Pixels pixels;
  pixels.fill(kPaperColor);
  const Pixels before = pixels;
  InvertStrip(RasterOf(pixels), {0, 0, 2, 3});
  LayCursor(RasterOf(pixels), {1, 0, 1, 3});
  InvertStrip(RasterOf(pixels), {0, 0, 2, 3});
  LayCursor(RasterOf(pixels), {1, 0, 1, 3});
  EXPECT_EQ(pixels, before);
}

TEST(SelectionStrip, ARasterSmallerThanItSaysIsNotOverrun) {
  Pixels pixels{};
  Raster raster = RasterOf(pixels);
  raster.pixels = raster.pixels.first(6);
  InvertStrip(raster, {0, 0, 4, 3});
  EXPECT_EQ(pixels.at(5), 0x00FFFFFFU);
  EXPECT_EQ(pixels.at(6), 0U);
}

}  // namespace
}  // namespace tembrel
