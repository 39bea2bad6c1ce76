// Drawing samples with the mouse: from a pixel of the waveform view to the level and the frames it stands
// for.
#pragma once

#include <cstdint>
#include <optional>

#include "audio/AudioClip.h"
#include "audio/WaveFormat.h"
#include "edit/EditStep.h"

namespace tembrel {

// The waveform view's client area in logical pixels and the frames it shows.
struct PencilArea {
  std::int64_t firstVisibleFrame = 0;
  std::int64_t framesOnScreen = 0;
  int width = 0;
  int height = 0;
};

struct PencilLevel {
  int channel = 0;  // 0 for mono and left, 1 for right
  // 0 is silence; full scale is reached a little inside the area and passed at its edge.
  std::int64_t value = 0;
};

// The level under row y. Nothing in an area too low for the layout.
std::optional<PencilLevel> PencilLevelAt(const WaveFormat& format, int y, int height);

// Whether a press at pixel (x, y) draws: the sound must be shown at four frames a pixel of the document's
// window or closer, and the mouse be near the sample under it or one of the two before; the first sample of
// the sound does not count.
bool PencilTouches(const AudioClip& clip, const PencilArea& area, int documentWidth, int x, int y);

// Sets the samples between the pixels beside x to the level of y, in the channel whose half y lies in. Levels
// beyond full scale wrap. `frameCount` is the document's.
EditResult DrawWithPencil(ClipEditor& editor, const PencilArea& area, std::int64_t frameCount, int x, int y);

}  // namespace tembrel
