#include "edit/SampleFloat.h"

#include <algorithm>
#include <bit>

#include "audio/Samples.h"
#include "edit/SampleLoads.h"
#include "platform/Prefetch.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr float kSteps16 = 32767.0F;
constexpr float kPerStep8 = 0.0078125F;
constexpr float kSteps8 = 128.0F;

// True when `count` samples of the channel lie within the stored ones and the floats.
bool Fits(std::uint32_t channel, std::uint64_t storedSamples, std::uint64_t floats, std::int64_t count) {
  if (count <= 0 || channel > kRightChannel || static_cast<std::uint64_t>(count) > floats) {
    return false;
  }
  const std::uint64_t first = channel == kRightChannel ? 1 : 0;
  const std::uint64_t step = channel == kMonoChannel ? 1 : 2;
  return first + static_cast<std::uint64_t>(count - 1) * step < storedSamples;
}

// As the processor converts: what does not fit 32 bits becomes the lowest number, whose low bits are 0.
template <typename Real>
std::int32_t Truncated(Real value) {
  constexpr Real kLimit = 2147483648.0;
  return value > -kLimit && value < kLimit ? static_cast<std::int32_t>(value) : INT32_MIN;
}

// Extended precision: a value just below zero stays below the centre, where single precision would round up.
// Double precision is as good for all but the smallest.
std::int32_t TruncatedAboveCentre(float value) {
  constexpr float kSmall = 0x1p-20F;
  if (value < 0 && value > -kSmall) {
    return Truncated(static_cast<long double>(value) + kSilence8);
  }
  return Truncated(static_cast<double>(value) + kSilence8);
}

TEMBREL_WIDE_LOOPS
void MonoToFloat(const std::byte* samples, float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    buffer[i] = FloatOf16(LoadSample(samples + 2 * i));
  }
}

TEMBREL_WIDE_LOOPS
void LeftToFloat(const std::byte* frames, float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    buffer[i] = FloatOf16(LeftOf(LoadFrame(frames + 4 * i)));
  }
}

TEMBREL_WIDE_LOOPS
void RightToFloat(const std::byte* frames, float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    buffer[i] = FloatOf16(RightOf(LoadFrame(frames + 4 * i)));
  }
}

TEMBREL_WIDE_LOOPS
void ScaleTo16(float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    buffer[i] *= kSteps16;
  }
}

TEMBREL_WIDE_LOOPS
void MonoFromFloat(std::byte* samples, const float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    StoreSample(samples + 2 * i, Truncated(buffer[i]));
  }
}

TEMBREL_WIDE_LOOPS
void LeftFromFloat(std::byte* frames, const float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    StoreFrame(frames + 4 * i, WithLeft(LoadFrame(frames + 4 * i), Truncated(buffer[i])));
  }
}

TEMBREL_WIDE_LOOPS
void RightFromFloat(std::byte* frames, const float* buffer, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    StoreFrame(frames + 4 * i, WithRight(LoadFrame(frames + 4 * i), Truncated(buffer[i])));
  }
}

// Floats without their sign bit are in the order of their bits, and whole numbers are compared several at a
// time.
TEMBREL_WIDE_LOOPS
float PeakOf(const float* values, std::size_t count) {
  std::int32_t peak = 0;
  for (std::size_t i = 0; i < count; ++i) {
    peak = std::max(peak, std::bit_cast<std::int32_t>(values[i]) & INT32_MAX);
  }
  return std::bit_cast<float>(peak);
}

TEMBREL_WIDE_LOOPS
void DivideAll(float* values, std::size_t count, float divisor) {
  for (std::size_t i = 0; i < count; ++i) {
    values[i] /= divisor;
  }
}

