// The equaliser's ten presets, and the curve of gains that a preset draws over the frequencies.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace tembrel {

inline constexpr std::size_t kFilterPresetCount = 10;
inline constexpr std::size_t kPresetBreakpoints = 10;

struct Breakpoint {
  std::int32_t frequency = 0;  // hertz, rising from point to point
  std::int32_t gain = 100;     // percent, 100 changes nothing
};

using PresetTable = std::array<Breakpoint, kPresetBreakpoints>;

// The names in the order of their indices.
std::span<const std::string_view> FilterPresetNames();

// The index of the preset of this name.
std::optional<int> FindFilterPreset(std::string_view name);

// The table of a preset; one that does not exist (indices are 0 to 9) changes nothing.
PresetTable BuildPresetTable(int index);

// The gain in percent of bin `bin` of a 2048-point transform: on the straight line between the breakpoints
// around its frequency, in whole numbers, truncated; outside of all breakpoints the nearest one's.
std::int32_t BandGainPercent(std::span<const Breakpoint> table, std::uint32_t sampleRate, std::size_t bin);

// The preset chosen last with OK. The application has one, and hands it to whoever asks for a preset.
struct RememberedPreset {
  int index = 0;
};

}  // namespace tembrel
