#include "edit/FilteredSound.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "edit/FloatBlock.h"
#include "edit/SampleFloat.h"

namespace tembrel {

namespace {

constexpr auto kBlock = static_cast<std::int64_t>(kBlockPoints);
constexpr std::int64_t kOverlap = kBlock / 2;

}  // namespace

// A piece of a channel while it is filtered. Positions are in frames from the start of the range.
struct FilteredSound::Piece {
  std::int64_t start = 0;
  std::int64_t end = 0;
  std::int64_t inputStart = 0;   // the position of the first input
  std::span<const float> input;  // reaches half a block beyond the piece on both sides, where there is sound
  std::span<float> out;          // from `start` on

  const float* At(std::int64_t position) const {
    return &input[static_cast<std::size_t>(position - inputStart)];
  }
  float* OutAt(std::int64_t position) const { return &out[static_cast<std::size_t>(position - start)]; }
};

// Collects blocks until there are enough to filter them together, and puts them out.
class FilteredSound::BlockQueue {
 public:
  // In pairs, blocks take half the work.
  BlockQueue(const BlockFilter& blockFilter, const Piece& filteredPiece, bool filtersPairs, bool addsToOut)
      : filter(blockFilter), piece(filteredPiece), pairs(filtersPairs), adds(addsToOut) {}

  void Add(std::int64_t start) {
    starts.at(count++) = start;
    if (count == (pairs ? 2 * kLanes : kLanes)) {
      Flush();
    }
  }

  void Flush() {
    if (count == 0) {
      return;
    }
    std::array<const float*, 2 * kLanes> all{};
    std::transform(starts.begin(), starts.begin() + static_cast<std::ptrdiff_t>(count), all.begin(),
                   [this](std::int64_t start) { return piece.At(start); });
    const auto blocks = std::span<const float* const>(all).first(count);
    if (pairs) {
      filter.FilterPairs(blocks, filtered);
    } else {
      filter.Filter(blocks, filtered);
    }
    for (std::size_t i = 0; i < count; ++i) {
      Put(starts.at(i), filtered.at(i).data());
    }
    count = 0;
  }

  // The part of a block, filtered or not, that lies in the piece.
  void Put(std::int64_t start, const float* values) const {
    const std::int64_t from = std::max(start, piece.start);
    const std::int64_t to = std::min(start + kBlock, piece.end);
    if (from >= to) {
      return;
    }
    const std::span<const float> put(values + (from - start), static_cast<std::size_t>(to - from));
    if (adds) {
      std::ranges::transform(put, std::span(piece.OutAt(from), put.size()), piece.OutAt(from), std::plus{});
    } else {
      std::ranges::copy(put, piece.OutAt(from));
    }
  }

 private:
  const BlockFilter& filter;
  const Piece& piece;
  bool pairs;
  bool adds;
  std::size_t count = 0;
  std::array<std::int64_t, 2 * kLanes> starts{};
  std::array<BlockValues, 2 * kLanes> filtered;
};

std::optional<FilteredSound> FilteredSound::Make(ClipEditor& editor, const EffectFrames& range,
                                                 const BlockFilter& filter) {
  FilteredSound sound(range, filter);
  for (std::size_t channel = 0; channel < range.format.nChannels; ++channel) {
    std::optional<MemoryBlock> block = editor.Allocate(
        static_cast<std::uint64_t>(std::min(kFilteredAPart, range.count) + 2 * kOverlap) * sizeof(float));
    if (!block) {
      return std::nullopt;
    }
    sound.inputs.at(channel) = std::move(*block);
  }
  return sound;
}

void FilteredSound::Continue(std::span<const std::byte> frames, std::int64_t first, const ChannelFloats& out,
                             WorkTeam& team) {
  const auto count = static_cast<std::int64_t>(out[0].size());
  team.ShareOut(range->format.nChannels, [&](std::int64_t channel) {
    TakeInput(frames, first, count, static_cast<std::size_t>(channel));
  });
  const std::int64_t pieces = (count + kFilteredAPiece - 1) / kFilteredAPiece;
  team.ShareOut(pieces * range->format.nChannels, [&](std::int64_t index) {
    const auto channel = static_cast<std::size_t>(index / pieces);
    const std::int64_t start = first + index % pieces * kFilteredAPiece;
    Piece piece;
    piece.start = start;
    piece.end = std::min(start + kFilteredAPiece, first + count);
    piece.inputStart = first - kOverlap;
    piece.input = AsFloats(inputs.at(channel));
    piece.out = out.at(channel).subspan(static_cast<std::size_t>(start - first));
    FilterPiece(piece);
  });
}

// The input holds half a block from before `first`, kept from the time before: the sound there may have been
// rewritten.
void FilteredSound::TakeInput(std::span<const std::byte> frames, std::int64_t first, std::int64_t count,
                              std::size_t channel) {
  const std::span<float> input = AsFloats(inputs.at(channel));
  if (first > 0) {
    std::copy_n(input.begin() + kFilteredAPart, kOverlap, input.begin());
  }
  const std::int64_t taken = std::min(count + kOverlap, range->count - first);
  SamplesToFloat(range->format, frames.subspan(static_cast<std::size_t>(first) * FrameSize(range->format)),
                 input.subspan(static_cast<std::size_t>(kOverlap)), taken, range->Selector(channel));
}

// Not with 8 bits, where a trace below 0 makes another sample than 0 itself.
bool FilteredSound::InPairs() const {
  return filter->Mode() == FilterMode::Preset && range->format.wBitsPerSample != 8;
}

void FilteredSound::FilterPiece(const Piece& piece) const {
  Pass(piece, piece.start, false);
  if (filter->Mode() == FilterMode::Preset) {
    Pass(piece, std::max(piece.start - kOverlap, kOverlap), true);
  }
}

// Puts into the piece, or adds to it, the blocks that start at `first` and every block further on. One that
// does not end before the range's last frame stays as it is.
void FilteredSound::Pass(const Piece& piece, std::int64_t first, bool adds) const {
  BlockQueue queue(*filter, piece, InPairs(), adds);
  for (std::int64_t start = first; start < piece.end; start += kBlock) {
    if (start < range->count - kBlock) {
      queue.Add(start);
    } else {
      queue.Put(start, piece.At(start));
    }
  }
  queue.Flush();
}

}  // namespace tembrel
