// From a sample's level to a pixel row: the vertical scale of the waveform in its four layouts.
#pragma once

#include <algorithm>
#include <cstdint>

#include "picture/Picture.h"

namespace tembrel {

// Rows grow downwards, so the louder a positive sample the smaller its row. All quotients are truncated
// toward zero.
class Amplitude {
 public:
  // `stereo`: the area holds two channels; `channel` 0 is the upper one. Areas too low for the stereo layout
  // put every sample on the centre row.
  Amplitude(const PaintArea& area, bool eightBits, bool stereo, int channel)
      : scale(stereo ? std::max<std::int64_t>((area.height - std::int64_t{area.Scaled(12)}) * 10 / 11 / 4, 0)
                     : std::int64_t{area.height} * 10 / 11 / 2),
        centre(stereo ? std::int64_t{area.height} * (channel == 0 ? 1 : 3) / 4 : area.height / 2),
        isEightBits(eightBits) {}

  // The row of a one-byte sample 0..255 (127 and 128 both lie on the centre) or a 16-bit one -32768..32767.
  int RowOf(int sample) const {
    if (isEightBits) {
      const std::int64_t level = (sample >= 128 ? 128 : 127) - sample;
      return static_cast<int>(scale * level / 128 + centre);
    }
    return static_cast<int>(scale * -std::int64_t{sample} / 32767 + centre);
  }

 private:
  std::int64_t scale;
  std::int64_t centre;
  bool isEightBits;
};

}  // namespace tembrel
