// How loud recorded sound is.
#pragma once

#include <cstddef>
#include <span>

#include "audio/FormatChoice.h"

namespace tembrel {

struct Levels {
  double left = 0.0;     // largest magnitude, 0.0 to 1.0
  double right = 0.0;    // equal to left in mono
  bool clipped = false;  // a sample has the largest or the smallest value there is
};

// Takes whole frames into account: the levels grow, or stay.
void Measure(std::span<const std::byte> frames, const FormatChoice& format, Levels& levels);

}  // namespace tembrel
