// In which order the changed bytes of a document's copy on disk are written, so that a program that dies
// between two writes leaves a copy with all of the sound in it.
#pragma once

#include <cstdint>
#include <vector>

#include "edit/ClipChanges.h"

namespace tembrel {

struct PatchStep {
  enum class Kind {
    kData,   // the clip's bytes of `range`, to the same place among the data
    kSizes,  // the size fields, by the clip's new size
  };
  Kind kind = Kind::kData;
  ByteRange range;

  bool operator==(const PatchStep&) const = default;
};

inline constexpr std::int64_t kPatchStep = 1 << 20;

// Sound that moves back is written from its end, sound that moves forward from its start, so that bytes are
// only ever written over when they stand in their new place too; and the header never promises data that is
// not there. At most `longest` bytes a step. After the last step the file is cut to its new length.
std::vector<PatchStep> PlanPatch(const ClipChanges& changes, std::uint32_t oldSize, std::uint32_t newSize,
                                 std::int64_t longest = kPatchStep);

}  // namespace tembrel
