// What the frequency axis below the spectrum draws: ticks with the frequencies of their bins, and the unit at
// the left end.
#pragma once

#include <cstdint>

#include "analysis/SpectrumView.h"
#include "picture/AxisLabel.h"
#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kSpectrumAxisPaperColor = 0xFFBEBEBE;  // the readout's too
inline constexpr Rgb kSpectrumTextColor = 0xFF000000;

// `area` is the axis', `rate` in hertz. Ticks stand right of the 60th logical pixel only, so that nothing
// overwrites the unit. Every tick has its label, also where labels are too close to be read; texts have their
// tops at their boxes' tops.
AxisMarks AxisOf(const PaintArea& area, std::uint32_t rate, const SpectrumView& view);

}  // namespace tembrel
