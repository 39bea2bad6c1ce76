#include "picture/AxisLabel.h"

#include <algorithm>
#include <cmath>

namespace tembrel {

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

Pen TickPen(const PaintArea& area) {
  const int thickness = std::max(1, static_cast<int>(std::floor(area.Scale())));
  return {kTickColor, thickness, PenStyle::Dot, thickness};
}

}  // namespace tembrel
