#include "view/GridLines.h"

#include <algorithm>

#include "view/LevelRows.h"
#include "view/TimeStep.h"

namespace tembrel {

namespace {

class GridBuilder {
 public:
  explicit GridBuilder(const PaintArea& paintArea) : area(paintArea) {}

  void AddBand(std::int64_t top, std::int64_t bottom) {
    bottom = std::min<std::int64_t>(bottom, area.height - 1);
    if (top <= bottom) {
      Add(Layer::Band, 0, top, area.width - 1, bottom);
    }
  }

  void AddLevels(const LevelRows& rows, int channel) {
    for (int level = 0; level < kLevelLines; ++level) {
      const std::int64_t y = rows.RowOf(channel, level, kGridOffset);
      if (y < area.height) {
        Add(level == kCentreLevel ? Layer::Centre : Layer::Grid, 0, y, area.width - 1, y);
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
  const LevelRows rows(area, stereo);
  if (stereo) {
    grid.AddBand(rows.RowOf(0, kLevelLines - 1, kGridOffset), rows.RowOf(1, 0, kGridOffset));
  }
  for (int channel = 0; channel < rows.Channels(); ++channel) {
    grid.AddLevels(rows, channel);
  }
  const TimeView view{rate, first, framesOnScreen, area.width, area.LogicalWidth()};
  for (const TimeMark& mark : MarksOf(view).marks) {
    grid.AddTime(mark.x);
  }
  return grid.Take();
}

}  // namespace tembrel
