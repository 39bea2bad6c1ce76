// Filters blocks of 2048 samples by their spectra: the rule that a filter is, applied to one block at a time,
// or to several where that is quicker.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "analysis/LaneTransform.h"
#include "edit/FilterPresets.h"

namespace tembrel {

enum class FilterMode {
  CleanSpectrum = 0,  // halves the real parts that are below a twentieth of the range of all
  CutRumble = 1,      // halves the real parts of the bins below 64 Hz
  Preset = 2,         // scales bins k and 2047 - k by the gain of bin k; bin 1024 stays
};

using BlockValues = std::array<float, kBlockPoints>;

class BlockFilter {
 public:
  // The table matters to presets only.
  BlockFilter(FilterMode filterMode, std::uint32_t sampleRate, std::span<const Breakpoint> table = {});

  FilterMode Mode() const { return mode; }

  // Filters up to kLanes blocks of 2048 samples each, and leaves the results under a triangular window in as
  // many of the first blocks of `filtered`, which has room for kLanes.
  void Filter(std::span<const float* const> blocks, std::span<BlockValues> filtered) const;

  // Presets only: twice as many blocks for the same work. What should be exactly 0 in one may come out as a
  // trace of another's rounding.
  void FilterPairs(std::span<const float* const> blocks, std::span<BlockValues> filtered) const;

 private:
  void FilterByGains(std::span<const float* const> blocks, std::span<BlockValues> filtered) const;

  FilterMode mode;
  LaneTransform transform;
  LaneTransform pairTransform{Turns::True};
  BlockValues window;
  BinGains gains;
  EvenGains evenGains;  // with the same real part of the result: that is all the sound gets
};

}  // namespace tembrel
