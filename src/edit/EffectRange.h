// Which bytes of a clip an effect works on, and how it goes through them piece by piece.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

#include "audio/AudioClip.h"
#include "audio/WaveFormat.h"
#include "edit/ClipChanges.h"
#include "edit/ClipEditor.h"
#include "edit/EditStep.h"

namespace tembrel {

// The selection cut down to the clip, both ends counted down to whole stored samples or whole frames. Never
// ends before it starts.
ByteRange SampleBytes(const ByteRange& selection, const AudioClip& clip);
ByteRange FrameBytes(const ByteRange& selection, const AudioClip& clip);

inline constexpr std::size_t kMostChannels = 2;

// The sound that an effect works on: whole frames.
struct EffectFrames {
  WaveFormat format;
  ByteRange bytes;
  std::int64_t count = 0;  // frames

  static EffectFrames Of(const ByteRange& selection, const AudioClip& clip);
  // What SamplesToFloat calls the channel with this index.
  std::uint32_t Selector(std::size_t channel) const {
    return static_cast<std::uint32_t>(format.nChannels == 1 ? 0 : channel + 1);
  }
};

// A step that makes this change to the sound in place: it marks the document changed, and no length or format
// is another afterwards.
EditStep InPlaceStep(std::function<EditResult(ClipEditor&)> change);

// Rewrites the bytes of `range`, which lies within the clip, on all processors. `rewrite` is given pieces
// that begin and end with whole frames, and the offset of each from the range's start. `doneBefore`
// of `total` bytes were worked through before.
EditResult RewritePieces(ClipEditor& editor, const ByteRange& range, std::uint64_t doneBefore,
                         std::uint64_t total,
                         const std::function<void(std::span<std::byte> piece, std::int64_t offset)>& rewrite);

// The same for work that only looks. False when it was cancelled.
bool LookAtPieces(ClipEditor& editor, const ByteRange& range, std::uint64_t doneBefore, std::uint64_t total,
                  const std::function<void(std::span<const std::byte> piece, std::int64_t offset)>& look);

}  // namespace tembrel
