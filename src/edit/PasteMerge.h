// Mixing one sound into another: the work behind the merging paste.
#pragma once

#include <cstdint>

#include "audio/AudioClip.h"
#include "edit/EditStep.h"

namespace tembrel {

// Adds `pasted`, of the clip's own format, to the clip. As many frames are mixed as both have, counted from
// `cursorFrame`; with the cursor at or beyond the end none are, and that is no failure. Where the mix begins,
// see PasteMergeEdit.
EditResult PasteMerge(ClipEditor& editor, const AudioClip& pasted, std::int64_t cursorFrame);

}  // namespace tembrel
