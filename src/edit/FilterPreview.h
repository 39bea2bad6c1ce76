// What a filter preset makes of a selection, to be listened to before it is chosen. The clip itself is not
// touched.
#pragma once

#include <memory>
#include <string>

#include "audio/AudioClip.h"
#include "edit/ClipChanges.h"
#include "edit/EditMemory.h"

namespace tembrel {

inline constexpr std::int64_t kPreviewSeconds = 6;

class FilterPreview {
 public:
  // The clip can be edited and outlives the preview. The selection is a byte range and is cut down to it.
  FilterPreview(const AudioClip& previewedClip, const ByteRange& selection, EditMemory editMemory = {});

  struct Result {
    std::unique_ptr<AudioClip> sound;  // the filtered range and nothing else; null when it could not be made
    std::string message;               // why, for the user
  };
  // The first six seconds of the range, filtered as the command would filter them if they were selected.
  // The range is shortened to them for good: later previews are of the same sound.
  Result Make(int preset);

  // What the next preview is made from.
  const ByteRange& Range() const { return range; }

 private:
  const AudioClip& clip;
  ByteRange range;
  EditMemory memory;
};

}  // namespace tembrel
