// Effects that compute whole channels as floats, and scale a channel down when it passes full scale. What the
// channel's peak is shows only at its end. The last minutes of the sound are kept until then; what comes
// before them is computed twice, part by part: hours need no more memory than minutes.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

#include "edit/ClipEditor.h"
#include "edit/EditStep.h"
#include "edit/EffectRange.h"
#include "platform/MemoryBlock.h"
#include "platform/WorkTeam.h"

namespace tembrel {

// A whole number of blocks for the filters, and one block less than sixteen lanes' fill: the half-overlapping
// blocks between them are one more.
inline constexpr std::int64_t kFramesAPiece = std::int64_t{63} * 2048;
// Frames that are asked for at a time; the last time fewer.
inline constexpr std::int64_t kFramesAtOnce = 4 * kFramesAPiece;

using ChannelFloats = std::array<std::span<float>, kMostChannels>;

// An effect's new sound, in order, and then perhaps in order again.
class FloatSource {
 public:
  virtual ~FloatSource() = default;
  // Fills `out`, a span for every channel, with the frames from `first` on. `frames` are the range's bytes;
  // those before `first` may have been rewritten already.
  virtual void Continue(std::span<const std::byte> frames, std::int64_t first, const ChannelFloats& out,
                        WorkTeam& team) = 0;

 protected:
  FloatSource() = default;
  FloatSource(const FloatSource&) = default;
  FloatSource& operator=(const FloatSource&) = default;
};

// Rewrites the range by the source's sound. Refused when there is no memory.
EditResult RewriteLimited(ClipEditor& editor, const EffectFrames& range, FloatSource& source);

}  // namespace tembrel
