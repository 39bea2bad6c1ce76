// The waveform as lines: what the view, the batch program's drawing and the tests see of a clip between two
// frames.
//
// A view with at most two samples a pixel column joins the samples; a denser one draws each column from its
// lowest to its highest sample. In long views of 16-bit sound not every sample is examined.
#pragma once

#include <cstdint>
#include <vector>

#include "audio/AudioClip.h"
#include "picture/Picture.h"

namespace tembrel {

// Whether such sound is drawn as two channels, one above the other: true for two channels and more (the first
// two are drawn). Decides the layout of the grid too.
bool DrawsAsStereo(const WaveFormat& format);

// Frames between two examined ones, for `samples` stored samples of all channels in view over `columns` pixel
// columns: 20 from 3,000,001 samples on, otherwise 5 above 80 samples a column, otherwise 1; 8-bit sound is
// examined whole.
std::int64_t ExaminedStep(bool sixteenBits, std::int64_t samples, std::int64_t columns);

// Whether the view draws columns rather than joined samples: more than two samples of all channels a pixel
// column.
bool WaveIsDense(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                 std::int64_t framesOnScreen);

// The lines in painting order, all of the left channel before the right one's; none where the clip and the
// frames [first, first + framesOnScreen) do not meet. Positive samples lie above the centre line in every
// layout. Samples wider than 16 bits are drawn by their two top bytes. Whatever the format record says,
// nothing outside clip.Bytes() is read. Uses several threads when many samples have to be looked at.
std::vector<Line> WaveLines(const AudioClip& clip, const PaintArea& area, std::int64_t first,
                            std::int64_t framesOnScreen);

}  // namespace tembrel
