// The plot of a spectrum painted into 32-bit pixels, and its colours.
#pragma once

#include "analysis/Spectrum.h"
#include "analysis/SpectrumView.h"
#include "picture/Picture.h"
#include "picture/Raster.h"

namespace tembrel {

// A colour given as 0x00BBGGRR.
constexpr Rgb FromBlueGreenRed(std::uint32_t color) {
  return 0xFF000000U | (color & 0xFFU) << 16U | (color & 0xFF00U) | (color >> 16U & 0xFFU);
}

inline constexpr Rgb kSpectrumPaperColor = FromBlueGreenRed(0x969696);
// The paper's: of the eleven levels only the centre's is seen.
inline constexpr Rgb kSpectrumLevelColor = FromBlueGreenRed(0x969696);
inline constexpr Rgb kSpectrumCentreColor = FromBlueGreenRed(0x400080);
inline constexpr Rgb kSpectrumBinColor = FromBlueGreenRed(0x8C8C8C);
inline constexpr Rgb kSpectrumLeftColor = FromBlueGreenRed(0xFF0000);  // the one trace, too
inline constexpr Rgb kSpectrumRightColor = FromBlueGreenRed(0x0000FF);
inline constexpr Rgb kSpectrumMarkerColor = 0xFF000000;

// Paper, grid and traces; `spectrum` may be null.
void PaintSpectrum(const Raster& raster, const Spectrum* spectrum, const PaintArea& area,
                   const SpectrumView& view);

// The marker over a painted plot.
void PaintMarker(const Raster& raster, const PaintArea& area, const SpectrumView& view);

}  // namespace tembrel
