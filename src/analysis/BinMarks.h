// Where the spectrum's vertical grid lines and the ticks of its frequency axis fall.
#pragma once

#include <vector>

namespace tembrel {

// The bins shown and the pixels they are shown on.
struct BinSpan {
  int first = 0;
  int visible = 1;       // bins over the whole width
  int width = 0;         // device pixels
  int logicalWidth = 0;  // the same in logical pixels; decides the spacing
};

struct BinMark {
  double bin = 0;  // may lie between two
  int x = 0;       // device pixels; below 0 for a mark left of the first bin

  bool operator==(const BinMark&) const = default;
};

// One mark every 120 logical pixels' worth of bins (over the whole width in a narrower span), at multiples of
// that step from the one at or before the first bin on. None for a span of no width.
std::vector<BinMark> BinMarks(const BinSpan& span);

// trunc((bin - first) × width / visible).
int BinToPixel(const BinSpan& span, double bin);

}  // namespace tembrel
