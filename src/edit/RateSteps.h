// Any stretch of what ConvertRate makes of a block, without making the whole.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "audio/WaveFormat.h"

namespace tembrel {

class RateSteps {
 public:
  // For whole frames of `format`, converted to `targetRate`; both rates above 0. `source` outlives this.
  RateSteps(std::span<const std::byte> source, const WaveFormat& format, std::uint32_t targetRate);

  // The result's length in frames.
  std::uint64_t FrameCount() const { return newFrames; }

  // Fills `out` with the result's frames from `first` on, as many as it holds.
  void Convert(std::uint64_t first, std::span<std::byte> out) const;

 private:
  void Stretch(std::uint64_t first, std::uint64_t end, std::byte* out) const;
  void Shrink(std::uint64_t first, std::uint64_t end, std::byte* out) const;

  std::span<const std::byte> from;
  std::uint64_t channels;
  bool is8Bit;
  bool stretches;
  std::uint64_t factor;
  std::uint64_t newFrames;
  std::uint64_t computed;  // frames that are computed; those behind are copies of one frame
  std::uint64_t copied;    // the source frame that they are copies of
};

}  // namespace tembrel
