// Between stored samples and single-precision floats with full scale at 1.0: what merging and the effects
// compute with. One channel at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "audio/WaveFormat.h"

namespace tembrel {

// Which stored samples are the i-th of a channel. Any other value converts nothing.
inline constexpr std::uint32_t kMonoChannel = 0;   // sample i
inline constexpr std::uint32_t kLeftChannel = 1;   // sample 2i
inline constexpr std::uint32_t kRightChannel = 2;  // sample 2i + 1

// In all of these `samples` begins at the first stored sample of the range, `count` is in samples of the one
// channel, and one that is 0 or less, or that either span is too short for, converts nothing.

// sample × (1 / 32767), rounded to single precision.
void Int16ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel);
// (byte - 128) / 128.
void UInt8ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel);

// Scales the buffer by 32767, leaves it so, and stores the low 16 bits of its values truncated toward zero:
// what is beyond full scale wraps. What no 32-bit number can hold is stored as 0.
void FloatToInt16(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel);
// Scales the buffer by 128, leaves it so, and stores the low 8 bits of value + 128, truncated toward zero.
void FloatToUInt8(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel);

// The above by the format's bits: 8, or 16 for anything else.
void SamplesToFloat(const WaveFormat& format, std::span<const std::byte> samples, std::span<float> buffer,
                    std::int64_t count, std::uint32_t channel);
void FloatToSamples(const WaveFormat& format, std::span<std::byte> samples, std::span<float> buffer,
                    std::int64_t count, std::uint32_t channel);

// Divides all by the largest absolute value if that is above 1.0.
void LimitToUnity(std::span<float> buffer);

// The same in two steps, for what does not come in one buffer. An empty one has no magnitude: 0.
float LargestMagnitude(std::span<const float> buffer);
void DivideIfAboveUnity(std::span<float> buffer, float peak);

}  // namespace tembrel