// Converts `count` samples that stand `step` bytes apart.
template <void (*Convert)(const std::byte*, float*, std::size_t)>
void ToFloatByStretches(std::span<const std::byte> samples, float* buffer, std::size_t count,
                        std::size_t step) {
  const std::size_t stretch = kStretch / step;
  for (std::size_t at = 0; at < count; at += stretch) {
    const std::span<const std::byte> next = samples.subspan(std::min((at + stretch) * step, samples.size()));
    PrefetchForReading(next.first(std::min(kStretch, next.size())));
    Convert(samples.data() + at * step, buffer + at, std::min(stretch, count - at));
  }
}

}  // namespace

void Int16ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  if (!Fits(channel, samples.size() / 2, buffer.size(), count)) {
    return;
  }
  const auto all = static_cast<std::size_t>(count);
  if (channel == kMonoChannel) {
    ToFloatByStretches<MonoToFloat>(samples, buffer.data(), all, 2);
    return;
  }
  // The last left sample may be the last of all: it is not read as part of a frame.
  if (channel == kLeftChannel) {
    ToFloatByStretches<LeftToFloat>(samples, buffer.data(), all - 1, 4);
  } else {
    ToFloatByStretches<RightToFloat>(samples, buffer.data(), all - 1, 4);
  }
  const std::uint64_t last = 2 * (all - 1) + (channel == kRightChannel ? 1 : 0);
  buffer[all - 1] = FloatOf16(Sample16(samples.data(), last));
}

void UInt8ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  if (!Fits(channel, samples.size(), buffer.size(), count)) {
    return;
  }
  const std::uint64_t first = channel == kRightChannel ? 1 : 0;
  const std::uint64_t step = channel == kMonoChannel ? 1 : 2;
  for (std::uint64_t i = 0; i < static_cast<std::uint64_t>(count); ++i) {
    buffer[i] = static_cast<float>(Sample8(samples.data(), first + i * step) - kSilence8) * kPerStep8;
  }
}

void FloatToInt16(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  if (!Fits(channel, samples.size() / 2, buffer.size(), count)) {
    return;
  }
  const auto all = static_cast<std::size_t>(count);
  ScaleTo16(buffer.data(), all);
  if (channel == kMonoChannel) {
    MonoFromFloat(samples.data(), buffer.data(), all);
    return;
  }
  (channel == kLeftChannel ? LeftFromFloat : RightFromFloat)(samples.data(), buffer.data(), all - 1);
  const std::uint64_t last = 2 * (all - 1) + (channel == kRightChannel ? 1 : 0);
  StoreSample16(samples.data(), last, Truncated(buffer[all - 1]));
}

void FloatToUInt8(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  if (!Fits(channel, samples.size(), buffer.size(), count)) {
    return;
  }
  const std::uint64_t first = channel == kRightChannel ? 1 : 0;
  const std::uint64_t step = channel == kMonoChannel ? 1 : 2;
  for (std::uint64_t i = 0; i < static_cast<std::uint64_t>(count); ++i) {
    buffer[i] *= kSteps8;
    StoreSample8(samples.data(), first + i * step, TruncatedAboveCentre(buffer[i]));
  }
}

void SamplesToFloat(const WaveFormat& format, std::span<const std::byte> samples, std::span<float> buffer,
                    std::int64_t count, std::uint32_t channel) {
  (format.wBitsPerSample == 8 ? UInt8ToFloat : Int16ToFloat)(samples, buffer, count, channel);
}

void FloatToSamples(const WaveFormat& format, std::span<std::byte> samples, std::span<float> buffer,
                    std::int64_t count, std::uint32_t channel) {
  (format.wBitsPerSample == 8 ? FloatToUInt8 : FloatToInt16)(samples, buffer, count, channel);
}

float LargestMagnitude(std::span<const float> buffer) {
  return PeakOf(buffer.data(), buffer.size());
}

void DivideIfAboveUnity(std::span<float> buffer, float peak) {
  if (peak > 1.0F) {
    DivideAll(buffer.data(), buffer.size(), peak);
  }
}

void LimitToUnity(std::span<float> buffer) {
  DivideIfAboveUnity(buffer, LargestMagnitude(buffer));
}

}  // namespace tembrel
