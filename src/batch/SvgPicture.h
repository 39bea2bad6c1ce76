// The view's picture as a scalable drawing, for web pages and print.
#pragma once

#include <span>
#include <string>

#include "picture/Picture.h"

namespace tembrel {

// The text of an SVG file of the area's size: white paper, and the lines in their order with the colours,
// widths and dashes of the view. `denseWave`: the waveform's lines are columns (WaveIsDense).
std::string SvgPicture(std::span<const LayerLine> lines, const PaintArea& area, bool denseWave);

}  // namespace tembrel
