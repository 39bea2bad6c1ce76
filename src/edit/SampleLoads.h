// 16-bit samples and stereo frames as whole machine words: unlike bytes put together one by one, loops over
// these are done several at a time.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tembrel {

static_assert(std::endian::native == std::endian::little, "sound in memory is little-endian");

inline std::int16_t LoadSample(const std::byte* at) {
  std::int16_t sample = 0;
  std::memcpy(&sample, at, sizeof sample);
  return sample;
}

// Stores the low 16 bits.
inline void StoreSample(std::byte* at, std::int32_t value) {
  const auto sample = static_cast<std::uint16_t>(static_cast<std::uint32_t>(value));
  std::memcpy(at, &sample, sizeof sample);
}

// What Int16ToFloat makes of a sample, for all 65,536 of them: a 32767th is 2⁻¹⁵ + 2⁻³⁰ + 2⁻⁴⁵ + ..., the
// first term and the sample make an exact product, and the sum is rounded once.
inline float FloatOf16(std::int32_t sample) {
  const auto value = static_cast<float>(sample);
  return value * 0x1p-15F + value * (0x1p-30F + 0x1p-45F);
}

// A stereo frame: the left sample in the low half, the right one in the high half.
inline std::uint32_t LoadFrame(const std::byte* at) {
  std::uint32_t frame = 0;
  std::memcpy(&frame, at, sizeof frame);
  return frame;
}

inline void StoreFrame(std::byte* at, std::uint32_t frame) {
  std::memcpy(at, &frame, sizeof frame);
}

inline std::int32_t LeftOf(std::uint32_t frame) {
  return static_cast<std::int32_t>(frame << 16U) >> 16;
}
inline std::int32_t RightOf(std::uint32_t frame) {
  return static_cast<std::int32_t>(frame) >> 16;
}

// The frame with the low 16 bits of `value` as its left or right sample.
inline std::uint32_t WithLeft(std::uint32_t frame, std::int32_t value) {
  return (frame & 0xFFFF0000U) | (static_cast<std::uint32_t>(value) & 0xFFFFU);
}
inline std::uint32_t WithRight(std::uint32_t frame, std::int32_t value) {
  return (frame & 0xFFFFU) | static_cast<std::uint32_t>(value) << 16U;
}

}  // namespace tembrel
