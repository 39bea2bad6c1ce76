// Picking a frequency in the spectrum: from the pointer to a bin, to a frequency and its note, and where the
// readout shows them.
#pragma once

#include <cstdint>
#include <optional>

#include "analysis/NoteBands.h"
#include "analysis/SpectrumView.h"
#include "picture/Raster.h"

namespace tembrel {

struct FrequencyPick {
  std::int32_t frequency = 0;  // hertz
  int note = 0;

  bool operator==(const FrequencyPick&) const = default;
};

// The bin, or the place between two, under column `x` of a plot `width` wide. Nothing in the last column and
// outside the plot.
std::optional<float> BinUnderPointer(double x, int width, const SpectrumView& view);

// The bin's frequency without its fraction, and the note that goes with that.
FrequencyPick PickFrequency(std::uint32_t rate, double bin, const NoteBands& bands);

// The readout's two texts stand left-aligned at the top of these rectangles, logical pixels, and end at their
// edges.
inline constexpr PixelRect kFrequencyTextBox{5, 6, 50, 17};
inline constexpr PixelRect kNoteTextBox{70, 6, 65, 17};

}  // namespace tembrel
