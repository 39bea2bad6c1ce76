// The spectrum of the 2048 frames at a place in a sound, as the spectrum window shows it.
#pragma once

#include <complex>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "audio/AudioClip.h"

namespace tembrel {

inline constexpr std::size_t kSpectrumPoints = 2048;

using SpectrumBins = std::vector<std::complex<double>>;  // kSpectrumPoints of them

struct Spectrum {
  std::uint32_t rate = 0;  // hertz
  SpectrumBins bins;       // of the left channel in 16-bit stereo, otherwise the one trace shown
  SpectrumBins right;      // of the right channel in 16-bit stereo, otherwise empty
};

// Of the frames from `cursorFrame` on, or of the last 2048 when the cursor stands behind their beginning; a
// shorter sound is followed by zeros. Nothing for a layout that cannot be edited.
//
// 8-bit samples are taken as signed bytes, with their offset of 128 in place; in 8-bit stereo the right
// channel is shown alone. Both are meant so.
std::optional<Spectrum> ComputeSpectrum(const AudioClip& clip, std::int64_t cursorFrame);

// The frequency of a bin in hertz; `bin` may lie between two.
double BinFrequency(std::uint32_t rate, double bin);

// re² + im².
double BinPower(const std::complex<double>& bin);

}  // namespace tembrel
