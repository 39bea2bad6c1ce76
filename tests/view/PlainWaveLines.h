// The waveform by its rules, sample by sample: slow, and the measure of the shipped form.
#pragma once

#include <vector>

#include "audio/AudioClip.h"
#include "picture/Picture.h"

namespace tembrel {

std::vector<Line> PlainWaveLines(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                                 std::int64_t framesOnScreen);

}  // namespace tembrel
