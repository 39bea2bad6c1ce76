#include "device/PlayClock.h"

#include <algorithm>
#include <limits>

namespace tembrel {

std::int32_t MillisecondsOfFrame(std::int64_t frame, std::uint32_t rate) {
  if (rate == 0) {
    return 0;
  }
  constexpr double kLargest = std::numeric_limits<std::int32_t>::max();
  const double milliseconds = static_cast<double>(frame) * 1000.0 / rate;
  return static_cast<std::int32_t>(std::clamp(milliseconds, -kLargest, kLargest));
}

std::int64_t PlayedFrame(std::uint32_t elapsed, std::int32_t startMs, std::uint32_t rate) {
  // In double: a little above a thousandth, so that whole seconds give whole frames. The product of the first
  // two is exact in the wider type.
  constexpr long double kThousandth = 0.001;
  const std::uint32_t position = elapsed + static_cast<std::uint32_t>(startMs);
  return static_cast<std::int64_t>(static_cast<long double>(position) * rate * kThousandth);
}

bool PlaybackIsOver(std::uint32_t elapsed, std::int32_t startMs, std::int32_t endMs) {
  return std::int64_t{elapsed} >= std::int64_t{endMs} - startMs;
}

}  // namespace tembrel
