#include "view/PixelMap.h"

#include <algorithm>
#include <cmath>

namespace tembrel {

namespace {

// Truncation that also has an answer for what no 64-bit number can hold.
std::int64_t Truncated(double value) {
  constexpr double kLimit = 4.0e18;
  if (std::isnan(value)) {
    return 0;
  }
  return static_cast<std::int64_t>(std::clamp(value, -kLimit, kLimit));
}

}  // namespace

std::int64_t FrameToPixel(std::int64_t frame, std::int64_t first, std::int64_t framesOnScreen,
                          std::int64_t width) {
  if (framesOnScreen == 0) {
    return 0;
  }
  const double distance = static_cast<double>(frame) - static_cast<double>(first);
  return Truncated(distance * static_cast<double>(width) / static_cast<double>(framesOnScreen));
}

std::int64_t PixelToFrame(double x, std::int64_t first, std::int64_t framesOnScreen, std::int64_t width) {
  if (width == 0) {
    return first;
  }
  return first + Truncated(x * static_cast<double>(framesOnScreen) / static_cast<double>(width));
}

}  // namespace tembrel
