#include "edit/NormalizeEffect.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "audio/Samples.h"
#include "edit/EffectRange.h"
#include "edit/FloatBlock.h"
#include "edit/SampleFloat.h"
#include "edit/SampleLoads.h"
#include "platform/Prefetch.h"
#include "platform/WideLoops.h"

namespace tembrel {

namespace {

constexpr int kTargetPercent = 90;
constexpr std::int64_t kFramesAtOnce = 4096;

// What is found out about a channel before anything changes.
struct ChannelLevels {
  float sum = 0.0F;
  float peak = 0.0F;  // the largest value, not the largest magnitude
};

using Levels = std::array<ChannelLevels, kMostChannels>;

void AddTo(ChannelLevels& levels, std::span<const float> values) {
  for (const float value : values) {
    levels.sum += value;
    levels.peak = std::max(levels.peak, value);
  }
}

void AddBlock8(Levels& levels, const WaveFormat& format, std::span<const std::byte> block) {
  std::array<float, kFramesAtOnce> buffer;
  const auto frames = static_cast<std::int64_t>(format.nChannels == 1 ? block.size() : block.size() / 2);
  for (std::size_t channel = 0; channel < format.nChannels; ++channel) {
    SamplesToFloat(format, block, buffer, frames,
                   format.nChannels == 1 ? kMonoChannel : static_cast<std::uint32_t>(channel + 1));
    AddTo(levels.at(channel), std::span(buffer).first(static_cast<std::size_t>(frames)));
  }
}

// A sum waits for its last addition most of the time. Meanwhile the processor can convert the next samples,
// if there are few enough of them, and add to the sum of the other channel.
constexpr std::size_t kGroup = 32;

TEMBREL_WIDE_LOOPS
void AddGroups16(Levels& levels, std::span<const std::byte> block, std::size_t channels) {
  std::array<float, kGroup> peaks{};
  Levels added = levels;
  for (std::size_t at = 0; at < block.size(); at += 2 * kGroup) {
    PrefetchForReading(block.subspan(std::min(at + kStretch, block.size() - 1), 1));
    std::array<float, kGroup> values;
    for (std::size_t i = 0; i < kGroup; ++i) {
      values[i] = FloatOf16(LoadSample(block.data() + at + 2 * i));
      peaks[i] = std::max(peaks[i], values[i]);
    }
    if (channels == 1) {
      for (std::size_t i = 0; i < kGroup; ++i) {
        added[0].sum += values[i];
      }
    } else {
      for (std::size_t i = 0; i < kGroup; i += 2) {
        added[0].sum += values[i];
        added[1].sum += values[i + 1];
      }
    }
  }
  for (std::size_t i = 0; i < kGroup; ++i) {
    float& peak = added[i % channels].peak;
    peak = std::max(peak, peaks[i]);
  }
  levels = added;
}

void AddBlock(Levels& levels, const WaveFormat& format, std::span<const std::byte> block) {
  if (format.wBitsPerSample == 8) {
    AddBlock8(levels, format, block);
    return;
  }
  const std::size_t grouped = block.size() / (2 * kGroup) * (2 * kGroup);
  AddGroups16(levels, block.first(grouped), format.nChannels);
  for (std::size_t at = grouped; at < block.size(); at += 2) {
    const float value = FloatOf16(LoadSample(block.data() + at));
    AddTo(levels.at(at / 2 % format.nChannels), std::span(&value, 1));
  }
}

// The sums are single precision, one sample after the other: the order decides the last bits, so this cannot
// be shared out.
bool Measure(ClipEditor& editor, const ByteRange& range, Levels& levels) {
  const WaveFormat& format = editor.Clip().format;
  const auto size = static_cast<std::uint64_t>(range.end - range.start);
  const std::uint64_t step = std::uint64_t{FrameSize(format)} * kFramesAtOnce;
  const auto bytes = editor.Clip().Bytes().subspan(static_cast<std::size_t>(range.start), size);
  std::uint64_t told = 0;
  for (std::uint64_t at = 0; at < size; at += step) {
    AddBlock(levels, format, bytes.subspan(at, std::min(step, size - at)));
    if (at - told >= kProgressStep) {
      told = at;
      if (!editor.Proceed(at, 2 * size)) {
        return false;
      }
    }
  }
  return true;
}

// The new sample for every old one, by their bits.
class NormalizeTable {
 public:
  static std::optional<NormalizeTable> Make(ClipEditor& editor) {
    const std::uint32_t bits = editor.Clip().format.wBitsPerSample;
    const std::uint64_t entries = bits == 8 ? 256 : 65536;
    std::optional<MemoryBlock> samples = editor.Allocate(entries * BytesPerSample(bits));
    std::optional<MemoryBlock> values = editor.Allocate(entries * sizeof(float));
    if (!samples || !values) {
      return std::nullopt;
    }
    return NormalizeTable(bits, std::move(*samples), std::move(*values));
  }

