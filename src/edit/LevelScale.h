// Stored samples multiplied by a gain, as Amplify and the fades do it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tembrel {

// A new byte for every byte.
using ByteTable = std::array<std::byte, 256>;

// How far an 8-bit sample is from silence, upward when it lies below: bytes up to 127 are counted from 127,
// the others from 128, so both are silent.
constexpr int Distance8(int byte) {
  return byte <= 127 ? 127 - byte : 128 - byte;
}

// Every byte's distance times the gain, the product held in single precision. What passes full scale wraps.
ByteTable ScaleTable8(float gain);

void MapBytes(std::span<std::byte> bytes, const ByteTable& table);

// The low 16 bits of gain × sample, truncated toward zero, for a gain of at most 65536.
void Scale16(std::span<std::byte> samples, float gain);

// The largest distance from silence in the samples, 0 for none.
int LargestMagnitude8(std::span<const std::byte> bytes);
int LargestMagnitude16(std::span<const std::byte> samples);

// The gain lowered as far as needed that a sample of this magnitude reaches `fullScale` at most; `reduced` is
// what it is lowered to when it passes: 126 in 8 bits.
float GainWithin(float gain, int magnitude, int fullScale, int reduced);

}  // namespace tembrel
