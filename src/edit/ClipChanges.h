// Where a clip's bytes differ from before: what a copy on disk has to write again. Collected by ClipEditor.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tembrel {

// Bytes of a clip from `start` up to, not including, `end`.
struct ByteRange {
  std::int64_t start = 0;
  std::int64_t end = 0;

  bool operator==(const ByteRange&) const = default;
};

// The range cut down to a clip of `size` bytes: both ends within it, and the end never before the start.
ByteRange CutDown(const ByteRange& range, std::int64_t size);

class ClipChanges {
 public:
  // Bytes changed in place.
  void AddOverwrite(const ByteRange& range);
  // The length changed at `offset`: every byte from there to the end counts as changed.
  void AddShift(std::int64_t offset);
  // Everything, the format record included.
  void AddAll() { all = true; }
  // Changes made after these ones.
  void Add(const ClipChanges& later);

  bool Empty() const { return !all && !shiftedFrom && ranges.empty(); }
  bool All() const { return all; }
  // From here to the end of the clip everything counts as changed, and the length may differ.
  const std::optional<std::int64_t>& ShiftedFrom() const { return shiftedFrom; }
  // Changed in place, in the order of the changes; touching ranges are joined. May reach past ShiftedFrom()
  // and past the clip's end.
  const std::vector<ByteRange>& Overwritten() const { return ranges; }

 private:
  std::vector<ByteRange> ranges;
  std::optional<std::int64_t> shiftedFrom;
  bool all = false;
};

}  // namespace tembrel
