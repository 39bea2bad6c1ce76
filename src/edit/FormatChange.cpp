#include "edit/FormatChange.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <utility>

#include "audio/Samples.h"
#include "edit/EffectRange.h"
#include "edit/RateSteps.h"
#include "edit/SampleLoads.h"
#include "platform/WorkTeam.h"

namespace tembrel {

namespace {

// Bytes of the old format at its new rate that go through all steps at a time. A multiple of every unit that
// a step looks at, so that pieces join without a seam.
constexpr std::uint64_t kPiece = std::uint64_t{1} << 14U;
constexpr std::uint64_t kPiecesAtOnce = 64;
constexpr std::uint64_t kMostGrowth = 8;  // 8-bit mono to 16-bit stereo, the bits twice

using Input = std::span<const std::byte>;

void Narrow(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size() / 2; ++i) {
    StoreSample8(to, i, LoadSample(from.data() + 2 * i) / 256 + kSilence8);
  }
}

void Widen(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size(); ++i) {
    StoreSample(to + 2 * i, (Sample8(from.data(), i) - kSilence8) * 256);
  }
}

void Mix8(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size() / 2; ++i) {
    StoreSample8(to, i, (Sample8(from.data(), 2 * i) + Sample8(from.data(), 2 * i + 1)) >> 1);
  }
}

void Mix16(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size() / 4; ++i) {
    const std::uint32_t frame = LoadFrame(from.data() + 4 * i);
    StoreSample(to + 2 * i, (LeftOf(frame) + RightOf(frame)) / 2);
  }
}

void Double8(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size(); ++i) {
    to[2 * i] = from[i];
    to[2 * i + 1] = from[i];
  }
}

void Double16(Input from, std::byte* to) {
  for (std::size_t i = 0; i < from.size() / 2; ++i) {
    const std::int32_t sample = LoadSample(from.data() + 2 * i);
    StoreFrame(to + 4 * i, WithRight(WithLeft(0, sample), sample));
  }
}

// One step behind the change of rate: what it does with a stretch of bytes, and how long the result is.
struct Step {
  void (*convert)(Input from, std::byte* to) = nullptr;
  std::uint64_t unit = 1;     // bytes of which a last, incomplete group is dropped
  std::uint64_t perUnit = 1;  // bytes that become of them

  std::uint64_t SizeAfter(std::uint64_t size) const { return size / unit * perUnit; }
};

// What becomes of a clip.
class Plan {
 public:
  Plan(const AudioClip& oldClip, const FormatChoice& wanted)
      : clip(oldClip),
        rates(clip.Bytes(), clip.format, wanted.rate),
        changesRate(wanted.rate != clip.format.nSamplesPerSec) {
    const bool changesBits = wanted.bits != clip.format.wBitsPerSample;
    const bool changesChannels = wanted.channels != clip.format.nChannels;
    const Step bits = wanted.bits == 8 ? Step{Narrow, 2, 1} : Step{Widen, 1, 2};
    if (changesBits) {
      Append(bits);
    }
    // The channels' own conversion starts from the old bits again, whatever the data are by now.
    if (changesBits && changesChannels) {
      Append(bits);
    }
    if (changesChannels && wanted.channels == 1) {
      Append(wanted.bits == 8 ? Step{Mix8, 2, 1} : Step{Mix16, 4, 2});
    } else if (changesChannels) {
      Append(wanted.bits == 8 ? Step{Double8, 1, 2} : Step{Double16, 2, 4});
    }
  }

  bool ChangesNothing() const { return !changesRate && count == 0; }
  std::uint64_t RatedSize() const {
    return changesRate ? rates.FrameCount() * FrameSize(clip.format) : clip.dataSize;
  }
  std::uint64_t Size() const { return SizeAfterAll(RatedSize()); }

  // False when the result, or anything on the way to it, would be too large for a clip.
  bool Fits() const {
    std::uint64_t size = RatedSize();
    bool fits = size <= std::numeric_limits<std::uint32_t>::max();
    for (std::size_t i = 0; i < count; ++i) {
      size = steps.at(i).SizeAfter(size);
      fits = fits && size <= std::numeric_limits<std::uint32_t>::max();
    }
    return fits && size <= kMostWaveBytes;
  }

