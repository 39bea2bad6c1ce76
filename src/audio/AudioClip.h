// One piece of PCM sound in memory: a format record and one block of interleaved frames. It does not know
// what file it came from, whether it changed, or what is selected.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "audio/WaveFormat.h"
#include "platform/MemoryBlock.h"

namespace tembrel {

// Moving is cheap; a copy is asked for by name. Two clips never share a block.
struct AudioClip {
  WaveFormat format;
  MemoryBlock data;            // interleaved frames, left before right; empty while the clip is empty
  std::uint32_t dataSize = 0;  // bytes of `data` that are sound; never more than data.Size()

  std::span<std::byte> Bytes() { return data.Bytes().first(dataSize); }
  std::span<const std::byte> Bytes() const { return data.Bytes().first(dataSize); }

  // Whole frames in the clip: dataSize / nBlockAlign, 0 when the record has no block alignment.
  std::uint32_t Frames() const { return format.nBlockAlign == 0 ? 0 : dataSize / format.nBlockAlign; }

  // A clip with the same record and a block of its own; null when there is no memory for it.
  std::unique_ptr<AudioClip> Copy() const;
};

// (dataSize × 100 / blockAlign) / rate, unsigned 32-bit with truncation at each step: the product wraps for
// 42,949,673 bytes or more, and that is kept. A zero divisor gives 0.
std::uint32_t DurationInHundredths(std::uint32_t dataSize, std::uint32_t blockAlign, std::uint32_t rate);

// Releases the clip and leaves the pointer null. Returns 0, or 5 when there was nothing to release.
int FreeClip(std::unique_ptr<AudioClip>& clip);

}  // namespace tembrel
