// The three lists of the Format dialog: rate, resolution and channels, and what their entries stand for.
#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "audio/FormatChoice.h"

namespace tembrel {

inline constexpr std::array<std::string_view, 3> kRateEntries{"11025 Hz", "22050 Hz", "44100 Hz"};
inline constexpr std::array<std::string_view, 2> kResolutionEntries{"8 Bits", "16 Bits"};
inline constexpr std::array<std::string_view, 2> kChannelEntries{"Mono", "Stereo"};

// Entries of the three lists, from 0.
struct FormatSelections {
  std::optional<int> rate;  // none for a rate that has no entry
  int resolution = 0;
  int channels = 0;

  bool operator==(const FormatSelections&) const = default;
};

// The entries that stand for a format. Bits and channels without an entry select the first.
FormatSelections SelectionsOf(const FormatChoice& format);

// The format that the entries stand for. With no rate selected, or a selection that is no entry, the value
// of `start` stays.
FormatChoice ChoiceOf(const FormatSelections& selections, const FormatChoice& start);

}  // namespace tembrel