  // The result of the piece with this number, to its place in `to`.
  void Convert(std::uint64_t piece, std::byte* to) const {
    std::array<std::byte, kPiece * kMostGrowth> first;
    std::array<std::byte, kPiece * kMostGrowth> second;
    const std::uint64_t start = piece * kPiece;
    const std::uint64_t length = std::min(kPiece, RatedSize() - start);
    Input bytes = clip.Bytes();
    if (changesRate) {
      rates.Convert(start / FrameSize(clip.format), std::span(first).first(static_cast<std::size_t>(length)));
      bytes = Input(first).first(static_cast<std::size_t>(length));
    } else {
      bytes = bytes.subspan(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
    }
    std::byte* spare = second.data();
    std::byte* other = first.data();
    for (std::size_t i = 0; i < count; ++i) {
      steps.at(i).convert(bytes, spare);
      bytes = Input(spare, static_cast<std::size_t>(steps.at(i).SizeAfter(bytes.size())));
      std::swap(spare, other);
    }
    std::ranges::copy(bytes, to + SizeAfterAll(start));
  }

 private:
  void Append(const Step& step) { steps.at(count++) = step; }
  std::uint64_t SizeAfterAll(std::uint64_t size) const {
    for (std::size_t i = 0; i < count; ++i) {
      size = steps.at(i).SizeAfter(size);
    }
    return size;
  }

  const AudioClip& clip;
  RateSteps rates;
  bool changesRate;
  std::size_t count = 0;
  std::array<Step, 3> steps;
};

EditResult CheckFormat(const AudioClip& clip, const FormatChoice& wanted) {
  const bool known =
      (wanted.bits == 8 || wanted.bits == 16) && (wanted.channels == 1 || wanted.channels == 2);
  const std::uint64_t bytesPerSecond = std::uint64_t{wanted.rate} * FrameSize(wanted.bits, wanted.channels);
  if (!known || wanted.rate == 0) {
    return EditResult::Refused("Sound can be converted to 8 or 16 bits, mono or stereo, at 1 Hz or more.");
  }
  constexpr std::uint64_t kMostBytesPerSecond =
      std::numeric_limits<std::uint32_t>::max();  // of the file format
  if (bytesPerSecond > kMostBytesPerSecond) {
    return EditResult::Refused("The rate is too high: in this format it can be at most " +
                               std::to_string(kMostBytesPerSecond / FrameSize(wanted.bits, wanted.channels)) +
                               " Hz.");
  }
  if (!Plan(clip, wanted).Fits()) {
    return EditResult::Refused(
        "The sound would become larger than a WAVE file can hold. Nothing was changed.");
  }
  return EditResult::Done();
}

EditResult ChangeFormat(ClipEditor& editor, const FormatChoice& wanted) {
  const Plan plan(editor.Clip(), wanted);
  if (plan.ChangesNothing()) {
    return EditResult::Done();
  }
  std::optional<MemoryBlock> block = editor.Allocate(plan.Size());
  if (!block) {
    return RefusalOf(editor);
  }
  const std::uint64_t pieces = (plan.RatedSize() + kPiece - 1) / kPiece;
  const std::uint64_t shares = (pieces + kPiecesAtOnce - 1) / kPiecesAtOnce;
  const auto convert = [&](std::int64_t share) {
    const std::uint64_t first = static_cast<std::uint64_t>(share) * kPiecesAtOnce;
    for (std::uint64_t piece = first; piece < std::min(first + kPiecesAtOnce, pieces); ++piece) {
      plan.Convert(piece, block->Data());
    }
  };
  const bool finished = ShareOut(static_cast<std::int64_t>(shares), convert, [&](std::int64_t done) {
    return editor.Proceed(static_cast<std::uint64_t>(done), shares);
  });
  if (!finished) {
    return EditResult::Cancelled();
  }
  const WaveFormat format = PcmFormat(wanted.rate, wanted.bits, wanted.channels);
  return editor.ReplaceAll(std::move(*block), plan.Size(), format) ? EditResult::Done() : RefusalOf(editor);
}

}  // namespace

EditStep FormatEdit(const FormatChoice& wanted) {
  return {.check = [wanted](const AudioClip& clip) { return CheckFormat(clip, wanted); },
          .change = [wanted](ClipEditor& editor) { return ChangeFormat(editor, wanted); },
          .marksChanged = true,
          .refreshesLengths = true};
}

}  // namespace tembrel
