#include "analysis/BinMarks.h"

#include <algorithm>
#include <cmath>

namespace tembrel {

namespace {

constexpr int kSpacing = 120;  // logical pixels aimed at between two marks
constexpr int kMostSteps = 10000;

}  // namespace

int BinToPixel(const BinSpan& span, double bin) {
  return static_cast<int>((bin - span.first) * span.width / span.visible);
}

std::vector<BinMark> BinMarks(const BinSpan& span) {
  if (span.width <= 0 || span.visible <= 0) {
    return {};
  }
  const int steps = std::clamp(span.logicalWidth / kSpacing, 1, kMostSteps);
  // In single precision; what is counted in it is not, or the marks would tremble when the view scrolls.
  const double step = static_cast<float>(span.visible) / static_cast<float>(steps);
  const int end = span.first + span.visible;
  std::vector<BinMark> marks;
  double bin = std::trunc(span.first / step) * step;
  while (bin < end) {
    marks.push_back({bin, BinToPixel(span, bin)});
    bin += step;
  }
  return marks;
}

}  // namespace tembrel
