// Blocks of memory with known bytes, and their bytes again.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "platform/MemoryBlock.h"
#include "tests/support/WaveBytes.h"

namespace tembrel::test {

inline MemoryBlock BlockOf(std::span<const std::byte> bytes) {
  MemoryBlock block = std::move(MemoryBlock::Allocate(bytes.size()).value());
  std::ranges::copy(bytes, block.Data());
  return block;
}

inline Bytes BytesOfBlock(const MemoryBlock& block, std::uint32_t size) {
  const auto bytes = block.Bytes().first(size);
  return {bytes.begin(), bytes.end()};
}

}  // namespace tembrel::test
