#include "view/RulerMarks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "picture/AxisLabel.h"
#include "view/TimeStep.h"

namespace tembrel {

namespace {

// Logical pixels.
constexpr int kTimeUnitWidth = 30;
constexpr int kSampleUnitWidth = 40;
constexpr int kFreeOfTicks = 50;  // ticks stand right of it
constexpr int kHalfBox = 20;
constexpr int kTickHeight = 4;

class RulerBuilder {
 public:
  RulerBuilder(const PaintArea& rulerArea, std::string_view unit, int unitWidth) : area(rulerArea) {
    tickTop = std::max(area.height - area.Scaled(kTickHeight), 0);
    ruler.unit = unit;
    ruler.unitBox = {0, 0, area.Scaled(unitWidth), tickTop};  // as high as the labels, on one line with them
  }

  void Add(std::int64_t x, std::string label) {
    const bool free = x > area.Scaled(kFreeOfTicks) && x < area.width;
    if (!free || (!ruler.ticks.empty() && ruler.ticks.back().line.x1 == x)) {
      return;
    }
    const int column = static_cast<int>(x);
    ruler.ticks.push_back({{column, tickTop, column, area.height - 1}, BoxAround(column), std::move(label)});
  }

  AxisMarks Take() { return std::move(ruler); }

 private:
  PixelRect BoxAround(int x) const {
    const int half = area.Scaled(kHalfBox);
    return LabelBox({x - half, 0, 2 * half, tickTop}, area.width);
  }

  const PaintArea& area;
  int tickTop;
  AxisMarks ruler;
};

int DecimalsOf(double step) {
  // The smallest step written with as many decimals as its place says.
  constexpr std::array kSmallest{1.0, 0.1, 0.01, 0.0005};
  // The steps are a whole number of one over a whole number; half of the smallest tells them apart.
  constexpr double kTolerance = 0.000005;
  const auto* found = std::find_if(kSmallest.begin(), kSmallest.end(),
                                   [step](double smallest) { return step > smallest - kTolerance; });
  return static_cast<int>(found - kSmallest.begin());
}

__extension__ using Wide = __int128;

}  // namespace

std::string TimeLabel(double seconds, double step) {
  std::array<char, 64> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed,
                                    DecimalsOf(step));
  return {text.data(), result.ptr};
}

std::int64_t SampleStep(std::int64_t raw) {
  constexpr std::int64_t kLargest = 5'000'000;
  std::int64_t step = 1;
  for (std::int64_t decade = 1; decade < kLargest; decade *= 10) {
    for (const std::int64_t digit : {1, 2, 5}) {
      if (digit * decade < raw) {
        step = digit * decade;
      }
    }
  }
  return step;
}

AxisMarks TimeRuler(const PaintArea& area, std::uint32_t rate, std::int64_t first,
                    std::int64_t framesOnScreen) {
  RulerBuilder ruler(area, "sec", kTimeUnitWidth);
  if (area.height > 0) {
    const TimeMarks marks = MarksOf({rate, first, framesOnScreen, area.width, area.LogicalWidth()});
    for (const TimeMark& mark : marks.marks) {
      ruler.Add(mark.x, TimeLabel(mark.seconds, marks.step));
    }
  }
  return ruler.Take();
}

AxisMarks SampleRuler(const PaintArea& area, std::int64_t first, std::int64_t framesOnScreen) {
  constexpr std::int64_t kLimit = std::int64_t{1} << 40;
  RulerBuilder ruler(area, "sample", kSampleUnitWidth);
  if (area.width <= 0 || area.height <= 0 || framesOnScreen <= 0) {
    return ruler.Take();
  }
  const std::int64_t shown = std::min(framesOnScreen, kLimit);
  const std::int64_t left = std::clamp<std::int64_t>(first, 0, kLimit);
  const std::int64_t step = SampleStep(shown / std::max(1, area.LogicalWidth() / kTimeMarkSpacing));
  for (std::int64_t frame = left / step * step; frame < left + shown; frame += step) {
    ruler.Add(static_cast<std::int64_t>(Wide{frame - left} * area.width / shown), std::to_string(frame));
  }
  return ruler.Take();
}

}  // namespace tembrel
