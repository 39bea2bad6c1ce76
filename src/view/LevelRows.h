// Where the eleven level lines of a channel lie: the view's grid and the amplitude scale beside it agree by
// asking here.
#pragma once

#include <cstdint>

#include "picture/Picture.h"

namespace tembrel {

inline constexpr int kLevelLines = 11;
inline constexpr int kCentreLevel = 5;
inline constexpr int kGridOffset = 3;  // of the view's lines in stereo, logical pixels

class LevelRows {
 public:
  // Areas too low for the stereo layout give channels of no height.
  LevelRows(const PaintArea& paintArea, bool stereo);

  int Channels() const { return channels; }
  // Device pixels from one line to the next, rounded down.
  std::int64_t Spacing() const { return channelHeight / kLevelLines; }
  // The row of line `level` (0 the topmost, 0..10) of `channel` (0 the upper), device pixels from the area's
  // top. In stereo the lines lie `offset` logical pixels lower than the channels' tops; in mono it is of no
  // account.
  std::int64_t RowOf(int channel, int level, int offset) const;

 private:
  PaintArea area;
  int channels;
  std::int64_t channelHeight;
};

}  // namespace tembrel
