#include "view/LevelRows.h"

#include <algorithm>

namespace tembrel {

LevelRows::LevelRows(const PaintArea& paintArea, bool stereo)
    : area(paintArea),
      channels(stereo ? 2 : 1),
      channelHeight(stereo ? std::max<std::int64_t>(area.height / 2 - area.Scaled(6), 0) : area.height) {}

std::int64_t LevelRows::RowOf(int channel, int level, int offset) const {
  const std::int64_t row = level * channelHeight / kLevelLines + channelHeight / kLevelLines / 2;
  if (channels == 1) {
    return row;
  }
  return row + (channel == 0 ? 0 : area.height / 2) + area.Scaled(offset);
}

}  // namespace tembrel
