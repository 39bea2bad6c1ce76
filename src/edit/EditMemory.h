// Where editing gets the memory for sound from, and how large a clip may grow. Tests give one that fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "audio/WaveWriter.h"
#include "platform/MemoryBlock.h"

namespace tembrel {

struct EditMemory {
  std::function<std::optional<MemoryBlock>(std::size_t size)> allocate = MemoryBlock::Allocate;
  std::function<bool(MemoryBlock& block, std::size_t newSize)> resize =
      [](MemoryBlock& block, std::size_t newSize) { return block.Resize(newSize); };
  std::uint64_t largestClip = kMostWaveBytes;  // bytes
  // Bytes of intermediate results that an effect may keep to save itself from computing them again.
  std::uint64_t largestStore = std::uint64_t{40} << 20U;
};

}  // namespace tembrel
