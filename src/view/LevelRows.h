// Where the eleven level lines of a channel lie: the view's grid and the amplitude scale beside it agree by
// asking here.
#pragma once

#include <cstdint>

#include "view/Picture.h"

namespace tembrel {

inline constexpr int kLevelLines = 11;
inline constexpr int kCentreLevel = 5;

class LevelRows {
 public:
  // Areas too low for the stereo layout give channels of no height.
  LevelRows(const PaintArea& area, bool stereo);

  int Channels() const { return channels; }
  // The height shared out to a channel's eleven lines, device pixels.
  std::int64_t ChannelHeight() const { return channelHeight; }
  // The row of line `level` (0 the topmost, 0..10) of `channel` (0 the upper), device pixels from the area's
  // top. In stereo the lines lie `offset` logical pixels lower than the channels' tops; in mono it is of no
  // account.
  std::int64_t RowOf(int channel, int level, int offset) const;

 private:
  const PaintArea area;
  int channels;
  std::int64_t channelHeight;
};

}  // namespace tembrel
