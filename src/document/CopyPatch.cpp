#include "document/CopyPatch.h"

#include <algorithm>

namespace tembrel {

namespace {

void AddForward(std::vector<PatchStep>& steps, ByteRange range, std::int64_t longest) {
  while (range.start < range.end) {
    const std::int64_t end = std::min(range.end, range.start + longest);
    steps.push_back({PatchStep::Kind::kData, {range.start, end}});
    range.start = end;
  }
}

void AddBackward(std::vector<PatchStep>& steps, ByteRange range, std::int64_t longest) {
  while (range.start < range.end) {
    const std::int64_t start = std::max(range.start, range.end - longest);
    steps.push_back({PatchStep::Kind::kData, {start, range.end}});
    range.end = start;
  }
}

}  // namespace

std::vector<PatchStep> PlanPatch(const ClipChanges& changes, std::uint32_t oldSize, std::uint32_t newSize,
                                 std::int64_t longest) {
  std::vector<PatchStep> steps;
  const std::int64_t before = oldSize;
  const std::int64_t after = newSize;
  const std::int64_t shifted = std::min(changes.ShiftedFrom().value_or(after), after);
  for (const ByteRange& range : changes.Overwritten()) {
    AddForward(steps, {range.start, std::min(range.end, shifted)}, longest);
  }
  if (!changes.ShiftedFrom()) {
    return steps;
  }
  if (after > before) {
    AddForward(steps, {before, after}, longest);
    steps.push_back({PatchStep::Kind::kSizes, {}});
    AddBackward(steps, {shifted, before}, longest);
  } else {
    AddForward(steps, {shifted, after}, longest);
    steps.push_back({PatchStep::Kind::kSizes, {}});
  }
  return steps;
}

}  // namespace tembrel
