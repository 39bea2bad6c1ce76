#include "analysis/SpectrumAxis.h"

#include <algorithm>
#include <cmath>

#include "analysis/BinMarks.h"
#include "analysis/NoteBands.h"
#include "analysis/Spectrum.h"

namespace tembrel {

namespace {

// Logical pixels.
constexpr int kUnitWidth = 40;
constexpr int kFreeOfTicks = 60;
constexpr int kHalfBox = 20;
constexpr int kTextTop = 4;
constexpr int kTickEnd = 3;

// A box that sticks out has that edge moved inwards by a third of the box, which moves the label.
PixelRect BoxAround(int x, const PaintArea& area) {
  const int half = area.Scaled(kHalfBox);
  const int top = area.Scaled(kTextTop);
  PixelRect box{x - half, top, 2 * half, std::max(area.height - top, 0)};
  const int third = box.width / 3;
  const bool sticksOutRight = box.x + box.width > area.width;
  if (box.x < 0) {
    box.x += third;
    box.width -= third;
  }
  if (sticksOutRight) {
    box.width -= third;
  }
  return box;
}

}  // namespace

SpectrumAxis AxisOf(const PaintArea& area, std::uint32_t rate, const SpectrumView& view) {
  const int top = area.Scaled(kTextTop);
  SpectrumAxis axis;
  axis.unitBox = {0, top, area.Scaled(kUnitWidth), std::max(area.height - top, 0)};
  for (const BinMark& mark :
       BinMarks({view.FirstBin(), view.VisibleBins(), area.width, area.LogicalWidth()})) {
    if (mark.x > area.Scaled(kFreeOfTicks)) {
      axis.ticks.push_back({{mark.x, 0, mark.x, area.Scaled(kTickEnd)},
                            BoxAround(mark.x, area),
                            WholeNumberText(BinFrequency(rate, mark.bin))});
    }
  }
  return axis;
}

Pen SpectrumTickPen(const PaintArea& area) {
  const int thickness = std::max(1, static_cast<int>(std::floor(area.Scale())));
  return {kSpectrumTickColor, thickness, PenStyle::Dot, thickness};
}

}  // namespace tembrel
