// The selection of one sound, in frames: the raw pair as the mouse or a command made it, whether it counts,
// and the last one that did.
#pragma once

#include <cstdint>
#include <optional>

namespace tembrel {

// Frames from `start` up to, not including, `end`.
struct FrameRange {
  std::int64_t start = 0;
  std::int64_t end = 0;

  bool operator==(const FrameRange&) const = default;
};

// The most frames a drag may cover and still count as a click: four pixels' worth, at least four frames.
std::int64_t ClickFrames(std::int64_t framesOnScreen, int clientWidth);

class Selection {
 public:
  // The raw pair: where the drag began and where the mouse is, in either order; -1 for none. Not limited to
  // the sound.
  std::int64_t AnchorFrame() const { return anchorFrame; }
  std::int64_t EndFrame() const { return endFrame; }
  bool Exists() const { return anchorFrame != -1 || endFrame != -1; }
  // The raw pair was normalised and counts.
  bool Valid() const { return valid; }
  // The last pair that counted, ordered and held inside the sound as it was then; survives Clear().
  std::optional<FrameRange> Remembered() const { return remembered; }

  // A new raw pair, which does not count before it is normalised.
  void SetRaw(std::int64_t anchor, std::int64_t end);
  // Orders the raw pair and decides whether it counts in a sound of `total` frames: it begins inside the
  // sound and covers at least two frames. A pair with anchor = end + 1 is left in its order, so it does not
  // count. What counts is remembered.
  bool Normalise(std::int64_t total);
  // No raw pair.
  void Clear();
  // Nothing remembered either.
  void Reset() { *this = Selection(); }

 private:
  std::int64_t anchorFrame = -1;
  std::int64_t endFrame = -1;
  bool valid = false;
  std::optional<FrameRange> remembered;
};

}  // namespace tembrel
