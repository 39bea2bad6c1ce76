#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>

#include "audio/Conversion.h"
#include "audio/Samples.h"

namespace tembrel {

namespace {

// A block of interleaved frames as the loops below see it.
struct Shape {
  std::uint64_t frames = 0;  // of the result that is made by steps or means; the rest is copied
  std::uint64_t factor = 0;
  std::uint64_t channels = 0;
};

// Straight lines of `factor` samples from each frame to the next. The step is truncated, so a line may end
// short of the next frame's value.
void Stretch16(const std::byte* from, std::byte* to, const Shape& shape) {
  for (std::uint64_t frame = 0; frame < shape.frames; ++frame) {
    for (std::uint64_t channel = 0; channel < shape.channels; ++channel) {
      const std::uint64_t index = frame * shape.channels + channel;
      const std::int64_t start = Sample16(from, index);
      const std::int64_t step =
          (Sample16(from, index + shape.channels) - start) / static_cast<std::int64_t>(shape.factor);
      std::int64_t value = start;
      for (std::uint64_t i = 0; i < shape.factor; ++i) {
        StoreSample16(to, (frame * shape.factor + i) * shape.channels + channel, value);
        value += step;
      }
    }
  }
}

void Stretch8(const std::byte* from, std::byte* to, const Shape& shape) {
  for (std::uint64_t frame = 0; frame < shape.frames; ++frame) {
    for (std::uint64_t channel = 0; channel < shape.channels; ++channel) {
      const std::uint64_t index = frame * shape.channels + channel;
      const std::int64_t start = Sample8(from, index);
      const std::int64_t step =
          (Sample8(from, index + shape.channels) - start) / static_cast<std::int64_t>(shape.factor);
      std::int64_t value = start;
      for (std::uint64_t i = 0; i < shape.factor; ++i) {
        StoreSample8(to, (frame * shape.factor + i) * shape.channels + channel, value);
        value += step;
      }
    }
  }
}

// Every channel's mean goes into the first sample of its frame, so the last channel's stays there; the other
// samples of the frame are not this step's to write, and are silent.
void Shrink16(const std::byte* from, std::byte* to, const Shape& shape) {
  for (std::uint64_t frame = 0; frame < shape.frames; ++frame) {
    const std::uint64_t lastChannel = shape.channels - 1;
    std::int64_t sum = 0;
    for (std::uint64_t i = 0; i < shape.factor; ++i) {
      sum += Sample16(from, (frame * shape.factor + i) * shape.channels + lastChannel);
    }
    std::fill_n(to + 2 * frame * shape.channels, 2 * shape.channels, std::byte{0});
    StoreSample16(to, frame * shape.channels, sum / static_cast<std::int64_t>(shape.factor));
  }
}

void Shrink8(const std::byte* from, std::byte* to, const Shape& shape) {
  for (std::uint64_t frame = 0; frame < shape.frames; ++frame) {
    for (std::uint64_t channel = 0; channel < shape.channels; ++channel) {
      std::int64_t sum = 0;
      for (std::uint64_t i = 0; i < shape.factor; ++i) {
        sum += Sample8(from, (frame * shape.factor + i) * shape.channels + channel) - kSilence8;
      }
      StoreSample8(to, frame * shape.channels + channel,
                   sum / static_cast<std::int64_t>(shape.factor) + kSilence8);
    }
  }
}

}  // namespace

std::optional<MemoryBlock> ConvertRate(MemoryBlock data, std::uint32_t fromRate, std::uint32_t toRate,
                                       std::uint32_t bytesPerSample, std::uint32_t channels,
                                       std::uint32_t& size) {
  if (fromRate == toRate) {
    return data;
  }
  if (fromRate == 0 || toRate == 0 || channels == 0 || (bytesPerSample != 1 && bytesPerSample != 2)) {
    return std::nullopt;
  }
  const bool stretches = fromRate < toRate;
  const std::uint64_t frameSize = std::uint64_t{bytesPerSample} * channels;
  const std::uint64_t frames = size / frameSize;
  Shape shape;
  shape.channels = channels;
  shape.factor = stretches ? toRate / fromRate : fromRate / toRate;
  const std::uint64_t newFrames = stretches ? frames * shape.factor : frames / shape.factor;
  if (newFrames > std::numeric_limits<std::uint32_t>::max() / frameSize) {
    return std::nullopt;
  }
  std::optional<MemoryBlock> result = MemoryBlock::Allocate(static_cast<std::size_t>(newFrames * frameSize));
  if (!result) {
    return std::nullopt;
  }
  if (newFrames > 0) {
    const std::byte* const from = data.Data();
    std::byte* const to = result->Data();
    shape.frames = (stretches ? frames : newFrames) - 1;
    if (stretches) {
      (bytesPerSample == 2 ? Stretch16 : Stretch8)(from, to, shape);
    } else {
      (bytesPerSample == 2 ? Shrink16 : Shrink8)(from, to, shape);
    }
    // The last frame has no successor and its group of frames may be cut short: it is copied as it is.
    const std::uint64_t lastFrom = stretches ? shape.frames : shape.frames * shape.factor;
    for (std::uint64_t frame = stretches ? shape.frames * shape.factor : shape.frames; frame < newFrames;
         ++frame) {
      std::memcpy(to + frame * frameSize, from + lastFrom * frameSize, static_cast<std::size_t>(frameSize));
    }
  }
  size = static_cast<std::uint32_t>(newFrames * frameSize);
  return result;
}

}  // namespace tembrel
