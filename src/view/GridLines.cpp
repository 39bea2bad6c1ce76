#include "view/GridLines.h"

#include <algorithm>

#include "view/TimeStep.h"

namespace tembrel {

namespace {

constexpr std::int64_t kLevelLines = 11;
constexpr std::int64_t kCentreLine = 5;

class GridBuilder {
 public:
  explicit GridBuilder(const PaintArea& paintArea) : area(paintArea) {}

  void AddBand(std::int64_t top, std::int64_t bottom) {
    bottom = std::min<std::int64_t>(bottom, area.height - 1);
    if (top <= bottom) {
      Add(Layer::Band, 0, top, area.width - 1, bottom);
    }
  }

  // The level lines of one channel `height` high; its first line lies half a spacing below `top`.
  void AddLevels(std::int64_t top, std::int64_t height) {
    for (std::int64_t i = 0; i < kLevelLines; ++i) {
      const std::int64_t y = i * height / kLevelLines + height / kLevelLines / 2 + top;
      if (y < area.height) {
        Add(i == kCentreLine ? Layer::Centre : Layer::Grid, 0, y, area.width - 1, y);
      }
    }
  }

  void AddTime(int x) { Add(Layer::Time, x, 0, x, area.height - 1); }

  std::vector<LayerLine> Take() { return std::move(lines); }

 private:
  void Add(Layer layer, std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
    lines.push_back(
        {layer, {static_cast<int>(x1), static_cast<int>(y1), static_cast<int>(x2), static_cast<int>(y2)}});
  }

  const PaintArea& area;
  std::vector<LayerLine> lines;
};

}  // namespace

std::vector<LayerLine> GridLines(const PaintArea& area, bool stereo, std::uint32_t rate, std::int64_t first,
                                 std::int64_t framesOnScreen) {
  if (area.width <= 0 || area.height <= 0) {
    return {};
  }
  GridBuilder grid(area);
  if (stereo) {
    const std::int64_t half = area.height / 2;
    const std::int64_t channel = std::max<std::int64_t>(half - area.Scaled(6), 0);
    const std::int64_t margin = area.Scaled(3);
    const std::int64_t inset = channel / kLevelLines / 2;
    grid.AddBand(channel * 10 / kLevelLines + inset + margin, inset + half + margin);
    grid.AddLevels(margin, channel);
    grid.AddLevels(half + margin, channel);
  } else {
    grid.AddLevels(0, area.height);
  }
  const TimeView view{rate, first, framesOnScreen, area.width, area.LogicalWidth()};
  for (const TimeMark& mark : MarksOf(view).marks) {
    grid.AddTime(mark.x);
  }
  return grid.Take();
}

}  // namespace tembrel
