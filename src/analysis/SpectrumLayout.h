// Where the parts of the spectrum window stand.
#pragma once

#include <array>

#include "picture/Raster.h"

namespace tembrel {

inline constexpr int kSpectrumReadoutHeight = 28;
inline constexpr int kSpectrumAxisHeight = 17;
inline constexpr int kSpectrumBottom = 15;  // below the axis
inline constexpr int kSpectrumBarSize = 17;
inline constexpr int kSpectrumBorder = 1;

// Logical pixels. The scroll bar and the buttons are a little higher than the room below the axis and lie
// over the axis' last rows, which are empty.
struct SpectrumLayout {
  PixelRect readout;
  PixelRect display;  // with its border
  PixelRect axis;     // as wide as the display inside its border: ticks stand under grid lines
  PixelRect scrollBar;
  std::array<PixelRect, 3> buttons;  // from left to right
};

// Of a window of this size; parts for which there is no room get no height or width.
SpectrumLayout LayOutSpectrum(int width, int height);

}  // namespace tembrel
