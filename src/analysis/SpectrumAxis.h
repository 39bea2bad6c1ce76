// What the frequency axis below the spectrum draws: ticks with the frequencies of their bins, and the unit at
// the left end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "analysis/SpectrumView.h"
#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

inline constexpr Rgb kSpectrumAxisPaperColor = 0xFFBEBEBE;  // the readout's too
inline constexpr Rgb kSpectrumTextColor = 0xFF000000;
inline constexpr std::string_view kSpectrumAxisUnit = "Hz";

// Device pixels. Texts are centred in their boxes, with their tops at the boxes' tops, and may stick out.
struct SpectrumTick {
  Line line;
  PixelRect box;
  std::string label;

  bool operator==(const SpectrumTick&) const = default;
};

struct SpectrumAxis {
  PixelRect unitBox;
  std::vector<SpectrumTick> ticks;
};

// `area` is the axis', `rate` in hertz. Ticks stand right of the 60th logical pixel only, so that nothing
// overwrites the unit.
SpectrumAxis AxisOf(const PaintArea& area, std::uint32_t rate, const SpectrumView& view);

}  // namespace tembrel
