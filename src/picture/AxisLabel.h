// What the rulers and the frequency axis share: where a tick's label stands, and the ticks' pen.
#pragma once

#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kTickColor = 0xFF464646;  // 70, 70, 70, dotted

// The box in which a tick's label is centred, of one that is itself centred on the tick. Where that sticks
// out of an area `areaWidth` wide, its edge is moved inwards by a third of the box, which moves the label.
PixelRect LabelBox(const PixelRect& centredBox, int areaWidth);

Pen TickPen(const PaintArea& area);

}  // namespace tembrel
