// What the time ruler and the sample ruler draw: ticks with their labels, and the unit at the left end. Both
// show the frames the waveform view shows, on the same pixels.
#pragma once

#include <cstdint>
#include <string>

#include "picture/AxisLabel.h"
#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kRulerPaperColor = 0xFFBEBEBE;  // 190, 190, 190; the amplitude scale's too
inline constexpr Rgb kRulerTextColor = 0xFF000000;

// `step` as TimeStep gives it: the seconds with no decimals for whole seconds, one down to 0.1, two down to
// 0.01, three down to 0.0005, four below. A point whatever the locale.
std::string TimeLabel(double seconds, double step);

// Frames between ticks for a wish of `raw` frames: the largest of 1, 2, 5, 10, 20, 50, ... 5,000,000 that is
// strictly below raw, at least 1.
std::int64_t SampleStep(std::int64_t raw);

// `area` is the ruler's; `first` and `framesOnScreen` are the view's, `rate` in hertz (0: no clip). Ticks
// stand right of the 50th logical pixel only, so that nothing overwrites the unit, and no two on one pixel. A
// ruler of no size or a view of no frames has no ticks. Every tick has its label, also where labels are too
// close to be read; texts are centred in their boxes both ways.
AxisMarks TimeRuler(const PaintArea& area, std::uint32_t rate, std::int64_t first,
                    std::int64_t framesOnScreen);
AxisMarks SampleRuler(const PaintArea& area, std::int64_t first, std::int64_t framesOnScreen);

}  // namespace tembrel
