// The largest magnitude that a channel reaches with its echoes, found without computing all of them exactly.
// Samples a delay apart make up a column; echoes stay within their column. A quick run shows in which columns
// the largest may stand, and only those are computed as EchoLine does.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "edit/ClipEditor.h"
#include "edit/EffectRange.h"
#include "platform/MemoryBlock.h"

namespace tembrel {

// How many columns are computed on their own at most: their samples lie far apart, and fetching them takes
// longer than computing.
inline constexpr std::size_t kMostColumns = 32;

// The columns, of some that lie side by side, where the largest magnitude may be by the near outputs of one
// channel.
class NearPeak {
 public:
  // Nothing when there is no memory, as the editor then says.
  static std::optional<NearPeak> Make(ClipEditor& editor, std::int64_t columnCount);

  // Takes near outputs that stand in the columns from `column` on; behind the last comes the first again.
  void Take(std::span<const float> outputs, std::int64_t column);

  // The largest near magnitude so far.
  float Largest() const { return largest; }
  // Adds the columns where outputs may be exactly as large as one that is `magnitude` nearly, which is not
  // below Largest(); each counted from `first`. Stops after kMostColumns + 1 in all.
  void AddColumns(float magnitude, std::int64_t first, std::vector<std::int64_t>& found) const;

 private:
  explicit NearPeak(MemoryBlock block);

  // Of each column: the largest magnitude that was nearly the largest of all when it was taken.
  MemoryBlock columns;
  float largest = 0;
};

// True when outputs that are `magnitude` nearly, or less, may be above 1 exactly.
bool MayPassUnity(float magnitude);

// The largest magnitude that these columns reach exactly. `frames` are the range's bytes; columns are in
// ascending order, below `delay`. Nothing when there is no memory.
std::optional<float> PeakOfColumns(ClipEditor& editor, const EffectFrames& range,
                                   std::span<const std::byte> frames, std::size_t channel, std::int64_t delay,
                                   std::span<const std::int64_t> columns);

}  // namespace tembrel
