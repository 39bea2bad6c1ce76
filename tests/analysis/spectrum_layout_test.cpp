// Where the parts of the spectrum window stand.
#include <gtest/gtest.h>

#include "analysis/SpectrumLayout.h"

namespace tembrel {
namespace {

int Bottom(const PixelRect& rect) {
  return rect.y + rect.height;
}

TEST(SpectrumLayout, StacksReadoutDisplayAxisAndScrollBar) {
  const SpectrumLayout layout = LayOutSpectrum(624, 310);
  EXPECT_EQ(layout.readout, (PixelRect{0, 0, 624, 28}));
  EXPECT_EQ(layout.display, (PixelRect{0, 28, 624, 310 - 28 - 15 - 17}));
  EXPECT_EQ(layout.axis, (PixelRect{1, 278, 622, 17}));
  EXPECT_EQ(kSpectrumBorder, 1);
  EXPECT_EQ(layout.scrollBar, (PixelRect{0, 293, 573, 17}));
  EXPECT_EQ(layout.buttons[0], (PixelRect{573, 293, 17, 17}));
  EXPECT_EQ(layout.buttons[1], (PixelRect{590, 293, 17, 17}));
  EXPECT_EQ(layout.buttons[2], (PixelRect{607, 293, 17, 17}));
}

TEST(SpectrumLayout, LeavesNoGapAtAnySize) {
  for (int width = 60; width < 2000; width += 97) {
    for (int height = 60; height < 1200; height += 61) {
      const SpectrumLayout layout = LayOutSpectrum(width, height);
      ASSERT_EQ(layout.display.y, 28);
      ASSERT_EQ(layout.axis.y, Bottom(layout.display));
      ASSERT_EQ(Bottom(layout.axis), height - 15);
      ASSERT_EQ(Bottom(layout.scrollBar), height);
      ASSERT_EQ(layout.scrollBar.x + layout.scrollBar.width, layout.buttons[0].x);
      ASSERT_EQ(layout.buttons[2].x + layout.buttons[2].width, width);
    }
  }
}

TEST(SpectrumLayout, OfATinyWindowHasNoNegativeSizes) {
  for (const int size : {0, 1, 20, 50}) {
    const SpectrumLayout layout = LayOutSpectrum(size, size);
    EXPECT_EQ(layout.display.height, 0);
    EXPECT_GE(layout.scrollBar.width, 0);
  }
}

}  // namespace
}  // namespace tembrel
