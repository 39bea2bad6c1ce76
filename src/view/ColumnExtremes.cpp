#include "view/ColumnExtremes.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <limits>

#include "platform/Prefetch.h"
#include "platform/WorkTeam.h"

namespace tembrel {

namespace {

static_assert(std::endian::native == std::endian::little, "samples are read as they lie in memory");

// Starting a thread costs about what looking at this many samples does.
constexpr std::int64_t kSamplesWorthAThread = 1 << 18;
constexpr std::int64_t kSharesAThread = 16;

template <typename Sample>
Sample Load(const std::byte* at) {
  Sample sample;
  std::memcpy(&sample, at, sizeof sample);
  return sample;
}

// Lowest and highest value of up to two channels while a column is looked at.
template <typename Sample, int kChannels>
struct Running {
  std::array<Sample, kChannels> low;
  std::array<Sample, kChannels> high;

  Running() {
    low.fill(std::numeric_limits<Sample>::max());
    high.fill(std::numeric_limits<Sample>::min());
  }
  void Take(int channel, Sample lowest, Sample highest) {
    const auto c = static_cast<std::size_t>(channel);
    low[c] = std::min(low[c], lowest);
    high[c] = std::max(high[c], highest);
  }
};

// `count` packed frames, every one looked at. The inner loops run over lanes, which the compiler turns into
// vectors; with an even number of lanes a lane always holds the same channel.
template <typename Sample, int kChannels>
Running<Sample, kChannels> PackedExtremes(const std::byte* at, std::int64_t count) {
  constexpr std::size_t kLanes = 32 / sizeof(Sample);
  Running<Sample, kChannels> result;
  std::array<Sample, kLanes> low;
  std::array<Sample, kLanes> high;
  low.fill(std::numeric_limits<Sample>::max());
  high.fill(std::numeric_limits<Sample>::min());
  std::int64_t samples = count * kChannels;
  for (; samples >= static_cast<std::int64_t>(kLanes); samples -= kLanes, at += 32) {
    std::array<Sample, kLanes> block;
    std::memcpy(block.data(), at, 32);
    for (std::size_t lane = 0; lane < kLanes; ++lane) {
      low[lane] = std::min(low[lane], block[lane]);
      high[lane] = std::max(high[lane], block[lane]);
    }
  }
  for (std::size_t lane = 0; lane < kLanes; ++lane) {
    result.Take(static_cast<int>(lane % kChannels), low[lane], high[lane]);
  }
  for (std::int64_t i = 0; i < samples; ++i, at += sizeof(Sample)) {
    const auto sample = Load<Sample>(at);
    result.Take(static_cast<int>(i % kChannels), sample, sample);
  }
  return result;
}

// Where the frames to look at lie in memory.
struct Spread {
  std::int64_t distance;  // bytes from frame to frame
  std::int64_t apart;     // bytes from the first channel to the second
  const std::byte* end;   // of the sound
};

// With every frame in a cache line of its own, and one line in five skipped, the processor does not foresee
// the next line. It is asked for this many frames ahead, which halves the time of a long view.
constexpr std::int64_t kFramesAhead = 64;
constexpr std::int64_t kCacheLine = 64;

// `count` frames that do not lie side by side, or of samples wider than Sample.
template <typename Sample, int kChannels, bool kAskAhead>
Running<Sample, kChannels> SpreadExtremes(const std::byte* at, std::int64_t count, const Spread& spread) {
  Running<Sample, kChannels> result;
  const std::int64_t ahead = kFramesAhead * spread.distance;
  for (std::int64_t i = 0; i < count; ++i) {
    const std::byte* frame = at + i * spread.distance;
    if constexpr (kAskAhead) {
      PrefetchForReading(frame + std::min<std::int64_t>(ahead, spread.end - frame));
    }
    for (int channel = 0; channel < kChannels; ++channel) {
      const auto sample = Load<Sample>(frame + channel * spread.apart);
      result.Take(channel, sample, sample);
    }
  }
  return result;
}

using Columns = std::vector<std::vector<Extremes>>;

template <typename Sample, int kChannels>
Running<Sample, kChannels> ExtremesOf(const WaveSpan& span, const std::byte* at, std::int64_t count) {
  if (span.step == 1 && span.stride == static_cast<std::int64_t>(sizeof(Sample)) * kChannels) {
    return PackedExtremes<Sample, kChannels>(at, count);
  }
  const Spread spread{span.step * span.stride, span.sampleBytes, span.bytes.data() + span.bytes.size()};
  return spread.distance < kCacheLine ? SpreadExtremes<Sample, kChannels, false>(at, count, spread)
                                      : SpreadExtremes<Sample, kChannels, true>(at, count, spread);
}

template <typename Sample, int kChannels>
void LookAt(const WaveSpan& span, std::int64_t fromColumn, std::int64_t toColumn, Columns& columns) {
  const std::byte* samples = span.bytes.data() + span.sampleBytes - static_cast<std::int64_t>(sizeof(Sample));
  const auto examinedBefore = [&](std::int64_t frame) { return (frame + span.step - 1) / span.step; };
  std::int64_t from = examinedBefore(span.FirstFrameOf(fromColumn));
  for (std::int64_t column = fromColumn; column < toColumn; ++column) {
    const std::int64_t to = examinedBefore(span.FirstFrameOf(column + 1));
    if (from < to) {
      const std::byte* at = samples + from * span.step * span.stride;
      const auto found = ExtremesOf<Sample, kChannels>(span, at, to - from);
      for (std::size_t channel = 0; channel < kChannels; ++channel) {
        columns[channel][static_cast<std::size_t>(column)] = {found.low[channel], found.high[channel]};
      }
    }
    from = to;
  }
}

using Look = void (*)(const WaveSpan&, std::int64_t, std::int64_t, Columns&);

Look LookFor(const WaveSpan& span) {
  if (span.sampleBytes == 1) {
    return span.channels == 1 ? LookAt<std::uint8_t, 1> : LookAt<std::uint8_t, 2>;
  }
  return span.channels == 1 ? LookAt<std::int16_t, 1> : LookAt<std::int16_t, 2>;
}

std::int64_t ThreadsFor(const WaveSpan& span) {
  const std::int64_t samples = span.frames / span.step * span.channels;
  return std::clamp<std::int64_t>(samples / kSamplesWorthAThread, 1,
                                  std::min<std::int64_t>(Processors(), span.ColumnCount()));
}

}  // namespace

std::vector<std::vector<Extremes>> ColumnExtremes(const WaveSpan& span) {
  const std::int64_t count = span.ColumnCount();
  Columns columns(static_cast<std::size_t>(span.channels),
                  std::vector<Extremes>(static_cast<std::size_t>(count)));
  const Look look = LookFor(span);
  const std::int64_t threads = ThreadsFor(span);
  // Small shares, taken as they come: a thread that the system holds up does not hold up the picture.
  const std::int64_t share = std::max<std::int64_t>(count / (threads * kSharesAThread), 1);
  WorkTeam(threads).ShareOut((count + share - 1) / share, [&](std::int64_t index) {
    look(span, index * share, std::min((index + 1) * share, count), columns);
  });
  return columns;
}

}  // namespace tembrel
