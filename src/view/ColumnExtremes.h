// The lowest and highest sample of every pixel column: the part of drawing a long sound that looks at its
// samples.
#pragma once

#include <vector>

#include "view/WaveSpan.h"

namespace tembrel {

// Sample values as WaveSpan::SampleAt gives them. A column without an examined frame is empty.
struct Extremes {
  int low = 1;
  int high = 0;

  bool Empty() const { return low > high; }
};

// Element [channel][column]: the extremes of the frames 0, step, 2 × step, ... of the span that fall into the
// column. Columns are shared out to threads when there is much to look at.
std::vector<std::vector<Extremes>> ColumnExtremes(const WaveSpan& span);

}  // namespace tembrel
