#include "analysis/SpectrumAxis.h"

#include <algorithm>

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

PixelRect BoxAround(int x, const PaintArea& area) {
  const int half = area.Scaled(kHalfBox);
  const int top = area.Scaled(kTextTop);
  return LabelBox({x - half, top, 2 * half, std::max(area.height - top, 0)}, area.width);
}

}  // namespace

AxisMarks AxisOf(const PaintArea& area, std::uint32_t rate, const SpectrumView& view) {
  const int top = area.Scaled(kTextTop);
  AxisMarks axis;
  axis.unit = "Hz";
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

}  // namespace tembrel
