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

namespace tembrel {

namespace {

constexpr int kTargetPercent = 90;
constexpr std::size_t kMostChannels = 2;
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

// Both at once: each sum waits for its last addition most of the time.
void AddTo(Levels& levels, std::span<const float> left, std::span<const float> right) {
  ChannelLevels first = levels[0];
  ChannelLevels second = levels[1];
  for (std::size_t i = 0; i < left.size(); ++i) {
    first.sum += left[i];
    second.sum += right[i];
    first.peak = std::max(first.peak, left[i]);
    second.peak = std::max(second.peak, right[i]);
  }
  levels = {first, second};
}

void AddBlock(Levels& levels, const WaveFormat& format, std::span<const std::byte> block) {
  std::array<std::array<float, kFramesAtOnce>, kMostChannels> buffers;
  const std::size_t frameSize = std::max(1U, FrameSize(format));
  const std::size_t count = block.size() / frameSize;
  const auto frames = static_cast<std::int64_t>(count);
  if (format.nChannels == 1) {
    SamplesToFloat(format, block, buffers[0], frames, kMonoChannel);
    AddTo(levels[0], std::span(buffers[0]).first(count));
    return;
  }
  SamplesToFloat(format, block, buffers[0], frames, kLeftChannel);
  SamplesToFloat(format, block, buffers[1], frames, kRightChannel);
  AddTo(levels, std::span(buffers[0]).first(count), std::span(buffers[1]).first(count));
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

  // Every `step`-th sample from `first` on.
  void Apply(std::span<std::byte> piece, std::size_t first, std::size_t step) const {
    const std::byte* const table = samples.Data();
    if (format.wBitsPerSample == 8) {
      for (std::size_t i = first; i < piece.size(); i += step) {
        piece[i] = table[std::to_integer<std::size_t>(piece[i])];
      }
      return;
    }
    std::byte* const stored = piece.data();
    for (std::size_t i = first; i < piece.size() / 2; i += step) {
      const auto old = static_cast<std::uint16_t>(LoadSample(stored + 2 * i));
      StoreSample(stored + 2 * i, LoadSample(table + std::size_t{2} * old));
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
  return RewritePieces(editor, range, size, 2 * size, [&](std::span<std::byte> piece, std::int64_t) {
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
