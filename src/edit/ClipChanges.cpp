#include "edit/ClipChanges.h"

#include <algorithm>

namespace tembrel {

ByteRange CutDown(const ByteRange& range, std::int64_t size) {
  const std::int64_t start = std::clamp<std::int64_t>(range.start, 0, size);
  return {start, std::clamp<std::int64_t>(range.end, start, size)};
}

void ClipChanges::AddOverwrite(const ByteRange& range) {
  if (range.start >= range.end) {
    return;
  }
  if (!ranges.empty() && range.start <= ranges.back().end && range.end >= ranges.back().start) {
    ranges.back().start = std::min(ranges.back().start, range.start);
    ranges.back().end = std::max(ranges.back().end, range.end);
    return;
  }
  ranges.push_back(range);
}

void ClipChanges::AddShift(std::int64_t offset) {
  shiftedFrom = std::min(shiftedFrom.value_or(offset), offset);
}

void ClipChanges::Add(const ClipChanges& later) {
  for (const ByteRange& range : later.ranges) {
    AddOverwrite(range);
  }
  if (later.shiftedFrom) {
    AddShift(*later.shiftedFrom);
  }
  all = all || later.all;
}

}  // namespace tembrel
