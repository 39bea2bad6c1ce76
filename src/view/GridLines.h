// The view's background: horizontal level lines for one or two channels and the vertical time lines.
#pragma once

#include <cstdint>
#include <vector>

#include "picture/Picture.h"

namespace tembrel {

// The lines in painting order: for stereo the band between the channels; eleven level lines a channel, the
// sixth being the centre; the time lines. `rate` in hertz (0: no clip). What would lie outside a very low
// area is left out.
std::vector<LayerLine> GridLines(const PaintArea& area, bool stereo, std::uint32_t rate, std::int64_t first,
                                 std::int64_t framesOnScreen);

}  // namespace tembrel
