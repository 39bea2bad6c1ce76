#include "edit/RateSteps.h"

#include <algorithm>
#include <cstring>

#include "audio/Samples.h"
#include "edit/SampleLoads.h"

namespace tembrel {

namespace {

struct Stored8 {
  static std::int32_t Load(const std::byte* block, std::uint64_t index) { return Sample8(block, index); }
  static void Store(std::byte* block, std::uint64_t index, std::int32_t value) {
    StoreSample8(block, index, value);
  }
};

struct Stored16 {
  static std::int32_t Load(const std::byte* block, std::uint64_t index) {
    return LoadSample(block + 2 * index);
  }
  static void Store(std::byte* block, std::uint64_t index, std::int32_t value) {
    StoreSample(block + 2 * index, value);
  }
};

// A factor that the compiler knows where it is one of the usual two, for the division's sake; 0: any other.
template <std::int64_t kFactor>
std::int64_t Divided(std::int64_t value, std::int64_t factor) {
  return kFactor == 0
             ? value / factor
             : static_cast<std::int32_t>(value) / static_cast<std::int32_t>(kFactor == 0 ? 1 : kFactor);
}

// Frames [first, end) of the straight lines from each frame to the next.
template <typename Stored, std::int64_t kFactor>
void StretchFrames(const std::byte* from, std::uint64_t channels, std::uint64_t factor, std::uint64_t first,
                   std::uint64_t end, std::byte* out) {
  const std::uint64_t start = first;
  for (std::uint64_t frame = first; frame < end;) {
    const std::uint64_t source = frame / factor;
    const std::uint64_t lineEnd = std::min(end, (source + 1) * factor);
    for (std::uint64_t channel = 0; channel < channels; ++channel) {
      const std::int64_t value = Stored::Load(from, source * channels + channel);
      const std::int64_t next = Stored::Load(from, (source + 1) * channels + channel);
      const std::int64_t step = Divided<kFactor>(next - value, static_cast<std::int64_t>(factor));
      for (std::uint64_t i = frame; i < lineEnd; ++i) {
        const std::int64_t at = value + step * static_cast<std::int64_t>(i - source * factor);
        Stored::Store(out, (i - start) * channels + channel, static_cast<std::int32_t>(at));
      }
    }
    frame = lineEnd;
  }
}

template <std::int64_t kFactor>
void ShrinkFrames8(const std::byte* from, std::uint64_t channels, std::uint64_t factor, std::uint64_t first,
                   std::uint64_t end, std::byte* out) {
  for (std::uint64_t frame = first; frame < end; ++frame) {
    for (std::uint64_t channel = 0; channel < channels; ++channel) {
      std::int64_t sum = 0;
      for (std::uint64_t i = 0; i < factor; ++i) {
        sum += Sample8(from, (frame * factor + i) * channels + channel) - kSilence8;
      }
      const std::int64_t mean = Divided<kFactor>(sum, static_cast<std::int64_t>(factor));
      StoreSample8(out, (frame - first) * channels + channel, mean + kSilence8);
    }
  }
}

// The last channel's mean comes into the first sample of the frame; the others are silent.
template <std::int64_t kFactor>
void ShrinkFrames16(const std::byte* from, std::uint64_t channels, std::uint64_t factor, std::uint64_t first,
                    std::uint64_t end, std::byte* out) {
  for (std::uint64_t frame = first; frame < end; ++frame) {
    std::int64_t sum = 0;
    for (std::uint64_t i = 0; i < factor; ++i) {
      sum += LoadSample(from + 2 * ((frame * factor + i + 1) * channels - 1));
    }
    const auto mean = static_cast<std::int32_t>(Divided<kFactor>(sum, static_cast<std::int64_t>(factor)));
    std::byte* const to = out + 2 * (frame - first) * channels;
    std::fill_n(to, 2 * channels, std::byte{0});
    StoreSample(to, mean);
  }
}

}  // namespace

RateSteps::RateSteps(std::span<const std::byte> source, const WaveFormat& format, std::uint32_t targetRate)
    : from(source),
      channels(format.nChannels),
      is8Bit(format.wBitsPerSample == 8),
      stretches(format.nSamplesPerSec < targetRate),
      factor(stretches ? targetRate / format.nSamplesPerSec : format.nSamplesPerSec / targetRate) {
  const std::uint64_t frames = source.size() / FrameSize(format);
  newFrames = stretches ? frames * factor : frames / factor;
  const std::uint64_t last = std::max<std::uint64_t>(stretches ? frames : newFrames, 1) - 1;
  computed = stretches ? last * factor : last;
  copied = stretches ? last : last * factor;
}

void RateSteps::Convert(std::uint64_t first, std::span<std::byte> out) const {
  const std::uint64_t frameSize = channels * (is8Bit ? 1 : 2);
  const std::uint64_t end = first + out.size() / frameSize;
  const std::uint64_t computedEnd = std::clamp(computed, first, end);
  if (stretches) {
    Stretch(first, computedEnd, out.data());
  } else {
    Shrink(first, computedEnd, out.data());
  }
  for (std::uint64_t frame = computedEnd; frame < end; ++frame) {
    std::memcpy(out.data() + (frame - first) * frameSize, from.data() + copied * frameSize,
                static_cast<std::size_t>(frameSize));
  }
}

void RateSteps::Stretch(std::uint64_t first, std::uint64_t end, std::byte* out) const {
  const auto choose = [this](auto by2, auto by4, auto byAny) {
    return factor == 2 ? by2 : factor == 4 ? by4 : byAny;
  };
  const auto convert =
      is8Bit ? choose(StretchFrames<Stored8, 2>, StretchFrames<Stored8, 4>, StretchFrames<Stored8, 0>)
             : choose(StretchFrames<Stored16, 2>, StretchFrames<Stored16, 4>, StretchFrames<Stored16, 0>);
  convert(from.data(), channels, factor, first, end, out);
}

void RateSteps::Shrink(std::uint64_t first, std::uint64_t end, std::byte* out) const {
  const auto choose = [this](auto by2, auto by4, auto byAny) {
    return factor == 2 ? by2 : factor == 4 ? by4 : byAny;
  };
  const auto convert = is8Bit ? choose(ShrinkFrames8<2>, ShrinkFrames8<4>, ShrinkFrames8<0>)
                              : choose(ShrinkFrames16<2>, ShrinkFrames16<4>, ShrinkFrames16<0>);
  convert(from.data(), channels, factor, first, end, out);
}

}  // namespace tembrel
