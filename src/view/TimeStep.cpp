#include "view/TimeStep.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tembrel {

namespace {

// A step below a second is one over one of these.
constexpr std::array<std::int64_t, 15> kDivisors = {2,    5,    10,   20,    50,    100,   200,   500,
                                                    1000, 2000, 5000, 10000, 20000, 50000, 100000};

// seconds / divisor, one of the two being 1.
struct Fraction {
  std::int64_t seconds = 1;
  std::int64_t divisor = 1;
};

__extension__ using Wide = __int128;

// The same choice as TimeStep(framesOnScreen / rate / divisions), without rounding on the way.
Fraction StepOf(std::int64_t framesOnScreen, std::int64_t rate, std::int64_t divisions) {
  const std::int64_t perDivision = rate * divisions;
  if (framesOnScreen > perDivision) {
    return {framesOnScreen / perDivision, 1};
  }
  const auto* below = std::find_if(kDivisors.begin(), kDivisors.end(), [&](std::int64_t divisor) {
    return perDivision < framesOnScreen * divisor;
  });
  return {1, below == kDivisors.end() ? kDivisors.back() : *below};
}

}  // namespace

double TimeStep(double raw) {
  if (raw > 1.0) {
    return std::trunc(raw);
  }
  for (const std::int64_t divisor : kDivisors) {
    const double step = 1.0 / static_cast<double>(divisor);
    if (step < raw) {
      return step;
    }
  }
  return 1.0 / static_cast<double>(kDivisors.back());
}

TimeMarks MarksOf(const TimeView& view) {
  // Within these every product below but one fits 64 bits.
  constexpr std::int64_t kLimit = std::int64_t{1} << 40;
  TimeMarks result;
  if (view.width <= 0 || view.framesOnScreen <= 0) {
    return result;
  }
  const std::int64_t rate = view.rate == 0 ? kRateWithoutClip : view.rate;
  const std::int64_t shown = std::min(view.framesOnScreen, kLimit);
  const std::int64_t first = std::clamp<std::int64_t>(view.first, 0, kLimit);
  const std::int64_t divisions = std::max(1, view.logicalWidth / kTimeMarkSpacing);
  const Fraction step = StepOf(shown, rate, divisions);
  result.step = static_cast<double>(step.seconds) / static_cast<double>(step.divisor);

  // Distances from the left edge are counted in frames × divisor, which is whole for every mark.
  const std::int64_t stride = step.seconds * rate;
  const std::int64_t span = shown * step.divisor;
  std::int64_t index = first * step.divisor / stride;
  for (std::int64_t at = index * stride - first * step.divisor; at < span; at += stride, ++index) {
    const auto x = static_cast<std::int64_t>(Wide{at} * view.width / span);
    if (x >= 0) {
      const double seconds = static_cast<double>(index * step.seconds) / static_cast<double>(step.divisor);
      result.marks.push_back({static_cast<int>(x), seconds});
    }
  }
  return result;
}

}  // namespace tembrel
