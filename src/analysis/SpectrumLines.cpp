#include "analysis/SpectrumLines.h"

#include <algorithm>
#include <limits>

#include "analysis/BinMarks.h"

namespace tembrel {

namespace {

constexpr int kLevels = 11;
constexpr int kCentreLevel = 5;

int Level(std::int64_t height, int level) {
  return static_cast<int>(level * height / kLevels + height / kLevels / 2);
}

// Bins that differ by less than this share of the largest are equal but for rounding: those of a single
// click.
constexpr double kRoundingShare = 1e-12;

int Truncated(double value) {
  constexpr double kLimit = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

struct PowerRange {
  double lowest = std::numeric_limits<double>::max();
  double highest = 0;
};

PowerRange RangeOf(const SpectrumBins& bins) {
  PowerRange range;
  for (const std::complex<double>& bin : bins) {
    const double power = BinPower(bin);
    range.lowest = std::min(range.lowest, power);
    range.highest = std::max(range.highest, power);
  }
  return range;
}

}  // namespace

std::vector<SpectrumLine> SpectrumGrid(const PaintArea& area, const SpectrumView& view) {
  std::vector<SpectrumLine> lines;
  if (area.width <= 0 || area.height <= 0) {
    return lines;
  }
  for (int level = 0; level < kLevels; ++level) {
    const int y = Level(area.height, level);
    lines.push_back({level == kCentreLevel ? SpectrumLayer::CentreLevel : SpectrumLayer::Level,
                     {0, y, area.width - 1, y}});
  }
  for (const BinMark& mark :
       BinMarks({view.FirstBin(), view.VisibleBins(), area.width, area.LogicalWidth()})) {
    if (mark.x >= 0) {
      lines.push_back({SpectrumLayer::Bin, {mark.x, 0, mark.x, area.height - 1}});
    }
  }
  return lines;
}

std::vector<PlotPoint> TracePoints(const SpectrumBins& bins, const PaintArea& area, const SpectrumView& view,
                                   TraceSide side) {
  const PowerRange powers = RangeOf(bins);
  const double range = powers.highest - powers.lowest;
  const bool flat = range <= powers.highest * kRoundingShare;
  const int middle = area.height / 2;
  const double direction = side == TraceSide::Up ? -1.0 : 1.0;
  std::vector<PlotPoint> points;
  const auto first = static_cast<std::size_t>(view.FirstBin());
  for (std::size_t i = 0; first + i < bins.size(); ++i) {
    const std::int64_t x = std::int64_t{area.width} * static_cast<std::int64_t>(i) * view.Zoom() /
                           static_cast<std::int64_t>(kSpectrumPoints);
    const double away = flat ? 0 : BinPower(bins[first + i]) * middle / range;
    points.push_back({static_cast<int>(std::min<std::int64_t>(x, std::numeric_limits<int>::max())),
                      Truncated(middle + direction * away)});
  }
  return points;
}

}  // namespace tembrel
