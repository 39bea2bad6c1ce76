// What the rulers and the frequency axis share: their ticks and unit, where a tick's label stands, which
// labels can be read, and the ticks' pen.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kTickColor = 0xFF464646;  // 70, 70, 70, dotted

// Device pixels.
struct AxisTick {
  Line line;
  PixelRect box;      // the label is centred in it from left to right, and may stick out of it
  std::string label;  // empty: none is drawn

  bool operator==(const AxisTick&) const = default;
};

struct AxisMarks {
  std::string_view unit;
  PixelRect unitBox;  // the unit is centred in it
  std::vector<AxisTick> ticks;
};

// How wide a text will be painted, in device pixels.
using TextWidth = std::function<int(std::string_view)>;

// The box in which a tick's label is centred, of one that is itself centred on the tick. Where that sticks
// out of an area `areaWidth` wide, its edge is moved inwards by a third of the box, which moves the label.
PixelRect LabelBox(const PixelRect& centredBox, int areaWidth);

// Empties, from left to right, every label that the area's edge would cut or that would touch the unit or the
// label left of it. The ticks stay.
void LeaveOutUnreadableLabels(AxisMarks& axis, const PaintArea& area, const TextWidth& widthOf);

Pen TickPen(const PaintArea& area);

}  // namespace tembrel
