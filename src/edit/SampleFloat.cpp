#include "edit/SampleFloat.h"

#include <algorithm>
#include <cmath>

#include "audio/Samples.h"

namespace tembrel {

namespace {

// Double precision gives the same floats as extended for all 65,536 samples.
constexpr double kPerStep16 = 1.0 / 32767.0;
constexpr float kSteps16 = 32767.0F;
constexpr float kPerStep8 = 0.0078125F;
constexpr float kSteps8 = 128.0F;
constexpr int kCentre8 = 128;

// Where the samples of a channel lie: the first one and the distance to the next, in stored samples.
struct Stride {
  std::uint64_t first = 0;
  std::uint64_t step = 0;  // 0: convert nothing
};

Stride StrideOf(std::uint32_t channel, std::uint64_t storedSamples, std::uint64_t floats,
                std::int64_t count) {
  if (count <= 0 || channel > kRightChannel || static_cast<std::uint64_t>(count) > floats) {
    return {};
  }
  const Stride stride{channel == kRightChannel ? 1U : 0U, channel == kMonoChannel ? 1U : 2U};
  const std::uint64_t last = stride.first + static_cast<std::uint64_t>(count - 1) * stride.step;
  return last < storedSamples ? stride : Stride{};
}

// As the processor converts: what does not fit 32 bits becomes the lowest number, whose low bits are 0.
template <typename Real>
std::int32_t Truncated(Real value) {
  constexpr Real kLimit = 2147483648.0;
  return value > -kLimit && value < kLimit ? static_cast<std::int32_t>(value) : INT32_MIN;
}

}  // namespace

void Int16ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  const Stride stride = StrideOf(channel, samples.size() / 2, buffer.size(), count);
  for (std::uint64_t i = 0, at = stride.first; stride.step > 0 && i < static_cast<std::uint64_t>(count);
       ++i, at += stride.step) {
    buffer[i] = static_cast<float>(Sample16(samples.data(), at) * kPerStep16);
  }
}

void UInt8ToFloat(std::span<const std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  const Stride stride = StrideOf(channel, samples.size(), buffer.size(), count);
  for (std::uint64_t i = 0, at = stride.first; stride.step > 0 && i < static_cast<std::uint64_t>(count);
       ++i, at += stride.step) {
    buffer[i] = static_cast<float>(Sample8(samples.data(), at) - kCentre8) * kPerStep8;
  }
}

void FloatToInt16(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  const Stride stride = StrideOf(channel, samples.size() / 2, buffer.size(), count);
  for (std::uint64_t i = 0, at = stride.first; stride.step > 0 && i < static_cast<std::uint64_t>(count);
       ++i, at += stride.step) {
    buffer[i] *= kSteps16;
    StoreSample16(samples.data(), at, Truncated(buffer[i]));
  }
}

void FloatToUInt8(std::span<std::byte> samples, std::span<float> buffer, std::int64_t count,
                  std::uint32_t channel) {
  const Stride stride = StrideOf(channel, samples.size(), buffer.size(), count);
  for (std::uint64_t i = 0, at = stride.first; stride.step > 0 && i < static_cast<std::uint64_t>(count);
       ++i, at += stride.step) {
    buffer[i] *= kSteps8;
    // Extended precision: a value just below zero stays below the centre, where single precision would round
    // up.
    StoreSample8(samples.data(), at, Truncated(static_cast<long double>(buffer[i]) + kCentre8));
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

void LimitToUnity(std::span<float> buffer) {
  float peak = 0.0F;
  for (const float value : buffer) {
    peak = std::max(peak, std::fabs(value));
  }
  if (peak > 1.0F) {
    for (float& value : buffer) {
      value /= peak;
    }
  }
}

}  // namespace tembrel
