#include "picture/AxisLabel.h"

#include <algorithm>
#include <cmath>

namespace tembrel {

namespace {

constexpr int kLabelGap = 6;  // logical pixels between two texts, about a digit's width

// Where a text begins that is centred in this box.
int TextStart(const PixelRect& box, int textWidth) {
  return box.x + (box.width - textWidth) / 2;
}

}  // namespace

PixelRect LabelBox(const PixelRect& centredBox, int areaWidth) {
  PixelRect box = centredBox;
  const int third = box.width / 3;
  const bool sticksOutRight = box.x + box.width > areaWidth;
  if (box.x < 0) {
    box.x += third;
    box.width -= third;
  }
  if (sticksOutRight) {
    box.width -= third;
  }
  return box;
}

void LeaveOutUnreadableLabels(AxisMarks& axis, const PaintArea& area, const TextWidth& widthOf) {
  const int unitWidth = widthOf(axis.unit);
  int free = TextStart(axis.unitBox, unitWidth) + unitWidth + area.Scaled(kLabelGap);
  for (AxisTick& tick : axis.ticks) {
    const int width = widthOf(tick.label);
    const int start = TextStart(tick.box, width);
    if (start < free || start + width > area.width) {
      tick.label.clear();
    } else {
      free = start + width + area.Scaled(kLabelGap);
    }
  }
}

Pen TickPen(const PaintArea& area) {
  const int thickness = std::max(1, static_cast<int>(std::floor(area.Scale())));
  return {kTickColor, thickness, PenStyle::Dot, thickness};
}

}  // namespace tembrel