  void Fill(const ChannelLevels& levels, std::int64_t count) {
    const auto entries = static_cast<std::int64_t>(values.Size() / sizeof(float));
    for (std::int64_t i = 0; i < entries; ++i) {
      if (format.wBitsPerSample == 8) {
        StoreSample8(samples.Data(), static_cast<std::uint64_t>(i), i);
      } else {
        StoreSample16(samples.Data(), static_cast<std::uint64_t>(i), i);
      }
    }
    const std::span<float> buffer = AsFloats(values);
    SamplesToFloat(format, samples.Bytes(), buffer, entries, kMonoChannel);
    const auto mean = static_cast<float>(static_cast<double>(levels.sum) / static_cast<double>(count));
    const double divisor = static_cast<double>(levels.peak) * 100 / kTargetPercent;
    for (float& value : buffer) {
      value = static_cast<float>((value - mean) / divisor);
    }
    FloatToSamples(format, samples.Bytes(), buffer, entries, kMonoChannel);
  }

  std::int16_t NewSample16(std::int32_t old) const {
    return LoadSample(samples.Data() + std::size_t{2} * static_cast<std::uint16_t>(old));
  }

  // Every `step`-th sample from `first` on.
  void Apply(std::span<std::byte> piece, std::size_t first, std::size_t step) const {
    if (format.wBitsPerSample == 8) {
      const std::byte* const table = samples.Data();
      for (std::size_t i = first; i < piece.size(); i += step) {
        piece[i] = table[std::to_integer<std::size_t>(piece[i])];
      }
      return;
    }
    std::byte* const stored = piece.data();
    for (std::size_t i = first; i < piece.size() / 2; i += step) {
      StoreSample(stored + 2 * i, NewSample16(LoadSample(stored + 2 * i)));
    }
  }

 private:
  NormalizeTable(std::uint32_t bits, MemoryBlock newSamples, MemoryBlock floats)
      : format(PcmFormat(0, static_cast<std::uint16_t>(bits), 1)),
        samples(std::move(newSamples)),
        values(std::move(floats)) {}

  WaveFormat format;  // of the table, not of the sound
  MemoryBlock samples;
  MemoryBlock values;
};

// A frame at a time, not a channel.
void ApplyBoth16(const NormalizeTable& left, const NormalizeTable& right, std::span<std::byte> piece) {
  for (std::size_t at = 0; at < piece.size(); at += 4) {
    const std::uint32_t frame = LoadFrame(&piece[at]);
    StoreFrame(&piece[at],
               WithRight(WithLeft(0, left.NewSample16(LeftOf(frame))), right.NewSample16(RightOf(frame))));
  }
}

EditResult Normalize(ClipEditor& editor, const ByteRange& selection) {
  const WaveFormat format = editor.Clip().format;
  const ByteRange range = FrameBytes(selection, editor.Clip());
  const std::size_t channels = format.nChannels;
  std::array<std::optional<NormalizeTable>, kMostChannels> tables;
  for (std::size_t channel = 0; channel < channels; ++channel) {
    tables.at(channel) = NormalizeTable::Make(editor);
    if (!tables.at(channel)) {
      return RefusalOf(editor);
    }
  }
  Levels levels;
  if (!Measure(editor, range, levels)) {
    return EditResult::Cancelled();
  }
  for (std::size_t channel = 0; channel < channels; ++channel) {
    if (levels.at(channel).peak > 0.0F) {
      tables.at(channel)->Fill(levels.at(channel), (range.end - range.start) / FrameSize(format));
    }
  }
  const auto size = static_cast<std::uint64_t>(range.end - range.start);
  const bool both16 =
      format.wBitsPerSample == 16 && channels == 2 && levels[0].peak > 0.0F && levels[1].peak > 0.0F;
  return RewritePieces(editor, range, size, 2 * size, [&](std::span<std::byte> piece, std::int64_t) {
    if (both16) {
      ApplyBoth16(*tables[0], *tables[1], piece);
      return;
    }
    for (std::size_t channel = 0; channel < channels; ++channel) {
      if (levels.at(channel).peak > 0.0F) {
        tables.at(channel)->Apply(piece, channel, channels);
      }
    }
  });
}

}  // namespace

EditStep NormalizeEdit(const ByteRange& selection) {
  return InPlaceStep([selection](ClipEditor& editor) { return Normalize(editor, selection); });
}

}  // namespace tembrel
