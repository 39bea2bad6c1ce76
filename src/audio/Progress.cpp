#include "audio/Progress.h"

namespace tembrel {

Progress PartOf(const Progress& whole, double from, double to) {
  constexpr double kSteps = 1U << 21U;
  if (!whole) {
    return {};
  }
  return [&whole, from, to](std::uint64_t done, std::uint64_t total) {
    const double share = total == 0 ? 1.0 : static_cast<double>(done) / static_cast<double>(total);
    return whole(static_cast<std::uint64_t>((from + share * (to - from)) * kSteps),
                 static_cast<std::uint64_t>(kSteps));
  };
}

Progress FirstHalf(const Progress& whole) {
  return PartOf(whole, 0.0, 0.5);
}

Progress SecondHalf(const Progress& whole) {
  return PartOf(whole, 0.5, 1.0);
}

}  // namespace tembrel
