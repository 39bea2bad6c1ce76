// Samples inside a block of bytes, addressed by their index. Sound in memory is little-endian whatever the
// machine is.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tembrel {

// The 8-bit sample that is silence.
inline constexpr int kSilence8 = 128;

// The signed 16-bit sample at `index` (in samples, not bytes) of a block.
inline int Sample16(const std::byte* block, std::uint64_t index) {
  const auto low = std::to_integer<unsigned>(block[2 * index]);
  const auto high = std::to_integer<unsigned>(block[2 * index + 1]);
  return static_cast<std::int16_t>(static_cast<std::uint16_t>(low | high << 8U));
}

// Stores the low 16 bits of `value`.
inline void StoreSample16(std::byte* block, std::uint64_t index, std::int64_t value) {
  block[2 * index] = static_cast<std::byte>(value & 0xFF);
  block[2 * index + 1] = static_cast<std::byte>(value >> 8 & 0xFF);
}

// The unsigned 8-bit sample at `index`: 0 to 255.
inline int Sample8(const std::byte* block, std::uint64_t index) {
  return std::to_integer<int>(block[index]);
}

// Stores the low 8 bits of `value`.
inline void StoreSample8(std::byte* block, std::uint64_t index, std::int64_t value) {
  block[index] = static_cast<std::byte>(value & 0xFF);
}

}  // namespace tembrel
