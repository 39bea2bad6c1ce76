// The labels of the amplitude scale beside the waveform view: 1.0 at the top, 0.0 in the middle, -1.0 at the
// bottom, once a channel.
#pragma once

#include <string>
#include <vector>

#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

struct AmplitudeLabel {
  PixelRect box;  // device pixels; the text is right-aligned in it, with its bottom on the level line
  std::string text;

  bool operator==(const AmplitudeLabel&) const = default;
};

// The labels from top to bottom; `area` is the scale's, as high as the view. Where the level lines are under
// 13 logical pixels apart, only the first, the middle and the last of each channel.
std::vector<AmplitudeLabel> AmplitudeLabels(const PaintArea& area, bool stereo);

// What can be read of `labels` when the digits are `textHeight` device pixels high: a text that the area's
// top would cut is moved down into it, box and all, and from top to bottom a text that would touch the one
// above it or does not fit into the area is left out.
std::vector<AmplitudeLabel> ReadableLabels(std::vector<AmplitudeLabel> labels, const PaintArea& area,
                                           int textHeight);

}  // namespace tembrel
