// What a filter makes of a sound, as floats, part by part: its blocks reach over the parts' borders.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "edit/BlockFilter.h"
#include "edit/ClipEditor.h"
#include "edit/EffectRange.h"
#include "platform/MemoryBlock.h"
#include "platform/WorkTeam.h"

namespace tembrel {

// Frames of one channel that a thread filters at a time: 63 blocks side by side. Of the blocks half a block
// further on 64 lie in them, which the transform takes without a rest.
inline constexpr std::int64_t kFilteredAPiece = std::int64_t{63} * kBlockPoints;
// Frames of a part; the last has fewer.
inline constexpr std::int64_t kFilteredAPart = 4 * kFilteredAPiece;

using ChannelFloats = std::array<std::span<float>, kMostChannels>;

class FilteredSound {
 public:
  // Refused when there is no memory, as the editor then says. Range and filter outlive the sound.
  static std::optional<FilteredSound> Make(ClipEditor& editor, const EffectFrames& range,
                                           const BlockFilter& filter);

  // Fills `out`, a span for every channel, with the part that begins with the frame `first`. Parts come in
  // order, and from the first one on again as often as wanted. `frames` are the range's bytes; those before
  // `first` may have been rewritten already.
  void Continue(std::span<const std::byte> frames, std::int64_t first, const ChannelFloats& out,
                WorkTeam& team);

 private:
  struct Piece;
  class BlockQueue;

  FilteredSound(const EffectFrames& frameRange, const BlockFilter& blockFilter)
      : range(&frameRange), filter(&blockFilter) {}

  void TakeInput(std::span<const std::byte> frames, std::int64_t first, std::int64_t count,
                 std::size_t channel);
  bool InPairs() const;
  void FilterPiece(const Piece& piece) const;
  void Pass(const Piece& piece, std::int64_t first, bool adds) const;

  const EffectFrames* range;
  const BlockFilter* filter;
  std::array<MemoryBlock, kMostChannels> inputs;
};

}  // namespace tembrel
