#include "edit/FilterPresets.h"

#include <algorithm>

namespace tembrel {

namespace {

constexpr std::array<std::int32_t, kPresetBreakpoints> kFrequencies{31,   62,   125,  250,  500,
                                                                    1000, 2000, 4000, 8000, 16000};

constexpr std::array<std::string_view, kFilterPresetCount> kNames{"Lift Musical Presence",
                                                                  "Attenuate Musical Presence",
                                                                  "Lift Vocal Presence",
                                                                  "Attenuate Vocal Presence",
                                                                  "Lift Bass",
                                                                  "Attenuate Bass",
                                                                  "Lift Midrange",
                                                                  "Attenuate Midrange",
                                                                  "Lift Treble",
                                                                  "Attenuate Treble"};

// Percent, in the order of the frequencies.
constexpr std::array<std::array<std::int32_t, kPresetBreakpoints>, kFilterPresetCount> kGains{{
    {100, 100, 100, 100, 100, 180, 230, 180, 100, 100},
    {100, 100, 100, 100, 100, 60, 40, 60, 100, 100},
    {100, 100, 100, 100, 100, 100, 400, 100, 100, 100},
    {100, 100, 100, 100, 100, 100, 25, 100, 100, 100},
    {400, 400, 200, 200, 200, 100, 100, 100, 100, 100},
    {25, 25, 50, 50, 50, 100, 100, 100, 100, 100},
    {100, 100, 100, 150, 200, 400, 200, 150, 100, 100},
    {100, 100, 100, 67, 50, 25, 50, 67, 100, 100},
    {100, 100, 100, 100, 100, 133, 166, 166, 200, 266},
    {100, 100, 100, 100, 100, 75, 60, 60, 50, 37},
}};

}  // namespace

std::span<const std::string_view> FilterPresetNames() {
  return kNames;
}

std::optional<int> FindFilterPreset(std::string_view name) {
  const auto* const found = std::ranges::find(kNames, name);
  if (found == kNames.end()) {
    return std::nullopt;
  }
  return static_cast<int>(found - kNames.begin());
}

PresetTable BuildPresetTable(int index) {
  PresetTable table;
  const bool exists = index >= 0 && index < static_cast<int>(kGains.size());
  for (std::size_t i = 0; i < table.size(); ++i) {
    table.at(i).frequency = kFrequencies.at(i);
    if (exists) {
      table.at(i).gain = kGains.at(static_cast<std::size_t>(index)).at(i);
    }
  }
  return table;
}

std::int32_t BandGainPercent(std::span<const Breakpoint> table, std::uint32_t sampleRate, std::size_t bin) {
  constexpr std::uint64_t kPoints = 2048;
  if (table.empty()) {
    return 100;
  }
  const auto frequency = static_cast<std::int64_t>(bin * std::uint64_t{sampleRate} / kPoints);
  const auto above = std::ranges::find_if(
      table, [frequency](const Breakpoint& point) { return frequency < point.frequency; });
  if (above == table.begin()) {
    return above->gain;
  }
  const Breakpoint& below = *(above - 1);
  if (above == table.end() || frequency == below.frequency) {
    return below.gain;
  }
  const std::int64_t rise = std::int64_t{above->gain - below.gain} * (frequency - below.frequency);
  return static_cast<std::int32_t>(below.gain + rise / (above->frequency - below.frequency));
}

}  // namespace tembrel
