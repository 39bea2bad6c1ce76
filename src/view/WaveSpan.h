// Which part of a clip a view shows, how its samples are stored, and which pixel column each frame falls
// into. What the joined and the column form of the waveform both start from.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "audio/AudioClip.h"
#include "picture/Picture.h"

namespace tembrel {

// Frames are counted from the first one shown. All frames lie inside `bytes`.
struct WaveSpan {
  std::span<const std::byte> bytes;
  std::int64_t frames = 0;  // at least 1
  std::int64_t stride = 0;  // bytes from frame to frame
  // Bytes of one sample: 1 is unsigned, of more the top two are taken as signed.
  std::int64_t sampleBytes = 0;
  int channels = 1;  // drawn: 1 or 2
  // Pixel columns the frames take; 0 when they share the first one with what follows.
  std::int64_t columns = 0;
  std::int64_t step = 1;  // frames from one examined frame to the next
  bool dense = false;     // one vertical line a column instead of joined samples

  std::int64_t ColumnOf(std::int64_t frame) const { return frame * columns / frames; }

  // The first frame of a column; `frames` for the one after the last.
  std::int64_t FirstFrameOf(std::int64_t column) const {
    if (columns == 0) {
      return column <= 0 ? 0 : frames;
    }
    return (column * frames + columns - 1) / columns;
  }

  std::int64_t ColumnCount() const { return std::max<std::int64_t>(columns, 1); }

  // 0..255 for one-byte samples, otherwise -32768..32767.
  int SampleAt(std::int64_t frame, int channel) const {
    const std::byte* top = bytes.data() + frame * stride + (channel + 1) * sampleBytes - 1;
    if (sampleBytes == 1) {
      return std::to_integer<int>(*top);
    }
    const auto bits = static_cast<std::uint16_t>(std::to_integer<unsigned>(*top) << 8U |
                                                 std::to_integer<unsigned>(*(top - 1)));
    return static_cast<std::int16_t>(bits);
  }
};

// The part of the clip in [first, first + framesOnScreen) on an area of this width; nothing where they do not
// meet.
std::optional<WaveSpan> WaveSpanOf(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                                   std::int64_t framesOnScreen);

}  // namespace tembrel
